#include "store/BinderState.h"
#include "store/DatabaseError.h"
#include "values/Text.h"

#include <algorithm>
#include <charconv>

namespace rovanta {

void BinderState::BindQuery(Query& query, const Scope* outer)
{
    const bool single = query.members.size() == 1;
    for (Select& member : query.members)
        BindSelect(member, outer, single ? &query : nullptr);
    query.columns = ResultColumns(query.members.front());
    if (single) {
        query.updatable = UpdatableTable(query);
        return;
    }
    UnifyMembers(query);
    for (OrderItem& item : query.orderBy) {
        item.position = NamedPosition(*item.expression, query.members.front());
        if (item.position == 0)
            throw DatabaseError(
                "ORDER BY items must appear in the select list if the statement contains a UNION, INTERSECT "
                "or EXCEPT operator.");
    }
}

/// Binds one SELECT, and the order of `ordered`, the query that consists of it alone.
void BinderState::BindSelect(Select& select, const Scope* outer, Query* ordered)
{
    Scope scope;
    scope.outer = outer;
    if (select.from)
        BindSource(*select.from, scope);
    if (select.where)
        BindExpression(select.where, scope);
    for (ExpressionPointer& key : select.groupBy)
        BindExpression(key, scope);
    ExpandStars(select, scope);
    scope.aggregatesAllowed = true;
    for (SelectItem& item : select.items)
        if (item.expression->source == nullptr)
            BindExpression(item.expression, scope);
    if (select.having)
        BindExpression(select.having, scope);
    const bool grouped = scope.aggregated || !select.groupBy.empty() || select.having;
    if (grouped) {
        for (const SelectItem& item : select.items)
            CheckGrouped(*item.expression, select, scope);
        if (select.having)
            CheckGrouped(*select.having, select, scope);
    }
    if (ordered != nullptr)
        BindOrder(*ordered, select, scope, grouped);
}

void BinderState::BindSource(Source& source, Scope& scope)
{
    if (source.kind != SourceKind::Join) {
        BindSingleSource(source, scope);
        return;
    }
    const std::size_t first = scope.sources.size();
    BindSource(*source.left, scope);
    BindSource(*source.right, scope);
    if (!source.condition)
        return;
    // The condition of a join sees the sources of that join alone.
    Scope joined;
    joined.outer = scope.outer;
    joined.sources.assign(scope.sources.begin() + static_cast<std::ptrdiff_t>(first), scope.sources.end());
    BindExpression(source.condition, joined);
}

void BinderState::BindSingleSource(Source& source, Scope& scope)
{
    for (const Source* other : scope.sources)
        if (EqualNoCase(other->alias, source.alias))
            throw DatabaseError(
                "The objects \"" + other->alias + "\" and \"" + source.alias +
                "\" in the FROM clause have the same exposed names. Use correlation names to distinguish "
                "them.");
    if (source.kind == SourceKind::Table) {
        const TablePointer table = FindTable(source.table);
        source.table = table->name;
        source.columns.reserve(table->columns.size());
        for (const ColumnInfo& column : table->columns)
            source.columns.push_back({column.name, column.type, table, &column});
    } else {
        BindQuery(*source.query, nullptr);
        source.columns = source.query->columns;
        for (std::size_t i = 0; i < source.columns.size(); ++i) {
            const std::string& name = source.columns[i].name;
            if (name.empty())
                throw DatabaseError("No column name was specified for column " + std::to_string(i + 1) + " of '" +
                                    source.alias + "'.");
            for (std::size_t j = 0; j < i; ++j)
                if (EqualNoCase(source.columns[j].name, name))
                    throw DatabaseError("The column '" + name + "' was specified multiple times for '" + source.alias +
                                        "'.");
        }
    }
    scope.sources.push_back(&source);
}

void BinderState::ExpandStars(Select& select, const Scope& scope) const
{
    if (std::none_of(select.items.begin(), select.items.end(), [](const SelectItem& item) { return item.star; }))
        return;
    if (scope.sources.empty())
        throw DatabaseError("Must specify table to select from.");
    std::vector<SelectItem> expanded;
    for (SelectItem& item : select.items) {
        if (!item.star) {
            expanded.push_back(std::move(item));
            continue;
        }
        bool found = false;
        for (const Source* source : scope.sources) {
            if (!item.starQualifier.empty() && !EqualNoCase(source->alias, item.starQualifier))
                continue;
            found = true;
            for (const SourceColumn& column : source->columns) {
                auto node = std::make_unique<Expression>(ExpressionKind::Column);
                node->name = column.name;
                node->qualifier = source->alias;
                node->type = column.type;
                node->source = &column;
                SelectItem& added = expanded.emplace_back();
                added.expression = std::move(node);
                added.alias = column.name;
            }
        }
        if (!found)
            throw DatabaseError("The column prefix '" + item.starQualifier +
                                "' does not match with a table name or alias name used in the query.");
    }
    select.items = std::move(expanded);
}

/// The place of the result's column that an ORDER BY item names by its alias or number; 0 when it names none.
std::size_t BinderState::NamedPosition(const Expression& expression, const Select& select)
{
    if (expression.kind == ExpressionKind::Literal && expression.literalKind == TypeKind::Int) {
        const std::string& digits = statement.literals[expression.literal].text;
        std::size_t position = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), position);
        if (position < 1 || position > select.items.size() || expression.negative)
            throw DatabaseError("The ORDER BY position number " + digits +
                                " is out of range of the number of items in the select list.");
        statement.fixedLiterals.push_back(expression.literal);
        return position;
    }
    if (expression.kind != ExpressionKind::Column || !expression.qualifier.empty())
        return 0;
    std::size_t position = 0;
    for (std::size_t i = 0; i < select.items.size(); ++i) {
        if (!EqualNoCase(select.items[i].alias, expression.name))
            continue;
        if (position != 0 && !Same(*select.items[i].expression, *select.items[position - 1].expression))
            throw DatabaseError("Ambiguous column name '" + expression.name + "'.");
        if (position == 0)
            position = i + 1;
    }
    return position;
}

void BinderState::BindOrder(Query& query, const Select& select, Scope& scope, bool grouped)
{
    for (OrderItem& item : query.orderBy) {
        item.position = NamedPosition(*item.expression, select);
        if (item.position != 0)
            continue;
        const bool aggregatedBefore = scope.aggregated;
        scope.aggregatesAllowed = grouped;
        BindExpression(item.expression, scope);
        scope.aggregated = aggregatedBefore;
        if (grouped)
            CheckGrouped(*item.expression, select, scope);
        const auto sameAsItem = [&](const SelectItem& selected) {
            return Same(*item.expression, *selected.expression);
        };
        if (select.distinct && std::none_of(select.items.begin(), select.items.end(), sameAsItem))
            throw DatabaseError("ORDER BY items must appear in the select list if SELECT DISTINCT is specified.");
    }
}

/// Gives the members of a UNION one type a column.
void BinderState::UnifyMembers(Query& query)
{
    for (std::size_t i = 0; i < query.columns.size(); ++i) {
        SourceColumn& column = query.columns[i];
        column.table = nullptr;
        column.column = nullptr;
        for (const Select& member : query.members) {
            if (member.items.size() != query.columns.size())
                throw DatabaseError(
                    "All queries combined using a UNION, INTERSECT or EXCEPT operator must have an equal "
                    "number of expressions in their target lists.");
            const SqlType& type = member.items[i].expression->type;
            const bool longer = type.kind == TypeKind::Varchar && column.type.kind == TypeKind::Varchar &&
                                column.type.length != 0 && (type.length == 0 || type.length > column.type.length);
            if (type.kind > column.type.kind || longer)
                column.type = type;
        }
        for (Select& member : query.members)
            if (member.items[i].expression->type.kind != column.type.kind)
                ConvertTo(member.items[i].expression, column.type);
    }
}

std::vector<SourceColumn> BinderState::ResultColumns(const Select& select)
{
    std::vector<SourceColumn> columns;
    for (const SelectItem& item : select.items) {
        const SourceColumn* source = item.expression->source;
        columns.push_back({item.alias, item.expression->type, source != nullptr ? source->table : nullptr,
                           source != nullptr ? source->column : nullptr});
    }
    return columns;
}

TablePointer BinderState::UpdatableTable(const Query& query)
{
    const Select& select = query.members.front();
    if (!select.from || select.from->kind != SourceKind::Table || select.distinct || !select.groupBy.empty() ||
        select.having || !select.into.empty())
        return nullptr;
    TablePointer table;
    for (const SourceColumn& column : query.columns)
        if (column.table && column.table->kind == TableKind::Table)
            table = column.table;
    return table;
}

/// In a SELECT with groups every column stands in an aggregate or among the keys of the groups.
void BinderState::CheckGrouped(const Expression& expression, const Select& select, const Scope& scope)
{
    for (const ExpressionPointer& key : select.groupBy)
        if (Same(expression, *key))
            return;
    if (expression.kind == ExpressionKind::Aggregate)
        return;
    if (expression.kind == ExpressionKind::Column) {
        const auto offersIt = [&](const Source* source) {
            return std::any_of(source->columns.begin(), source->columns.end(),
                               [&](const SourceColumn& column) { return &column == expression.source; });
        };
        if (std::any_of(scope.sources.begin(), scope.sources.end(), offersIt))
            throw DatabaseError("Column '" + FullName(expression) +
                                "' is invalid in the select list because it is not contained in either an aggregate "
                                "function or the GROUP BY clause.");
    }
    for (const ExpressionPointer& operand : expression.operands)
        CheckGrouped(*operand, select, scope);
}

/// Whether two expressions are the same by their text. Literals that make them so are fixed, since a statement of the
/// same shape with other literals would be another matter.
bool BinderState::Same(const Expression& a, const Expression& b)
{
    if (a.kind != b.kind || a.operands.size() != b.operands.size() || a.negated != b.negated || a.query || b.query)
        return false;
    if (a.kind == ExpressionKind::Column)
        return a.source == b.source;
    if (a.name != b.name || a.type != b.type || a.aggregate != b.aggregate || a.distinct != b.distinct)
        return false;
    if (a.kind == ExpressionKind::Literal) {
        const bool same = a.negative == b.negative && a.literalKind == b.literalKind &&
                          statement.literals[a.literal].text == statement.literals[b.literal].text;
        if (same) {
            statement.fixedLiterals.push_back(a.literal);
            statement.fixedLiterals.push_back(b.literal);
        }
        return same;
    }
    for (std::size_t i = 0; i < a.operands.size(); ++i)
        if (!Same(*a.operands[i], *b.operands[i]))
            return false;
    return true;
}

}
