#include "store/Binder.h"

#include "store/BinderState.h"
#include "store/DatabaseError.h"
#include "values/Text.h"

namespace rovanta {

void BindStatement(ParsedStatement& statement, Catalogue& catalogue, const std::string& identityInsertTable)
{
    BinderState(statement, catalogue, identityInsertTable).Bind();
}

void BinderState::Bind()
{
    StatementTree& tree = statement.tree;
    if (auto* query = std::get_if<std::unique_ptr<Query>>(&tree))
        BindWholeQuery(**query);
    else if (auto* insert = std::get_if<InsertStatement>(&tree))
        BindInsert(*insert);
    else if (auto* update = std::get_if<UpdateStatement>(&tree))
        BindUpdate(*update);
    else if (auto* deletion = std::get_if<DeleteStatement>(&tree))
        BindDelete(*deletion);
    else if (auto* table = std::get_if<CreateTableStatement>(&tree))
        RefuseTakenName(table->table);
    else if (auto* index = std::get_if<CreateIndexStatement>(&tree))
        BindIndex(*index);
    else if (auto* view = std::get_if<CreateViewStatement>(&tree))
        BindView(*view);
    else if (auto* drop = std::get_if<DropStatement>(&tree))
        BindDrop(*drop);
    else if (auto* setting = std::get_if<IdentityInsertStatement>(&tree))
        setting->table = FindTableToChange(setting->table)->name;
}

TablePointer BinderState::FindTable(const std::string& name) const
{
    if (TablePointer table = catalogue.Find(name))
        return table;
    throw DatabaseError("Invalid object name '" + name + "'.");
}

TablePointer BinderState::FindTableToChange(const std::string& name) const
{
    TablePointer table = FindTable(name);
    if (table->kind == TableKind::View)
        throw DatabaseError("View '" + table->name + "' is not updatable.");
    return table;
}

std::unique_ptr<Source> BinderState::TargetSource(const std::string& table) const
{
    const TablePointer info = FindTableToChange(table);
    auto source = std::make_unique<Source>(SourceKind::Table);
    source->table = info->name;
    source->alias = info->name;
    for (const ColumnInfo& column : info->columns)
        source->columns.push_back({column.name, column.type, info, &column});
    return source;
}

/// The columns that the values of an INSERT go to: those it lists, or all in their physical order but the identity.
std::vector<const ColumnInfo*> BinderState::InsertColumns(InsertStatement& insert) const
{
    const TableInfo& table = *insert.target;
    const bool ownNumbers = EqualNoCase(table.name, identityInsertTable);
    std::vector<const ColumnInfo*> columns;
    if (insert.columns.empty()) {
        if (ownNumbers)
            throw DatabaseError("An explicit value for the identity column in table '" + table.name +
                                "' can only be specified when a column list is used and IDENTITY_INSERT is ON.");
        for (const ColumnInfo& column : table.columns)
            if (!column.identity)
                columns.push_back(&column);
        return columns;
    }
    for (const std::string& name : insert.columns) {
        const ColumnInfo* column = table.FindColumn(name);
        if (column == nullptr)
            throw DatabaseError("Invalid column name '" + name + "'.");
        for (const ColumnInfo* earlier : columns)
            if (earlier == column)
                throw DatabaseError("The column name '" + name +
                                    "' is specified more than once in the SET clause or column list of an INSERT.");
        if (column->identity && !ownNumbers)
            throw DatabaseError("Cannot insert explicit value for identity column in table '" + table.name +
                                "' when IDENTITY_INSERT is set to OFF.");
        columns.push_back(column);
    }
    return columns;
}

void BinderState::RefuseTakenName(const std::string& name) const
{
    if (catalogue.Find(name))
        throw DatabaseError("There is already an object named '" + name + "' in the database.");
}

void BinderState::BindWholeQuery(Query& query)
{
    if (const std::string& into = query.members.front().into; !into.empty())
        RefuseTakenName(into);
    BindQuery(query, nullptr);
}

void BinderState::BindView(CreateViewStatement& view)
{
    RefuseTakenName(view.view);
    BindQuery(*view.query, nullptr);
}

void BinderState::BindDrop(DropStatement& drop) const
{
    const TablePointer dropped = catalogue.Find(drop.name);
    if (!dropped || dropped->kind != drop.kind)
        throw DatabaseError("Cannot drop the table '" + drop.name +
                            "', because it does not exist or you do not have permission.");
    drop.name = dropped->name;
}

static DatabaseError WrongNumberOfValues(const InsertStatement& insert, std::size_t columns, std::size_t values)
{
    if (insert.columns.empty())
        return DatabaseError("Column name or number of supplied values does not match table definition.");
    const std::string than = columns > values ? "fewer" : "more";
    if (insert.query)
        return DatabaseError("The select list for the INSERT statement contains " + than +
                             " items than the insert list. The number of SELECT values must match the number of INSERT "
                             "columns.");
    return DatabaseError(
        "There are " + std::string(columns > values ? "more" : "fewer") +
        " columns in the INSERT statement than values specified in the VALUES clause. The number of values "
        "in the VALUES clause must match the number of columns specified in the INSERT statement.");
}

void BinderState::BindInsert(InsertStatement& insert)
{
    insert.target = FindTableToChange(insert.table);
    const TableInfo& table = *insert.target;
    const std::vector<const ColumnInfo*> columns = InsertColumns(insert);
    const auto assign = [&](std::size_t index, ExpressionPointer& value) { AssignTo(value, table, *columns[index]); };
    for (auto& row : insert.rows) {
        if (row.size() != columns.size())
            throw WrongNumberOfValues(insert, columns.size(), row.size());
        Scope nothing;
        for (std::size_t i = 0; i < row.size(); ++i) {
            BindExpression(row[i], nothing);
            assign(i, row[i]);
        }
    }
    if (insert.query) {
        BindQuery(*insert.query, nullptr);
        if (insert.query->columns.size() != columns.size())
            throw WrongNumberOfValues(insert, columns.size(), insert.query->columns.size());
        for (Select& member : insert.query->members)
            for (std::size_t i = 0; i < columns.size(); ++i)
                assign(i, member.items[i].expression);
    }
    insert.table = table.name;
    insert.columns.clear();
    for (const ColumnInfo* column : columns)
        insert.columns.push_back(column->name);
}

void BinderState::BindUpdate(UpdateStatement& update)
{
    update.target = TargetSource(update.table);
    Scope scope;
    scope.sources.push_back(update.target.get());
    const TablePointer table = FindTable(update.table);
    for (Assignment& assignment : update.assignments) {
        const ColumnInfo* column = table->FindColumn(assignment.column);
        if (column == nullptr)
            throw DatabaseError("Invalid column name '" + assignment.column + "'.");
        if (column->identity)
            throw DatabaseError("Cannot update identity column '" + column->name + "'.");
        assignment.column = column->name;
        BindExpression(assignment.value, scope);
        AssignTo(assignment.value, *table, *column);
    }
    if (update.where)
        BindExpression(update.where, scope);
    update.table = table->name;
}

void BinderState::BindDelete(DeleteStatement& deletion)
{
    deletion.target = TargetSource(deletion.table);
    deletion.table = deletion.target->table;
    Scope scope;
    scope.sources.push_back(deletion.target.get());
    if (deletion.where)
        BindExpression(deletion.where, scope);
}

void BinderState::BindIndex(CreateIndexStatement& index)
{
    const TablePointer table = FindTableToChange(index.table);
    index.table = table->name;
    for (std::string& name : index.columns) {
        const ColumnInfo* column = table->FindColumn(name);
        if (column == nullptr)
            throw DatabaseError("Column name '" + name + "' does not exist in the target table or view.");
        name = column->name;
    }
}

}
