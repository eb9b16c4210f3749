#include "store/PostgresWriter.h"

#include "store/PostgresEmitter.h"

#include <algorithm>

namespace rovanta {

std::string PostgresWriter::TopQuery(const Query& query)
{
    std::string rowKey;
    if (query.updatable) {
        const ColumnInfo* identity = query.updatable->Identity();
        // A table that numbers its rows finds them by the number; another by the place where the row's version lies.
        rowKey = PostgresName(query.members.front().from->alias) + "." +
                 (identity != nullptr ? PostgresName(identity->name) : "ctid");
    }
    return Members(query, ColumnNames::Left, Ties::Settled, rowKey);
}

std::string PostgresWriter::QueryText(const Query& query)
{
    return Members(query, ColumnNames::Written, Ties::Left, {});
}

std::string PostgresWriter::FillingQuery(const Query& query)
{
    return Members(query, ColumnNames::Written, Ties::Settled, {});
}

std::string PostgresWriter::Members(const Query& query, ColumnNames names, Ties ties, const std::string& rowKey)
{
    const bool single = query.members.size() == 1;
    std::string text;
    for (const Select& member : query.members) {
        if (!text.empty())
            text += query.unionAll ? " UNION ALL " : " UNION ";
        // A member of a UNION bears a LIMIT in brackets alone.
        const bool bracketed = !single && member.top;
        text += bracketed ? "(" : "";
        text += SelectText(member, names, rowKey);
        if (bracketed)
            text += LimitText(*member.top) + ")";
    }
    text += OrderText(query, ties);
    if (single && query.members.front().top)
        text += LimitText(*query.members.front().top);
    return text;
}

std::string PostgresWriter::LimitText(std::size_t literal)
{
    Expression count(ExpressionKind::Literal);
    count.literal = literal;
    count.literalKind = TypeKind::Int;
    count.type = {TypeKind::Int};
    return " LIMIT " + LiteralText(count);
}

std::string PostgresWriter::SelectText(const Select& select, ColumnNames names, const std::string& rowKey)
{
    std::string text = select.distinct ? "SELECT DISTINCT " : "SELECT ";
    bool first = true;
    for (const SelectItem& item : select.items) {
        text += (first ? "" : ", ") + Collated(*item.expression);
        first = false;
        if (names == ColumnNames::Written && !item.alias.empty())
            text += " AS " + PostgresName(item.alias);
    }
    if (!rowKey.empty())
        text += ", " + rowKey;
    if (select.from)
        text += " FROM " + SourceText(*select.from);
    if (select.where)
        text += " WHERE " + Text(*select.where);
    for (std::size_t i = 0; i < select.groupBy.size(); ++i)
        text += (i == 0 ? " GROUP BY " : ", ") + Collated(*select.groupBy[i]);
    if (select.having)
        text += " HAVING " + Text(*select.having);
    return text;
}

/// Whether an item of the order can be NULL; where it cannot, an index of any kind serves the order.
static bool MayBeNull(const Query& query, const OrderItem& item)
{
    const Select& select = query.members.front();
    if (query.members.size() > 1 || !select.from || select.from->kind != SourceKind::Table)
        return true;
    const Expression& expression = item.position == 0 ? *item.expression : *select.items[item.position - 1].expression;
    return expression.source == nullptr || expression.source->column == nullptr || expression.source->column->nullable;
}

static bool HasAggregate(const Expression& expression)
{
    return expression.kind == ExpressionKind::Aggregate ||
           std::any_of(expression.operands.begin(), expression.operands.end(),
                       [](const ExpressionPointer& operand) { return HasAggregate(*operand); });
}

/// The keys of the tables that the rows come from, the left one first. A view and a query in brackets have none, and
/// where `numbered` tables alone are wanted, those without an identity have none either.
static void AddRowKeys(const Source& source, bool numbered, std::vector<std::string>& keys)
{
    if (source.kind == SourceKind::Join) {
        AddRowKeys(*source.left, numbered, keys);
        AddRowKeys(*source.right, numbered, keys);
    } else if (source.kind == SourceKind::Table && source.columns.front().table->kind == TableKind::Table) {
        const ColumnInfo* identity = source.columns.front().table->Identity();
        if (identity != nullptr || !numbered)
            keys.push_back(PostgresName(source.alias) + "." +
                           (identity != nullptr ? PostgresName(identity->name) : "ctid"));
    }
}

/// By what the rows are ordered where the statement leaves their order open: as a table clustered by its key gives
/// them. This server would give a row that was changed behind all others.
static std::vector<std::string> TieBreakers(const Query& query)
{
    std::vector<std::string> keys;
    const Select& select = query.members.front();
    const bool grouped = !select.groupBy.empty() || select.having ||
                         std::any_of(select.items.begin(), select.items.end(),
                                     [](const SelectItem& item) { return HasAggregate(*item.expression); });
    if (query.members.size() > 1 || select.distinct) {
        if (!query.unionAll)
            for (std::size_t i = 1; i <= query.columns.size(); ++i)
                keys.push_back(std::to_string(i) + " NULLS FIRST");
    } else if (grouped) {
        for (const ExpressionPointer& key : select.groupBy)
            if (key->kind == ExpressionKind::Column)
                keys.push_back(PostgresName(key->qualifier) + "." + PostgresName(key->name) + " NULLS FIRST");
    } else if (select.from) {
        // The first row of all is found without a look at the others.
        const bool anyRow = select.top && query.orderBy.empty();
        AddRowKeys(*select.from, anyRow, keys);
    }
    return keys;
}

std::string PostgresWriter::OrderText(const Query& query, Ties ties)
{
    std::string text;
    for (const OrderItem& item : query.orderBy) {
        text += text.empty() ? " ORDER BY " : ", ";
        text += item.position == 0 ? Collated(*item.expression) : std::to_string(item.position);
        if (item.descending)
            text += " DESC";
        if (MayBeNull(query, item))
            text += item.descending ? " NULLS LAST" : " NULLS FIRST";
    }
    if (ties == Ties::Settled)
        for (const std::string& key : TieBreakers(query))
            text += (text.empty() ? " ORDER BY " : ", ") + key;
    return text;
}

std::string PostgresWriter::SourceText(const Source& source)
{
    if (source.kind == SourceKind::Table)
        return PostgresName(source.table) + (source.alias == source.table ? "" : " AS " + PostgresName(source.alias));
    if (source.kind == SourceKind::Query)
        return "(" + QueryText(*source.query) + ") AS " + PostgresName(source.alias);
    std::string text = SourceText(*source.left);
    text += source.join == JoinKind::Left ? " LEFT JOIN " : source.join == JoinKind::Inner ? " JOIN " : " CROSS JOIN ";
    // Joins group to the left by themselves; brackets are written only where they mean something.
    const bool bracketed = source.right->kind == SourceKind::Join;
    text += (bracketed ? "(" : "") + SourceText(*source.right) + (bracketed ? ")" : "");
    if (source.condition)
        text += " ON " + Text(*source.condition);
    return text;
}

std::string PostgresWriter::InsertText(const InsertStatement& insert)
{
    std::string text = "INSERT INTO " + PostgresName(insert.table) + " (";
    for (std::size_t i = 0; i < insert.columns.size(); ++i)
        text += (i == 0 ? "" : ", ") + PostgresName(insert.columns[i]);
    text += ") ";
    if (insert.query)
        return text + FillingQuery(*insert.query);
    for (std::size_t i = 0; i < insert.rows.size(); ++i)
        text += (i == 0 ? "VALUES (" : ", (") + Listed(insert.rows[i]) + ")";
    return text;
}

std::string PostgresWriter::UpdateText(const UpdateStatement& update)
{
    std::string text = "UPDATE " + PostgresName(update.table) + " SET ";
    bool first = true;
    for (const Assignment& assignment : update.assignments) {
        text += (first ? "" : ", ") + PostgresName(assignment.column) + " = " + Text(*assignment.value);
        first = false;
    }
    if (update.where)
        text += " WHERE " + Text(*update.where);
    return text;
}

std::string PostgresWriter::DeleteText(const DeleteStatement& deletion)
{
    std::string text = "DELETE FROM " + PostgresName(deletion.table);
    if (deletion.where)
        text += " WHERE " + Text(*deletion.where);
    return text;
}

}
