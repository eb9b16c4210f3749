#include "store/SqliteEmitter.h"

#include "store/Conversion.h"
#include "store/DatabaseError.h"
#include "store/SqliteWriter.h"
#include "values/Text.h"

namespace rovanta {

std::string SqliteName(const std::string& name)
{
    return "[" + name + "]";
}

namespace {

std::string ColumnDefinition(const ColumnInfo& column)
{
    // The declared type stays the dialect's own word, so that the catalogue can be read back from the database.
    std::string text = SqliteName(column.name) + " " + TypeDeclaration(column.type);
    if (column.type.kind == TypeKind::Varchar)
        text += std::string(" COLLATE ") + sqliteTextCollation;
    if (!column.nullable)
        text += " NOT NULL";
    return text;
}

std::string CreateTableText(const CreateTableStatement& table)
{
    std::string text;
    const ColumnInfo* identity = nullptr;
    for (const ColumnInfo& column : table.columns) {
        text += text.empty() ? "" : ", ";
        if (!column.identity) {
            text += ColumnDefinition(column);
            continue;
        }
        if (identity != nullptr)
            throw DatabaseError("Multiple identity columns specified for table '" + table.table +
                                "'. Only one identity column per table is allowed.");
        if (!IsWhole(column.type.kind) || column.type.kind == TypeKind::Bit)
            throw DatabaseError("Identity column '" + column.name + "' must be of data type int or bigint.");
        identity = &column;
        text += SqliteName(column.name) + " INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL";
    }
    const bool ownKey = identity == nullptr && !table.primaryKey.empty();
    if (identity != nullptr && !table.primaryKey.empty() &&
        (table.primaryKey.size() > 1 || !EqualNoCase(table.primaryKey[0], identity->name)))
        throw DatabaseError("The identity column '" + identity->name + "' must be the primary key of table '" +
                            table.table + "'.");
    if (ownKey) {
        std::string key;
        for (const std::string& column : table.primaryKey)
            key += (key.empty() ? "" : ", ") + SqliteName(column);
        text += ", PRIMARY KEY (" + key + ")";
    }
    return "CREATE TABLE " + SqliteName(table.table) + " (" + text + ")";
}

std::string CreateIndexText(const CreateIndexStatement& index)
{
    std::string columns;
    for (const std::string& column : index.columns)
        columns += (columns.empty() ? "" : ", ") + SqliteName(column);
    return std::string("CREATE ") + (index.unique ? "UNIQUE " : "") + "INDEX " + SqliteName(index.index) + " ON " +
           SqliteName(index.table) + " (" + columns + ")";
}

/// The table that a SELECT ... INTO makes: the columns of its result.
CreateTableStatement TableOfResult(const std::string& name, const std::vector<SourceColumn>& columns)
{
    CreateTableStatement table;
    table.table = name;
    for (const SourceColumn& result : columns) {
        if (result.name.empty())
            throw DatabaseError("An object or column name is missing or empty. For SELECT INTO statements, verify each "
                                "column has a name.");
        for (const ColumnInfo& earlier : table.columns)
            if (EqualNoCase(earlier.name, result.name))
                throw DatabaseError("Column names in each table must be unique. Column name '" + result.name +
                                    "' in table '" + name + "' is specified more than once.");
        ColumnInfo& column = table.columns.emplace_back();
        column.name = result.name;
        column.type = result.type;
        if (column.type.kind == TypeKind::Unknown)
            column.type.kind = TypeKind::Int;
        if (column.type.kind == TypeKind::Decimal)
            column.type.kind = TypeKind::Float;
    }
    return table;
}

class PlanMaker {
public:
    explicit PlanMaker(const ParsedStatement& statement) : statement(statement), writer(statement.literals) {}

    Plan Make()
    {
        std::visit([this](const auto& tree) { MakeOf(tree); }, statement.tree);
        plan.parameters = writer.TakeParameters();
        return std::move(plan);
    }

private:
    void Define(std::string text, std::string creates = {})
    {
        plan.kind = PlanKind::Definition;
        plan.statements.push_back(std::move(text));
        plan.creates = std::move(creates);
    }

    void MakeOf(const std::unique_ptr<Query>& query)
    {
        const std::string& into = query->members.front().into;
        if (into.empty()) {
            plan.kind = PlanKind::Query;
            plan.statements.push_back(writer.TopQuery(*query));
            plan.shape = std::make_shared<ResultShape>(query->columns, query->updatable);
            return;
        }
        Define(CreateTableText(TableOfResult(into, query->columns)), into);
        plan.statements.push_back("INSERT INTO " + SqliteName(into) + " " + writer.QueryText(*query));
    }

    void MakeOf(const InsertStatement& insert) { plan.statements.push_back(writer.InsertText(insert)); }
    void MakeOf(const UpdateStatement& update) { plan.statements.push_back(writer.UpdateText(update)); }
    void MakeOf(const DeleteStatement& deletion) { plan.statements.push_back(writer.DeleteText(deletion)); }
    void MakeOf(const CreateTableStatement& table) { Define(CreateTableText(table), table.table); }
    void MakeOf(const CreateIndexStatement& index) { Define(CreateIndexText(index)); }

    void MakeOf(const CreateViewStatement& view)
    {
        writer.WriteLiteralsOut();
        Define("CREATE VIEW " + SqliteName(view.view) + " AS " + writer.QueryText(*view.query), view.view);
    }

    void MakeOf(const DropStatement& drop)
    {
        Define((drop.kind == TableKind::View ? "DROP VIEW " : "DROP TABLE ") + SqliteName(drop.name));
        plan.drops = drop.name;
        plan.droppedKind = drop.kind;
    }

    void MakeOf(const IdentityInsertStatement& setting)
    {
        plan.kind = PlanKind::IdentityInsert;
        plan.identityInsert = setting;
    }

    void MakeOf(const TransactionStatement& transaction)
    {
        plan.kind = PlanKind::Transaction;
        plan.transaction = transaction.step;
    }

    const ParsedStatement& statement;
    SqliteWriter writer;
    Plan plan;
};

}

Plan EmitForSqlite(const ParsedStatement& statement)
{
    return PlanMaker(statement).Make();
}

}
