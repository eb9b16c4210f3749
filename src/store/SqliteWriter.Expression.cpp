#include "store/SqliteWriter.h"
#include "store/Conversion.h"
#include "store/SqliteEmitter.h"
#include "values/Numbers.h"
#include "values/Text.h"

namespace rovanta {

namespace {

std::string Quoted(const std::string& text)
{
    return "'" + Replace(text, "'", "''") + "'";
}

/// Whether SQLite knows by itself to compare this text by the collation: it is a column of a table.
bool HasCollation(const Expression& expression)
{
    const SourceColumn* source = expression.source;
    return source != nullptr && source->column != nullptr && source->table->kind == TableKind::Table;
}

/// A value as SQLite holds it, written out.
std::string WrittenValue(const Value& value)
{
    if (value.IsNull())
        return "NULL";
    if (value.IsDate())
        return Quoted(ToLongIsoText(value.Date()));
    if (value.IsText())
        return Quoted(value.Text());
    if (const auto* flag = std::get_if<bool>(&value.Get()))
        return *flag ? "1" : "0";
    return value.Text();
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

}

std::string SqliteWriter::Text(const Expression& expression)
{
    switch (expression.kind) {
    case ExpressionKind::Literal:
        return LiteralText(expression);
    case ExpressionKind::Null:
        return "NULL";
    case ExpressionKind::Column:
        return SqliteName(expression.qualifier) + "." + SqliteName(expression.name);
    case ExpressionKind::Negate:
        return "(- " + Text(*expression.operands[0]) + ")";
    case ExpressionKind::Arithmetic:
        return ArithmeticText(expression);
    case ExpressionKind::IsNullFunction:
        return Call("ifnull", expression);
    case ExpressionKind::DateAdd:
        return "add_to_date('" + expression.name + "', " + Listed(expression.operands) + ")";
    case ExpressionKind::DateDiff:
        return "date_difference('" + expression.name + "', " + Listed(expression.operands) + ")";
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
        return (expression.negated ? "(NOT " : "(") + Call("is_like", expression) + ")";
    }
    return {};
}

std::string SqliteWriter::Listed(const std::vector<ExpressionPointer>& expressions)
{
    std::string text;
    for (const ExpressionPointer& expression : expressions)
        text += (text.empty() ? "" : ", ") + Text(*expression);
    return text;
}

std::string SqliteWriter::Call(const char* function, const Expression& expression)
{
    return std::string(function) + "(" + Listed(expression.operands) + ")";
}

std::string SqliteWriter::Collated(const Expression& expression)
{
    std::string text = Text(expression);
    if (expression.type.kind == TypeKind::Varchar && !HasCollation(expression))
        text += std::string(" COLLATE ") + sqliteTextCollation;
    return text;
}

std::string SqliteWriter::LiteralText(const Expression& expression)
{
    Parameter parameter{expression.literal, expression.negative, expression.literalKind, expression.type,
                        expression.place};
    if (literalsOut)
        return WrittenValue(ParameterValue(parameter, literals));
    parameters.push_back(std::move(parameter));
    return "?" + std::to_string(parameters.size());
}

std::string SqliteWriter::ArithmeticText(const Expression& expression)
{
    const std::string left = Text(*expression.operands[0]);
    const std::string right = Text(*expression.operands[1]);
    const TypeKind kind = expression.type.kind;
    std::string text;
    if (kind == TypeKind::Varchar)
        return "(" + left + " || " + right + ")";
    // SQLite gives NULL for a division by zero and takes money with no cents for a whole number.
    if (expression.name == "/")
        text = std::string(IsWhole(kind) ? "divide_whole(" : "divide(") + left + ", " + right + ")";
    else if (expression.name == "%")
        text = "remainder(" + left + ", " + right + ")";
    else
        text = "(" + left + " " + expression.name + " " + right + ")";
    return kind == TypeKind::Money ? "as_money(" + text + ")" : text;
}

std::string SqliteWriter::AggregateText(const Expression& expression)
{
    if (expression.operands.empty())
        return "count(*)";
    const Expression& operand = *expression.operands[0];
    const std::string inner = (expression.distinct ? "DISTINCT " : "") + Collated(operand);
    const TypeKind kind = expression.type.kind;
    if (expression.aggregate == AggregateKind::Average && IsWhole(kind))
        return "cast(avg(" + inner + ") AS INTEGER)";
    const std::string text = std::string(AggregateName(expression.aggregate)) + "(" + inner + ")";
    const bool adds = expression.aggregate == AggregateKind::Sum || expression.aggregate == AggregateKind::Average;
    return adds && kind == TypeKind::Money ? "as_money(" + text + ")" : text;
}

std::string SqliteWriter::ConversionText(const Expression& operand, const SqlType& to, const std::string& place)
{
    std::string text = Text(operand);
    const TypeKind from = operand.type.kind;
    if (FitsAsItStands(operand.type, to))
        return text;
    if (to.kind == TypeKind::Bit && IsNumber(from))
        return "(" + text + " <> 0)";
    if (to.kind == TypeKind::Money && IsNumber(from))
        return "as_money(" + text + ")";
    if (!place.empty() && from == TypeKind::Varchar)
        return "fit_text(" + text + ", " + std::to_string(to.length) + ", " + Quoted(place) + ")";
    return "convert_type(" + text + ", " + std::to_string(static_cast<int>(from)) + ", " +
           std::to_string(static_cast<int>(to.kind)) + ", " + std::to_string(to.length) + ")";
}

std::string SqliteWriter::CompareText(const Expression& expression)
{
    const Expression& left = *expression.operands[0];
    const Expression& right = *expression.operands[1];
    const std::string leftText = HasCollation(right) ? Text(left) : Collated(left);
    return "(" + leftText + " " + expression.name + " " + Text(right) + ")";
}

std::string SqliteWriter::ChainText(const Expression& expression, const char* sign)
{
    std::string text = "(";
    for (const ExpressionPointer& operand : expression.operands)
        text += (text.size() == 1 ? "" : sign) + Text(*operand);
    return text + ")";
}

std::string SqliteWriter::InText(const Expression& expression)
{
    std::string text = "(" + Collated(*expression.operands[0]) + (expression.negated ? " NOT IN (" : " IN (");
    for (std::size_t i = 1; i < expression.operands.size(); ++i)
        text += (i == 1 ? "" : ", ") + Text(*expression.operands[i]);
    return text + "))";
}

std::string SqliteWriter::InQueryText(const Expression& expression)
{
    return "(" + Collated(*expression.operands[0]) + (expression.negated ? " NOT IN (" : " IN (") +
           QueryText(*expression.query) + "))";
}

}
