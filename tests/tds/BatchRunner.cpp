#include "tests/tds/BatchRunner.h"

#include "store/Conversion.h"
#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "store/Lexer.h"
#include "store/Parser.h"
#include "store/Plan.h"
#include "store/Schema.h"
#include "values/Text.h"

#include <chrono>
#include <fstream>
#include <thread>

namespace rovanta::tds {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view askForNumber = "SELECT CAST(SCOPE_IDENTITY()";

bool Contains(const std::string& text, std::string_view what)
{
    return text.find(what) != std::string::npos;
}

/// Rows of columns of the given kinds, made by hand.
RowSet MadeRows(const std::vector<std::pair<const char*, TypeKind>>& columns, std::vector<Value> cells)
{
    std::vector<SourceColumn> sources;
    sources.reserve(columns.size());
    for (const auto& [name, kind] : columns)
        sources.push_back({name, {kind, kind == TypeKind::Varchar ? 128 : 0}, nullptr, nullptr});
    const std::size_t rowCount = cells.size() / columns.size();
    return {std::make_shared<ResultShape>(std::move(sources), nullptr), std::move(cells), {}, rowCount};
}

bool Is(const TokenList& list, std::size_t token, std::string_view word)
{
    return token < list.tokens.size() && EqualNoCase(list.tokens[token].text, word);
}

/// Where a token stands in the text that it was read from.
std::size_t PlaceOf(const Token& token, const std::string& text)
{
    const auto start = static_cast<std::size_t>(token.text.data() - text.data());
    return token.kind == TokenKind::Bracketed ? start - 1 : start;
}

/// An UPDATE or DELETE, cut where the count of its rows needs it.
struct ChangeText {
    std::string table;
    /// From WHERE on; empty where there is none.
    std::string condition;
};

ChangeText Cut(const std::string& change)
{
    const TokenList list = ReadTokens(change);
    std::size_t at = Is(list, 1, "FROM") ? 2 : 1;
    const std::size_t start = PlaceOf(list.tokens[at], change);
    std::size_t end = change.size();
    std::size_t where = change.size();
    int depth = 0;
    for (; at + 1 < list.tokens.size(); ++at) {
        depth += Is(list, at, "(") ? 1 : Is(list, at, ")") ? -1 : 0;
        if (depth > 0 || list.tokens[at].kind != TokenKind::Word)
            continue;
        if (Is(list, at, "SET") && end == change.size())
            end = PlaceOf(list.tokens[at], change);
        if (Is(list, at, "WHERE"))
            where = PlaceOf(list.tokens[at], change);
    }
    return {change.substr(start, std::min(end, where) - start), change.substr(where)};
}

/// "WITH name AS (SELECT ...) UPDATE name SET ...": the SELECT that finds the one row, and what happens to it.
struct OneRowChange {
    std::string select;
    std::string change;
};

OneRowChange CutOneRow(const std::string& text)
{
    const TokenList list = ReadTokens(text);
    constexpr std::size_t first = 4;
    std::size_t at = first;
    for (int depth = 1; depth > 0 && at + 1 < list.tokens.size(); ++at)
        depth += Is(list, at, "(") ? 1 : Is(list, at, ")") ? -1 : 0;
    const std::size_t start = PlaceOf(list.tokens.at(first), text);
    const std::size_t bracket = PlaceOf(list.tokens.at(at - 1), text);
    return {text.substr(start, bracket - start), text.substr(bracket + 1)};
}

Value LiteralIn(const ParsedStatement& parsed, const Expression& expression, const SqlType& type)
{
    if (expression.kind == ExpressionKind::Null)
        return {};
    if (expression.kind != ExpressionKind::Literal)
        throw DatabaseError("The change of one row takes plain values alone.");
    const Value value = LiteralAsValue(parsed.literals[expression.literal], expression.negative);
    return Convert(value, KindOf(value), type);
}

/// Several statements of the embedded engine that are one here.
class Together {
public:
    Together(Connection& connection, bool already) : connection(already ? nullptr : &connection)
    {
        if (this->connection != nullptr)
            connection.Execute("BEGIN TRANSACTION");
    }
    ~Together()
    {
        if (connection != nullptr)
            connection->Execute("ROLLBACK TRANSACTION");
    }
    Together(const Together&) = delete;
    Together& operator=(const Together&) = delete;

    void Keep()
    {
        if (connection != nullptr)
            connection->Execute("COMMIT TRANSACTION");
        connection = nullptr;
    }

private:
    Connection* connection;
};

int ErrorNumber(const std::string& text)
{
    const std::pair<std::string_view, int> known[] = {
        {"Incorrect syntax", 102},      {"Unclosed quotation", 105}, {"Invalid column name", 207},
        {"Invalid object name", 208},   {"Conversion failed", 245},  {"Violation of PRIMARY KEY", 2627},
        {"String or binary data", 2628}};
    for (const auto& [head, number] : known)
        if (text.starts_with(head))
            return number;
    return 8000;
}

}

fs::path BatchRunner::FileOf(const fs::path& folder, const std::string& database)
{
    return folder / (database + ".db");
}

BatchRunner::BatchRunner(fs::path home, std::string name) : folder(std::move(home)), database(std::move(name))
{
    if (database != "master")
        connection.Open(FileOf(folder, database).string());
}

bool BatchRunner::Run(const std::string& batch, Answer& answer)
{
    try {
        std::vector<std::string> statements = SplitScript(batch);
        // One statement is left as it stands, so that an error in it is told as it stands.
        if (statements.size() <= 1)
            statements = {batch};
        for (std::size_t i = 0; i < statements.size(); ++i) {
            const bool more = i + 1 < statements.size();
            const Outcome outcome = RunOne(statements[i], more ? statements[i + 1] : "");
            if (outcome.rows)
                answer.Rows(*outcome.rows);
            answer.Done(more, outcome.rows ? static_cast<std::int64_t>(outcome.rows->rowCount) : outcome.rowsChanged);
        }
        return true;
    } catch (const RunTimeError& error) {
        constexpr int severity = 16;
        answer.Error(ErrorNumber(error.what()), severity, error.what());
        answer.DoneWithError();
        return false;
    }
}

BatchRunner::Outcome BatchRunner::RunOne(const std::string& statement, const std::string& next)
{
    if (RunOnServer(statement))
        return {};
    if (Contains(statement, "FROM sys.objects"))
        return {CatalogueRows(), -1};
    if (Contains(statement, "FROM sys.extended_properties"))
        return {VersionRows(), -1};
    if (Contains(statement, "FROM sys.identity_columns"))
        return {LastNumberRows(statement), -1};
    if (StartsWithNoCase(statement, askForNumber))
        return {MadeRows({{"NewNumber", TypeKind::BigInt}}, {newNumber}), -1};
    if (StartsWithNoCase(statement, "SELECT") || statement.starts_with('('))
        return Select(statement);
    if (StartsWithNoCase(statement, "WITH"))
        return {std::nullopt, ChangeOne(statement)};
    if (StartsWithNoCase(statement, "UPDATE") || StartsWithNoCase(statement, "DELETE"))
        return Change(statement);
    if (StartsWithNoCase(statement, "INSERT") &&
        (StartsWithNoCase(next, askForNumber) || Contains(statement, "DEFAULT VALUES")))
        return Insert(statement);
    connection.Execute(Statement::Verbatim(statement));
    if (StartsWithNoCase(statement, "BEGIN"))
        inTransaction = true;
    else if (StartsWithNoCase(statement, "COMMIT") || StartsWithNoCase(statement, "ROLLBACK"))
        inTransaction = false;
    return {};
}

/// What concerns the server, or the connection as a whole. Whether it was of that kind.
bool BatchRunner::RunOnServer(const std::string& statement)
{
    if (statement.starts_with("SET DATEFORMAT") || statement.starts_with("SET NOCOUNT") ||
        statement.starts_with("SET DEADLOCK_PRIORITY") || statement.starts_with("IF EXISTS"))
        return true;
    if (statement.starts_with("EXEC sp_addextendedproperty")) {
        std::ofstream(VersionFile()) << statement.substr(statement.rfind(',') + 1);
        return true;
    }
    const bool make = StartsWithNoCase(statement, "CREATE DATABASE ");
    if (!make && !StartsWithNoCase(statement, "DROP DATABASE "))
        return false;
    const TokenList list = ReadTokens(statement);
    const fs::path file = FileOf(folder, std::string(list.tokens.at(2).text));
    if (make && list.tokens.size() > 4) {
        CopyDatabase(std::string(list.tokens[list.tokens.size() - 2].text), file);
    } else if (make) {
        CreateDatabaseFile(file.string());
    } else {
        for (const char* ending : {"", "-wal", "-shm"})
            fs::remove(file.string() + ending);
        fs::remove(fs::path(file).replace_extension("version"));
    }
    return true;
}

/// Copies a database that nobody is connected to. Its last client may be leaving still; the engine's journal goes when
/// it has gone.
void BatchRunner::CopyDatabase(const std::string& like, const fs::path& file) const
{
    const fs::path source = FileOf(folder, like);
    constexpr int patience = 1000;
    for (int i = 0; i < patience && fs::exists(source.string() + "-wal"); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    fs::copy_file(source, file);
    const fs::path version = fs::path(source).replace_extension("version");
    if (fs::exists(version))
        fs::copy_file(version, fs::path(file).replace_extension("version"));
}

BatchRunner::Outcome BatchRunner::Select(const std::string& select)
{
    const ParsedStatement parsed = ParseStatement(ReadTokens(select));
    const auto* query = std::get_if<std::unique_ptr<Query>>(&parsed.tree);
    if (query == nullptr || !(*query)->members.front().into.empty()) {
        connection.Execute(Statement::Verbatim(select));
        return {};
    }
    return {connection.GetEngine().Query(select), -1};
}

BatchRunner::Outcome BatchRunner::Insert(const std::string& insert)
{
    const TokenList list = ReadTokens(insert);
    const std::string name(list.tokens.at(2).text);
    Together together(connection, inTransaction);
    if (Contains(insert, "DEFAULT VALUES")) {
        const TablePointer table = connection.GetEngine().Tables().Find(name);
        newNumber = connection.GetEngine().Insert(*table, {}).identity;
    } else {
        connection.Execute(Statement::Verbatim(insert));
        const TablePointer table = connection.GetEngine().Tables().Find(name);
        if (const ColumnInfo* identity = table->Identity())
            newNumber = connection.GetEngine()
                            .Query("SELECT MAX([" + identity->name + "]) FROM [" + table->name + "]")
                            .cells[0];
    }
    together.Keep();
    return {std::nullopt, 1};
}

BatchRunner::Outcome BatchRunner::Change(const std::string& change)
{
    // The statement alone tells best what is wrong with it.
    Together together(connection, inTransaction);
    Outcome outcome;
    const ChangeText cut = Cut(change);
    std::optional<RowSet> count;
    try {
        count = connection.GetEngine().Query("SELECT COUNT(*) AS Found FROM " + cut.table + cut.condition);
    } catch (const DatabaseError&) {
        outcome.rowsChanged = -1;
    }
    connection.Execute(Statement::Verbatim(change));
    if (count)
        outcome.rowsChanged = std::get<std::int64_t>(count->cells.at(0).Get());
    together.Keep();
    return outcome;
}

/// Changes or deletes the row that the SELECT within the statement finds.
std::int64_t BatchRunner::ChangeOne(const std::string& statement)
{
    const OneRowChange cut = CutOneRow(statement);
    Engine& engine = connection.GetEngine();
    Together together(connection, inTransaction);
    const RowSet found = engine.Query(cut.select);
    if (found.rowCount == 0)
        return 0;
    const TableInfo& target = *found.shape->Updatable();
    const ParsedStatement parsed = ParseStatement(ReadTokens(cut.change));
    const auto* update = std::get_if<UpdateStatement>(&parsed.tree);
    if (update == nullptr) {
        engine.Delete(target, found.rowKeys[0], {});
        together.Keep();
        return 1;
    }
    std::vector<Value> values;
    std::vector<const ColumnInfo*> columns;
    for (const Assignment& assignment : update->assignments) {
        columns.push_back(target.FindColumn(assignment.column));
        values.push_back(LiteralIn(parsed, *assignment.value, columns.back()->type));
    }
    std::vector<ColumnValue> changes;
    for (std::size_t i = 0; i < values.size(); ++i)
        changes.push_back({columns[i], &values[i]});
    std::int64_t key = found.rowKeys[0];
    engine.Update(target, key, changes, {});
    together.Keep();
    return 1;
}

RowSet BatchRunner::CatalogueRows()
{
    std::vector<Value> cells;
    for (const TablePointer& table : connection.GetEngine().Tables().All())
        for (const ColumnInfo& column : table->columns) {
            const int length = column.type.length == 0 ? -1 : column.type.length;
            for (const Value& value :
                 {Value(table->name), Value(table->kind == TableKind::View ? "V" : "U"), Value(column.name),
                  Value(TypeName(column.type.kind)), Value(length), Value(column.nullable), Value(column.identity)})
                cells.push_back(value);
        }
    return MadeRows({{"TableName", TypeKind::Varchar},
                     {"Kind", TypeKind::Varchar},
                     {"ColumnName", TypeKind::Varchar},
                     {"TypeName", TypeKind::Varchar},
                     {"Length", TypeKind::Int},
                     {"Nullable", TypeKind::Bit},
                     {"IsIdentity", TypeKind::Bit}},
                    std::move(cells));
}

/// The two numbers that the statement asks for; the engine tells the higher one.
RowSet BatchRunner::LastNumberRows(const std::string& statement)
{
    constexpr std::string_view table = "OBJECT_ID('[";
    const std::size_t start = statement.find(table) + table.size();
    const std::string name = statement.substr(start, statement.find(']', start) - start);
    const std::int64_t last = connection.GetEngine().LastNumber(*connection.GetEngine().Tables().Find(name));
    return MadeRows({{"Highest", TypeKind::BigInt}, {"LastGiven", TypeKind::BigInt}},
                    {Value(), last == 0 ? Value() : Value(last)});
}

RowSet BatchRunner::VersionRows() const
{
    int version = 0;
    std::vector<Value> cells;
    if (std::ifstream(VersionFile()) >> version)
        cells.emplace_back(version);
    return MadeRows({{"Version", TypeKind::Int}}, std::move(cells));
}

fs::path BatchRunner::VersionFile() const
{
    return fs::path(FileOf(folder, database)).replace_extension("version");
}

}
