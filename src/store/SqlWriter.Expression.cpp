#include "store/SqlWriter.h"
#include "store/Conversion.h"

#include <algorithm>

namespace rovanta {

static const char* AggregateName(AggregateKind kind)
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

std::string SqlWriter::Text(const Expression& expression)
{
    const auto operand = [&](std::size_t index) { return Text(*expression.operands[index]); };
    switch (expression.kind) {
    case ExpressionKind::Literal:
        return LiteralText(expression);
    case ExpressionKind::Null:
        return dialect.Written({}, expression.type.kind);
    case ExpressionKind::Column:
        return dialect.Name(expression.qualifier) + "." + dialect.Name(expression.name);
    case ExpressionKind::Negate:
        return "(- " + operand(0) + ")";
    case ExpressionKind::Arithmetic:
        return dialect.Arithmetic(expression, operand(0), operand(1));
    case ExpressionKind::IsNullFunction:
        return "coalesce(" + Listed(expression.operands) + ")";
    case ExpressionKind::DateAdd:
        return dialect.Function("add_to_date") + "('" + expression.name + "', " + Listed(expression.operands) + ")";
    case ExpressionKind::DateDiff:
        return dialect.Function("date_difference") + "('" + expression.name + "', " + Listed(expression.operands) + ")";
    case ExpressionKind::Aggregate:
        return AggregateText(expression);
    case ExpressionKind::Cast:
    case ExpressionKind::Convert:
        return ConversionText(expression);
    case ExpressionKind::Subquery:
        return "(" + QueryText(*expression.query, Use::Inside) + ")";
    case ExpressionKind::Compare:
        return "(" + Collated(*expression.operands[0]) + " " + expression.name + " " + operand(1) + ")";
    case ExpressionKind::And:
        return ChainText(expression, " AND ");
    case ExpressionKind::Or:
        return ChainText(expression, " OR ");
    case ExpressionKind::Not:
        return "(NOT " + operand(0) + ")";
    case ExpressionKind::IsNull:
        return "(" + operand(0) + (expression.negated ? " IS NOT NULL)" : " IS NULL)");
    case ExpressionKind::In:
        return InText(expression, Listed(expression.operands, 1));
    case ExpressionKind::InQuery:
        return InText(expression, QueryText(*expression.query, Use::Inside));
    case ExpressionKind::Like:
        return (expression.negated ? "(NOT " : "(") + dialect.Like(expression, operand(0), operand(1)) + ")";
    }
    return {};
}

std::string SqlWriter::Listed(const std::vector<ExpressionPointer>& expressions, std::size_t from)
{
    std::string text;
    for (std::size_t i = from; i < expressions.size(); ++i)
        text += (i == from ? "" : ", ") + Text(*expressions[i]);
    return text;
}

std::string SqlWriter::Collated(const Expression& expression)
{
    return dialect.Collated(expression, Text(expression));
}

std::string SqlWriter::LiteralText(const Expression& expression)
{
    Parameter parameter{expression.literal, expression.negative, expression.literalKind, expression.type,
                        expression.place};
    // A literal that the plan rests on stands in the text, so that an engine sees two equal ones as the same.
    const auto& fixed = statement.fixedLiterals;
    if (literalsOut || std::find(fixed.begin(), fixed.end(), expression.literal) != fixed.end())
        return dialect.Written(ParameterValue(parameter, statement.literals), parameter.to.kind);
    parameters.push_back(std::move(parameter));
    return dialect.Mark(parameters.size());
}

std::string SqlWriter::AggregateText(const Expression& expression)
{
    if (expression.operands.empty())
        return "count(*)";
    const std::string operand = (expression.distinct ? "DISTINCT " : "") + Collated(*expression.operands[0]);
    return dialect.Aggregate(expression, std::string(AggregateName(expression.aggregate)) + "(" + operand + ")");
}

std::string SqlWriter::ConversionText(const Expression& expression)
{
    const Expression& operand = *expression.operands[0];
    std::string text = Text(operand);
    if (FitsAsItStands(operand.type, expression.type))
        return text;
    return dialect.Conversion(text, operand.type.kind, expression.type, expression.place);
}

std::string SqlWriter::ChainText(const Expression& expression, const char* sign)
{
    std::string text = "(";
    for (const ExpressionPointer& operand : expression.operands)
        text += (text.size() == 1 ? "" : sign) + Text(*operand);
    return text + ")";
}

std::string SqlWriter::InText(const Expression& expression, const std::string& list)
{
    return "(" + Collated(*expression.operands[0]) + (expression.negated ? " NOT IN (" : " IN (") + list + "))";
}

}
