#include "store/BinderState.h"
#include "store/Conversion.h"
#include "store/DatabaseError.h"
#include "values/Text.h"

#include <algorithm>

namespace rovanta {

std::string FullName(const Expression& column)
{
    return column.qualifier.empty() ? column.name : column.qualifier + "." + column.name;
}

void BinderState::BindExpression(ExpressionPointer& expression, Scope& scope)
{
    Expression& node = *expression;
    if (node.kind == ExpressionKind::Column) {
        BindColumn(node, scope);
        return;
    }
    if (node.kind == ExpressionKind::Aggregate) {
        BindAggregate(node, scope);
        return;
    }
    for (ExpressionPointer& operand : node.operands)
        BindExpression(operand, scope);
    switch (node.kind) {
    case ExpressionKind::Negate:
        if (!IsNumber(node.operands[0]->type.kind) || node.operands[0]->type.kind == TypeKind::Bit)
            throw DatabaseError("Operand data type " + std::string(TypeName(node.operands[0]->type.kind)) +
                                " is invalid for minus operator.");
        node.type = node.operands[0]->type;
        break;
    case ExpressionKind::Arithmetic:
        BindArithmetic(node);
        break;
    case ExpressionKind::IsNullFunction:
        BindIsNullFunction(node);
        break;
    case ExpressionKind::DateAdd:
        ConvertTo(node.operands[0], {TypeKind::Int});
        ConvertTo(node.operands[1], {TypeKind::DateTime});
        node.type = {TypeKind::DateTime};
        break;
    case ExpressionKind::DateDiff:
        ConvertTo(node.operands[0], {TypeKind::DateTime});
        ConvertTo(node.operands[1], {TypeKind::DateTime});
        node.type = {TypeKind::Int};
        break;
    case ExpressionKind::Cast:
        BindCast(expression);
        break;
    case ExpressionKind::Compare:
    case ExpressionKind::In:
        BindComparison(node);
        break;
    case ExpressionKind::InQuery:
        BindInQuery(node, scope);
        break;
    case ExpressionKind::Subquery:
        BindSubquery(node, scope);
        break;
    case ExpressionKind::Like:
        ConvertTo(node.operands[0], {TypeKind::Varchar});
        ConvertTo(node.operands[1], {TypeKind::Varchar});
        break;
    default:
        break;
    }
}

void BinderState::BindColumn(Expression& expression, const Scope& scope) const
{
    for (const Scope* level = &scope; level != nullptr; level = level->outer) {
        const Source* owner = nullptr;
        bool qualifierFound = false;
        for (const Source* source : level->sources) {
            if (!expression.qualifier.empty() && !EqualNoCase(source->alias, expression.qualifier))
                continue;
            qualifierFound = true;
            const auto named = [&](const SourceColumn& column) { return EqualNoCase(column.name, expression.name); };
            const auto found = std::find_if(source->columns.begin(), source->columns.end(), named);
            if (found == source->columns.end())
                continue;
            if (owner != nullptr)
                throw DatabaseError("Ambiguous column name '" + expression.name + "'.");
            owner = source;
            expression.source = &*found;
        }
        if (owner != nullptr) {
            expression.qualifier = owner->alias;
            expression.name = expression.source->name;
            expression.type = expression.source->type;
            return;
        }
        if (qualifierFound && !expression.qualifier.empty())
            throw DatabaseError("Invalid column name '" + expression.name + "'.");
    }
    if (!expression.qualifier.empty())
        throw DatabaseError("The multi-part identifier \"" + FullName(expression) + "\" could not be bound.");
    throw DatabaseError("Invalid column name '" + expression.name + "'.");
}

static std::string_view OperatorName(const std::string& sign)
{
    if (sign == "+")
        return "add";
    if (sign == "-")
        return "subtract";
    if (sign == "*")
        return "multiply";
    return sign == "/" ? "divide" : "modulo";
}

void BinderState::BindArithmetic(Expression& expression)
{
    ExpressionPointer& left = expression.operands[0];
    ExpressionPointer& right = expression.operands[1];
    const TypeKind common = std::max(left->type.kind, right->type.kind);
    const bool texts = common == TypeKind::Varchar && expression.name == "+";
    if (!texts && common != TypeKind::Unknown && (!IsNumber(common) || common == TypeKind::Bit))
        throw DatabaseError("Operand data type " + std::string(TypeName(common)) + " is invalid for " +
                            std::string(OperatorName(expression.name)) + " operator.");
    const bool sum = expression.name == "+" || expression.name == "-";
    const bool money = left->type.kind == TypeKind::Money || right->type.kind == TypeKind::Money;
    ConvertTo(left, {common});
    ConvertTo(right, {common});
    // A sum of money and a number like 12.5 stays money, so that cents stay cents.
    expression.type = {sum && money && common == TypeKind::Decimal ? TypeKind::Money : common};
}

void BinderState::BindAggregate(Expression& expression, Scope& scope)
{
    if (!scope.aggregatesAllowed)
        throw DatabaseError("An aggregate may not appear in the WHERE clause or in another aggregate.");
    scope.aggregated = true;
    scope.aggregatesAllowed = false;
    for (ExpressionPointer& operand : expression.operands)
        BindExpression(operand, scope);
    scope.aggregatesAllowed = true;
    if (expression.aggregate == AggregateKind::Count) {
        expression.type = {TypeKind::Int};
        return;
    }
    const SqlType& type = expression.operands[0]->type;
    const bool adds = expression.aggregate == AggregateKind::Sum || expression.aggregate == AggregateKind::Average;
    if (type.kind == TypeKind::Bit || (adds && !IsNumber(type.kind))) {
        constexpr std::string_view names[] = {"count", "sum", "min", "max", "avg"};
        throw DatabaseError("Operand data type " + std::string(TypeName(type.kind)) + " is invalid for " +
                            std::string(names[static_cast<std::size_t>(expression.aggregate)]) + " operator.");
    }
    expression.type = type;
}

void BinderState::BindIsNullFunction(Expression& expression)
{
    ExpressionPointer& value = expression.operands[0];
    ExpressionPointer& other = expression.operands[1];
    if (value->type.kind == TypeKind::Unknown)
        value->type = other->type;
    else
        ConvertTo(other, value->type);
    expression.type = value->type;
}

void BinderState::BindCast(ExpressionPointer& expression)
{
    ExpressionPointer& operand = expression->operands[0];
    const SqlType type = expression->type;
    if (operand->type.kind == TypeKind::DateTime && IsNumber(type.kind))
        throw NotConvertible(TypeKind::DateTime, type.kind);
    if (operand->kind == ExpressionKind::Literal && operand->type.kind == operand->literalKind) {
        operand->type = type;
        expression = std::move(expression->operands[0]);
    }
}

/// Brings all operands of a comparison to the highest of their types.
void BinderState::BindComparison(Expression& expression)
{
    TypeKind common = TypeKind::Unknown;
    for (const ExpressionPointer& operand : expression.operands)
        common = std::max(common, operand->type.kind);
    for (ExpressionPointer& operand : expression.operands)
        ConvertTo(operand, {common});
}

void BinderState::BindSubquery(Expression& expression, const Scope& scope)
{
    BindQuery(*expression.query, &scope);
    if (expression.query->columns.size() != 1)
        throw DatabaseError(
            "Only one expression can be specified in the select list when the subquery is not introduced "
            "with EXISTS.");
    expression.type = expression.query->columns[0].type;
}

void BinderState::BindInQuery(Expression& expression, Scope& scope)
{
    BindSubquery(expression, scope);
    const TypeKind common = std::max(expression.type.kind, expression.operands[0]->type.kind);
    ConvertTo(expression.operands[0], {common});
    for (Select& member : expression.query->members)
        ConvertTo(member.items[0].expression, {common});
}

/// Makes `expression` one of that type. A literal is converted where it is bound, before the statement runs.
void BinderState::ConvertTo(ExpressionPointer& expression, const SqlType& type, const std::string& place)
{
    Expression& node = *expression;
    if (node.type.kind == TypeKind::Unknown || type.kind == TypeKind::Unknown) {
        if (node.type.kind == TypeKind::Unknown)
            node.type = type;
        return;
    }
    if (node.kind == ExpressionKind::Literal && node.type == SqlType{node.literalKind}) {
        node.type = type;
        node.place = place;
        return;
    }
    if (FitsAsItStands(node.type, type))
        return;
    if (node.type.kind == TypeKind::DateTime && IsNumber(type.kind))
        throw NotConvertible(TypeKind::DateTime, type.kind);
    auto conversion = std::make_unique<Expression>(ExpressionKind::Convert);
    conversion->type = type;
    conversion->place = place;
    conversion->operands.push_back(std::move(expression));
    expression = std::move(conversion);
}

void BinderState::AssignTo(ExpressionPointer& expression, const TableInfo& table, const ColumnInfo& column)
{
    const bool limited = column.type.kind == TypeKind::Varchar && column.type.length > 0;
    ConvertTo(expression, column.type, limited ? ColumnPlace(table.name, column.name) : std::string{});
}

}
