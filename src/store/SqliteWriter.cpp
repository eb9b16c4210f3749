#include "store/SqliteWriter.h"

#include "store/SqliteEmitter.h"

namespace rovanta {

std::string SqliteWriter::TopQuery(const Query& query)
{
    const std::string rowKey =
        query.updatable ? SqliteName(query.members.front().from->alias) + ".rowid" : std::string{};
    return Members(query, ColumnNames::Left, rowKey);
}

std::string SqliteWriter::QueryText(const Query& query)
{
    return Members(query, ColumnNames::Written, {});
}

std::string SqliteWriter::Members(const Query& query, ColumnNames names, const std::string& rowKey)
{
    const bool single = query.members.size() == 1;
    std::string text;
    for (const Select& member : query.members) {
        if (!text.empty())
            text += query.unionAll ? " UNION ALL " : " UNION ";
        const bool compared = member.distinct || (!single && !query.unionAll);
        // A member of a UNION cannot bear a LIMIT by itself.
        const bool wrapped = !single && member.top;
        text += wrapped ? "SELECT * FROM (" : "";
        text += SelectText(member, compared, names, rowKey);
        if (wrapped)
            text += LimitText(*member.top) + ")";
    }
    text += OrderText(query);
    if (single && query.members.front().top)
        text += LimitText(*query.members.front().top);
    return text;
}

std::string SqliteWriter::LimitText(std::size_t literal)
{
    Expression count(ExpressionKind::Literal);
    count.literal = literal;
    count.literalKind = TypeKind::Int;
    count.type = {TypeKind::Int};
    return " LIMIT " + LiteralText(count);
}

std::string SqliteWriter::SelectText(const Select& select, bool compared, ColumnNames names, const std::string& rowKey)
{
    std::string text = select.distinct ? "SELECT DISTINCT " : "SELECT ";
    bool first = true;
    for (const SelectItem& item : select.items) {
        text += first ? "" : ", ";
        first = false;
        text += compared ? Collated(*item.expression) : Text(*item.expression);
        if (names == ColumnNames::Written && !item.alias.empty())
            text += " AS " + SqliteName(item.alias);
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

std::string SqliteWriter::OrderText(const Query& query)
{
    std::string text;
    for (const OrderItem& item : query.orderBy) {
        text += text.empty() ? " ORDER BY " : ", ";
        if (item.position == 0) {
            text += Collated(*item.expression);
        } else {
            text += std::to_string(item.position);
            const SourceColumn& column = query.columns[item.position - 1];
            const bool collated = column.column != nullptr && column.table->kind == TableKind::Table;
            if (column.type.kind == TypeKind::Varchar && !collated)
                text += std::string(" COLLATE ") + sqliteTextCollation;
        }
        if (item.descending)
            text += " DESC";
    }
    return text;
}

std::string SqliteWriter::SourceText(const Source& source)
{
    if (source.kind == SourceKind::Table)
        return SqliteName(source.table) + (source.alias == source.table ? "" : " AS " + SqliteName(source.alias));
    if (source.kind == SourceKind::Query)
        return "(" + QueryText(*source.query) + ") AS " + SqliteName(source.alias);
    std::string text = SourceText(*source.left);
    text += source.join == JoinKind::Left ? " LEFT JOIN " : source.join == JoinKind::Inner ? " JOIN " : " CROSS JOIN ";
    // Joins group to the left by themselves; brackets are written only where they mean something.
    const bool bracketed = source.right->kind == SourceKind::Join;
    text += (bracketed ? "(" : "") + SourceText(*source.right) + (bracketed ? ")" : "");
    if (source.condition)
        text += " ON " + Text(*source.condition);
    return text;
}

std::string SqliteWriter::InsertText(const InsertStatement& insert)
{
    std::string text = "INSERT INTO " + SqliteName(insert.table) + " (";
    for (std::size_t i = 0; i < insert.columns.size(); ++i)
        text += (i == 0 ? "" : ", ") + SqliteName(insert.columns[i]);
    text += ") ";
    if (insert.query)
        return text + QueryText(*insert.query);
    for (std::size_t i = 0; i < insert.rows.size(); ++i)
        text += (i == 0 ? "VALUES (" : ", (") + Listed(insert.rows[i]) + ")";
    return text;
}

std::string SqliteWriter::UpdateText(const UpdateStatement& update)
{
    std::string text = "UPDATE " + SqliteName(update.table) + " SET ";
    bool first = true;
    for (const Assignment& assignment : update.assignments) {
        text += (first ? "" : ", ") + SqliteName(assignment.column) + " = " + Text(*assignment.value);
        first = false;
    }
    if (update.where)
        text += " WHERE " + Text(*update.where);
    return text;
}

std::string SqliteWriter::DeleteText(const DeleteStatement& deletion)
{
    std::string text = "DELETE FROM " + SqliteName(deletion.table);
    if (deletion.where)
        text += " WHERE " + Text(*deletion.where);
    return text;
}

}
