#include "store/PlanMaker.h"

#include "store/DatabaseError.h"
#include "store/SqlWriter.h"
#include "values/Text.h"

namespace rovanta {

namespace {

/// The column that numbers the table's rows, which then is its key; null where there is none.
const ColumnInfo* IdentityOf(const CreateTableStatement& table)
{
    const ColumnInfo* identity = nullptr;
    for (const ColumnInfo& column : table.columns) {
        if (!column.identity)
            continue;
        if (identity != nullptr)
            throw DatabaseError("Multiple identity columns specified for table '" + table.table +
                                "'. Only one identity column per table is allowed.");
        if (!IsWhole(column.type.kind) || column.type.kind == TypeKind::Bit)
            throw DatabaseError("Identity column '" + column.name + "' must be of data type int or bigint.");
        identity = &column;
    }
    if (identity != nullptr && !table.primaryKey.empty() &&
        (table.primaryKey.size() > 1 || !EqualNoCase(table.primaryKey[0], identity->name)))
        throw DatabaseError("The identity column '" + identity->name + "' must be the primary key of table '" +
                            table.table + "'.");
    return identity;
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
    PlanMaker(const ParsedStatement& statement, const SqlDialect& dialect)
        : statement(statement), dialect(dialect), writer(statement, dialect)
    {
    }

    Plan Make()
    {
        std::visit([this](const auto& tree) { MakeOf(tree); }, statement.tree);
        plan.parameters = writer.TakeParameters();
        return std::move(plan);
    }

private:
    void Add(std::string text) { plan.statements.push_back(std::move(text)); }

    void Define(std::string text)
    {
        plan.kind = PlanKind::Definition;
        Add(std::move(text));
    }

    void MakeOf(const std::unique_ptr<Query>& query)
    {
        const std::string& into = query->members.front().into;
        if (into.empty()) {
            plan.kind = PlanKind::Query;
            Add(writer.QueryText(*query, SqlWriter::Use::Read));
            plan.shape = std::make_shared<ResultShape>(query->columns, query->updatable);
            return;
        }
        MakeOf(TableOfResult(into, query->columns));
        Add("INSERT INTO " + dialect.Name(into) + " " + writer.QueryText(*query, SqlWriter::Use::Fill));
    }

    void MakeOf(const InsertStatement& insert)
    {
        Add(writer.InsertText(insert));
        const ColumnInfo* identity = insert.target->Identity();
        for (const std::string& column : insert.columns)
            if (identity != nullptr && column == identity->name)
                plan.numbered = insert.target;
    }

    void MakeOf(const UpdateStatement& update) { Add(writer.UpdateText(update)); }
    void MakeOf(const DeleteStatement& deletion) { Add(writer.DeleteText(deletion)); }

    void MakeOf(const CreateTableStatement& table)
    {
        const ColumnInfo* identity = IdentityOf(table);
        std::string parts;
        for (const ColumnInfo& column : table.columns) {
            if (std::string first = dialect.NeededFirst(column); !first.empty())
                Add(std::move(first));
            parts += (parts.empty() ? "" : ", ") + dialect.ColumnDefinition(column);
        }
        if (identity == nullptr && !table.primaryKey.empty())
            parts += ", PRIMARY KEY (" + Names(table.primaryKey) + ")";
        Define("CREATE TABLE " + dialect.Name(table.table) + " (" + parts + ")");
    }

    void MakeOf(const CreateIndexStatement& index)
    {
        std::string columns;
        for (const std::string& column : index.columns)
            columns += (columns.empty() ? "" : ", ") + dialect.IndexedColumn(column);
        Define(std::string("CREATE ") + (index.unique ? "UNIQUE " : "") + "INDEX " + dialect.Name(index.index) +
               " ON " + dialect.Name(index.table) + " (" + columns + ")");
    }

    void MakeOf(const CreateViewStatement& view)
    {
        writer.WriteLiteralsOut();
        Define("CREATE VIEW " + dialect.Name(view.view) + " AS " +
               writer.QueryText(*view.query, SqlWriter::Use::Inside));
    }

    void MakeOf(const DropStatement& drop)
    {
        Define((drop.kind == TableKind::View ? "DROP VIEW " : "DROP TABLE ") + dialect.Name(drop.name));
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

    std::string Names(const std::vector<std::string>& columns) const
    {
        std::string text;
        for (const std::string& column : columns)
            text += (text.empty() ? "" : ", ") + dialect.Name(column);
        return text;
    }

    const ParsedStatement& statement;
    const SqlDialect& dialect;
    SqlWriter writer;
    Plan plan;
};

}

Plan MakePlan(const ParsedStatement& statement, const SqlDialect& dialect)
{
    return PlanMaker(statement, dialect).Make();
}

}
