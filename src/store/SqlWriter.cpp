#include "store/SqlWriter.h"

namespace rovanta {

std::string SqlWriter::QueryText(const Query& query, Use use)
{
    const bool single = query.members.size() == 1;
    std::string text;
    for (const Select& member : query.members) {
        if (!text.empty())
            text += query.unionAll ? " UNION ALL " : " UNION ";
        const std::string select = SelectText(query, member, use);
        text += single || !member.top ? select : dialect.LimitedMember(select + LimitText(*member.top));
    }
    text += OrderText(query, use);
    if (single && query.members.front().top)
        text += LimitText(*query.members.front().top);
    return text;
}

std::string SqlWriter::LimitText(std::size_t literal)
{
    Expression count(ExpressionKind::Literal);
    count.literal = literal;
    count.literalKind = TypeKind::Int;
    count.type = {TypeKind::Int};
    return " LIMIT " + LiteralText(count);
}

std::string SqlWriter::SelectText(const Query& query, const Select& select, Use use)
{
    std::string text = select.distinct ? "SELECT DISTINCT " : "SELECT ";
    bool first = true;
    for (const SelectItem& item : select.items) {
        text += (first ? "" : ", ") + Collated(*item.expression);
        first = false;
        // What the program reads it knows by the place.
        if (use != Use::Read && !item.alias.empty())
            text += " AS " + dialect.Name(item.alias);
    }
    if (use == Use::Read && query.updatable)
        text += ", " + dialect.RowKey(select.from->alias, *query.updatable);
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

std::string SqlWriter::OrderText(const Query& query, Use use)
{
    std::string text;
    for (const OrderItem& item : query.orderBy) {
        const std::string by = item.position == 0 ? Collated(*item.expression) : std::to_string(item.position);
        text += (text.empty() ? " ORDER BY " : ", ") + dialect.OrderItemText(query, item, by);
    }
    if (use != Use::Inside)
        for (const std::string& key : dialect.TieBreakers(query))
            text += (text.empty() ? " ORDER BY " : ", ") + key;
    return text;
}

std::string SqlWriter::SourceText(const Source& source)
{
    if (source.kind == SourceKind::Table)
        return dialect.Name(source.table) + (source.alias == source.table ? "" : " AS " + dialect.Name(source.alias));
    if (source.kind == SourceKind::Query)
        return "(" + QueryText(*source.query, Use::Inside) + ") AS " + dialect.Name(source.alias);
    std::string text = SourceText(*source.left);
    text += source.join == JoinKind::Left ? " LEFT JOIN " : source.join == JoinKind::Inner ? " JOIN " : " CROSS JOIN ";
    // Joins group to the left by themselves; brackets are written only where they mean something.
    const bool bracketed = source.right->kind == SourceKind::Join;
    text += (bracketed ? "(" : "") + SourceText(*source.right) + (bracketed ? ")" : "");
    if (source.condition)
        text += " ON " + Text(*source.condition);
    return text;
}

std::string SqlWriter::InsertText(const InsertStatement& insert)
{
    std::string text = "INSERT INTO " + dialect.Name(insert.table) + " (";
    for (std::size_t i = 0; i < insert.columns.size(); ++i)
        text += (i == 0 ? "" : ", ") + dialect.Name(insert.columns[i]);
    text += ") ";
    if (insert.query)
        return text + QueryText(*insert.query, Use::Fill);
    for (std::size_t i = 0; i < insert.rows.size(); ++i)
        text += (i == 0 ? "VALUES (" : ", (") + Listed(insert.rows[i]) + ")";
    return text;
}

std::string SqlWriter::UpdateText(const UpdateStatement& update)
{
    std::string text = "UPDATE " + dialect.Name(update.table) + " SET ";
    bool first = true;
    for (const Assignment& assignment : update.assignments) {
        text += (first ? "" : ", ") + dialect.Name(assignment.column) + " = " + Text(*assignment.value);
        first = false;
    }
    if (update.where)
        text += " WHERE " + Text(*update.where);
    return text;
}

std::string SqlWriter::DeleteText(const DeleteStatement& deletion)
{
    std::string text = "DELETE FROM " + dialect.Name(deletion.table);
    if (deletion.where)
        text += " WHERE " + Text(*deletion.where);
    return text;
}

}
