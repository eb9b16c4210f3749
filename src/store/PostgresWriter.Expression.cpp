#include "store/PostgresWriter.h"
#include "store/Conversion.h"
#include "store/PostgresEmitter.h"
#include "values/Numbers.h"
#include "values/Text.h"

#include <algorithm>

namespace rovanta {

namespace {

constexpr const char* collation = " COLLATE rovanta.words";

std::string Quoted(const std::string& text)
{
    return "'" + Replace(text, "'", "''") + "'";
}

/// A value written out, of the type that its place has.
std::string WrittenValue(const Value& value, TypeKind kind)
{
    const std::string type = std::string("::") + PostgresType(kind);
    if (value.IsNull())
        return "NULL" + type;
    if (const auto* flag = std::get_if<bool>(&value.Get()))
        return std::string(*flag ? "'1'" : "'0'") + type;
    return Quoted(value.IsDate() ? ToLongIsoText(value.Date()) : value.Text()) + type;
}

const char* AggregateName(AggregateKind kind)
{
    switch (kind) {
    case AggregateKind::Count:
        return "count";
    case AggregateKind::Sum:
        return "sum";
    case AggregateKind::Minimum:
        return "min";
    case AggregateKind::Maximum:
        return "max";
    case AggregateKind::Average:
        return "avg";
    }
    return "";
}

std::string AsMoney(const std::string& text)
{
    return "round((" + text + ")::numeric, 4)";
}

}

std::string PostgresWriter::Text(const Expression& expression)
{
    switch (expression.kind) {
    case ExpressionKind::Literal:
        return LiteralText(expression);
    case ExpressionKind::Null:
        return expression.type.kind == TypeKind::Unknown ? "NULL" : WrittenValue({}, expression.type.kind);
    case ExpressionKind::Column:
        return PostgresName(expression.qualifier) + "." + PostgresName(expression.name);
    case ExpressionKind::Negate:
        return "(- " + Text(*expression.operands[0]) + ")";
    case ExpressionKind::Arithmetic:
        return ArithmeticText(expression);
    case ExpressionKind::IsNullFunction:
        return "coalesce(" + Listed(expression.operands) + ")";
    case ExpressionKind::DateAdd:
        return "rovanta.add_to_date('" + expression.name + "', " + Listed(expression.operands) + ")";
    case ExpressionKind::DateDiff:
        return "rovanta.date_difference('" + expression.name + "', " + Listed(expression.operands) + ")";
    case ExpressionKind::Aggregate:
        return AggregateText(expression);
    case ExpressionKind::Cast:
    case ExpressionKind::Convert:
        return ConversionText(*expression.operands[0], expression.type, expression.place);
    case ExpressionKind::Subquery:
        return "(" + QueryText(*expression.query) + ")";
    case ExpressionKind::Compare:
        return CompareText(expression);
    case ExpressionKind::And:
        return ChainText(expression, " AND ");
    case ExpressionKind::Or:
        return ChainText(expression, " OR ");
    case ExpressionKind::Not:
        return "(NOT " + Text(*expression.operands[0]) + ")";
    case ExpressionKind::IsNull:
        return "(" + Text(*expression.operands[0]) + (expression.negated ? " IS NOT NULL)" : " IS NULL)");
    case ExpressionKind::In:
        return InText(expression);
    case ExpressionKind::InQuery:
        return InQueryText(expression);
    case ExpressionKind::Like:
        return LikeText(expression);
    }
    return {};
}

std::string PostgresWriter::Listed(const std::vector<ExpressionPointer>& expressions)
{
    std::string text;
    for (const ExpressionPointer& expression : expressions)
        text += (text.empty() ? "" : ", ") + Text(*expression);
    return text;
}

std::string PostgresWriter::Collated(const Expression& expression)
{
    // A column brings the collation of its table, or of the query behind it, with it.
    std::string text = Text(expression);
    const bool bare = expression.kind == ExpressionKind::Null && expression.type.kind == TypeKind::Unknown;
    if (expression.type.kind == TypeKind::Varchar && expression.kind != ExpressionKind::Column && !bare)
        text = "(" + text + collation + ")";
    return text;
}

std::string PostgresWriter::LiteralText(const Expression& expression)
{
    Parameter parameter{expression.literal, expression.negative, expression.literalKind, expression.type,
                        expression.place};
    // A literal that the plan rests on stands in the text, so that the server sees two equal ones as the same.
    const auto& fixed = statement.fixedLiterals;
    if (literalsOut || std::find(fixed.begin(), fixed.end(), expression.literal) != fixed.end())
        return WrittenValue(ParameterValue(parameter, statement.literals), parameter.to.kind);
    parameters.push_back(std::move(parameter));
    return "$" + std::to_string(parameters.size());
}

std::string PostgresWriter::ArithmeticText(const Expression& expression)
{
    const std::string left = Text(*expression.operands[0]);
    const std::string right = Text(*expression.operands[1]);
    const TypeKind kind = expression.type.kind;
    if (kind == TypeKind::Varchar)
        return "rovanta.joined(" + left + ", " + right + ")";
    std::string text;
    if (expression.name == "%" && !IsWhole(kind))
        text = "rovanta.remainder(" + left + ", " + right + ")";
    else
        text = "(" + left + " " + expression.name + " " + right + ")";
    return kind == TypeKind::Money ? AsMoney(text) : text;
}

std::string PostgresWriter::AggregateText(const Expression& expression)
{
    if (expression.operands.empty())
        return "count(*)";
    const std::string inner = (expression.distinct ? "DISTINCT " : "") + Collated(*expression.operands[0]);
    const std::string text = std::string(AggregateName(expression.aggregate)) + "(" + inner + ")";
    const bool adds = expression.aggregate == AggregateKind::Sum || expression.aggregate == AggregateKind::Average;
    // Sums of whole numbers come as numbers of any size, averages with a fraction.
    if (adds && IsWhole(expression.type.kind))
        return "trunc(" + text + ")::int8";
    return adds && expression.type.kind == TypeKind::Money ? AsMoney(text) : text;
}

std::string PostgresWriter::TextToText(const std::string& text, const SqlType& to, const std::string& place)
{
    if (place.empty())
        return "rovanta.cut_text(" + text + ", " + std::to_string(to.length) + ")";
    return "rovanta.fit_text(" + text + ", " + std::to_string(to.length) + ", " + Quoted(place) + ")";
}

std::string PostgresWriter::ToVarchar(const std::string& text, TypeKind from, int length)
{
    const char* function = from == TypeKind::Money      ? "money_to_text"
                           : from == TypeKind::DateTime ? "datetime_to_text"
                           : IsWhole(from)              ? "whole_to_text"
                                                        : "float_to_text";
    return std::string("rovanta.") + function + "(" + text + ", " + std::to_string(length) + ")";
}

std::string PostgresWriter::ConversionText(const Expression& operand, const SqlType& to, const std::string& place)
{
    const std::string text = Text(operand);
    const TypeKind from = operand.type.kind;
    if (FitsAsItStands(operand.type, to))
        return text;
    if (to.kind == TypeKind::Varchar)
        return from == TypeKind::Varchar ? TextToText(text, to, place) : ToVarchar(text, from, to.length);
    const std::string type = Quoted(std::string(TypeName(to.kind)));
    if (from == TypeKind::Varchar) {
        switch (to.kind) {
        case TypeKind::Bit:
            return "rovanta.text_to_bit(" + text + ")";
        case TypeKind::Money:
            return "rovanta.text_to_money(" + text + ")";
        case TypeKind::DateTime:
            return "rovanta.text_to_datetime(" + text + ")";
        case TypeKind::Int:
        case TypeKind::BigInt:
            return "rovanta.text_to_whole(" + text + ", " + type + ")";
        default:
            return "rovanta.text_to_float(" + text + ", " + type + ")";
        }
    }
    switch (to.kind) {
    case TypeKind::Bit:
        return "(" + text + " <> 0)::int4::int2";
    case TypeKind::Money:
        return AsMoney(text);
    case TypeKind::DateTime:
        return "rovanta.days_to_datetime(" + text + ")";
    case TypeKind::Int:
    case TypeKind::BigInt:
        // Money is rounded, another number cut.
        return std::string(from == TypeKind::Money ? "round(" : "trunc(") + text + ")::" + PostgresType(to.kind);
    default:
        return text;
    }
}

std::string PostgresWriter::CompareText(const Expression& expression)
{
    return "(" + Collated(*expression.operands[0]) + " " + expression.name + " " + Text(*expression.operands[1]) + ")";
}

std::string PostgresWriter::ChainText(const Expression& expression, const char* sign)
{
    std::string text = "(";
    for (const ExpressionPointer& operand : expression.operands)
        text += (text.size() == 1 ? "" : sign) + Text(*operand);
    return text + ")";
}

std::string PostgresWriter::InText(const Expression& expression)
{
    std::string text = "(" + Collated(*expression.operands[0]) + (expression.negated ? " NOT IN (" : " IN (");
    for (std::size_t i = 1; i < expression.operands.size(); ++i)
        text += (i == 1 ? "" : ", ") + Text(*expression.operands[i]);
    return text + "))";
}

std::string PostgresWriter::InQueryText(const Expression& expression)
{
    return "(" + Collated(*expression.operands[0]) + (expression.negated ? " NOT IN (" : " IN (") +
           QueryText(*expression.query) + "))";
}

std::string PostgresWriter::LikeText(const Expression& expression)
{
    std::string pattern = "rovanta.like_pattern(" + Text(*expression.operands[1]) + ")";
    // The pattern of a literal is worked out once and not for every row.
    if (expression.operands[1]->kind == ExpressionKind::Literal)
        pattern = "(SELECT " + pattern + ")";
    return std::string(expression.negated ? "(NOT " : "(") + "rovanta.is_like(" + Text(*expression.operands[0]) + ", " +
           pattern + "))";
}

}
