#include "tests/store/CaseFile.h"

#include <doctest/doctest.h>

#include "store/DatabaseError.h"
#include "store/PostgresSession.h"
#include "store/Recordset.h"
#include "tests/store/TestOffice.h"
#include "tests/support/Tally.h"
#include "values/Text.h"

#include <fstream>
#include <stdexcept>

namespace rovanta {

namespace {

/// The lines of the file, each with the lines that go on with it.
std::vector<std::pair<int, std::string>> JoinedLines(const std::string& path)
{
    std::ifstream input(path);
    if (!input)
        throw std::runtime_error("no file " + path);
    std::vector<std::pair<int, std::string>> lines;
    int number = 0;
    for (std::string line; std::getline(input, line);) {
        ++number;
        if (Trim(line).empty() || line.front() == '#')
            continue;
        if (line.front() == ' ')
            lines.back().second += " " + Trim(line);
        else
            lines.emplace_back(number, line);
    }
    return lines;
}

std::string Difference(const StatementCase& one, const CaseStep& step, const std::string& what)
{
    return "line " + std::to_string(step.line) + " (" + one.title + "): " + what + "\n    " + step.statement;
}

std::string Listed(const std::vector<std::string>& rows)
{
    std::string text;
    for (const std::string& row : rows)
        text += "\n    | " + row;
    return text;
}

/// The rows of the chosen columns alone.
std::vector<std::string> ChosenRows(Recordset& records, const std::string& columns)
{
    std::vector<std::string> rows;
    for (; !records.Eof(); records.MoveNext()) {
        std::string row;
        for (const std::string& name : Split(columns, '|'))
            row += (row.empty() ? "" : " | ") + Shown(records.Fields(Trim(name)).Value());
        rows.push_back(row);
    }
    return rows;
}

/// What went otherwise than told; empty when all went well.
std::string RunStep(const StatementCase& one, const CaseStep& step, Connection& connection)
{
    const Statement statement = Statement::Verbatim(step.statement);
    try {
        if (step.kind != StepKind::Ask) {
            connection.Execute(statement);
        } else {
            Recordset records(statement, connection);
            const std::string chosen = step.chosenColumns ? step.expected.front() : "";
            std::vector<std::string> found = step.chosenColumns ? ChosenRows(records, chosen) : RowsOf(records);
            found.insert(found.begin(), step.chosenColumns ? chosen : Join(records.ColumnNames(), " | "));
            if (found != step.expected)
                return Difference(one, step, "gave" + Listed(found));
        }
    } catch (const RunTimeError& error) {
        if (step.kind == StepKind::Fail && step.expected.front() == error.what())
            return {};
        return Difference(one, step, std::string("failed with ") + error.what());
    }
    return step.kind == StepKind::Fail ? Difference(one, step, "did not fail") : std::string{};
}

/// The numbers that a PostgreSQL server gives to new rows, which no rollback takes back there.
class ServerNumbers {
public:
    explicit ServerNumbers(const std::string& text)
    {
        if (ChooseEngine(text) != EngineKind::Postgres)
            return;
        session.emplace(text);
        session->RunScript("CREATE TEMP TABLE numbers AS SELECT format('%I.%I', schemaname, sequencename) AS name, "
                           "last_value FROM pg_sequences");
    }

    void Restore() const
    {
        if (session)
            session->RunScript("SELECT setval(name::regclass, coalesce(last_value, 1), last_value IS NOT NULL) "
                               "FROM numbers");
    }

private:
    mutable std::optional<PostgresSession> session;
};

}

static std::runtime_error UnknownWord(const std::string& path, int line, const std::string& word)
{
    return std::runtime_error(path + ":" + std::to_string(line) + ": unknown word " + word);
}

CaseFile ReadCaseFile(const std::string& path)
{
    CaseFile file{path, {}, {}};
    for (const auto& [number, line] : JoinedLines(path)) {
        const auto colon = line.find(':');
        const std::string word = line.front() == '|' ? "|" : line.substr(0, colon);
        const std::string rest = Trim(line.substr(line.front() == '|' ? 1 : colon + 1));
        if (word == "data") {
            file.data.push_back(rest);
        } else if (word == "case") {
            file.cases.push_back({rest, {}});
        } else if (word == "run" || word == "ask" || word == "fail") {
            const StepKind kind = word == "run" ? StepKind::Run : word == "ask" ? StepKind::Ask : StepKind::Fail;
            file.cases.back().steps.push_back({kind, rest, {}, number, false});
        } else if (word == "columns" || word == "only" || word == "says" || word == "|") {
            file.cases.back().steps.back().expected.push_back(rest);
            file.cases.back().steps.back().chosenColumns |= word == "only";
        } else {
            throw UnknownWord(path, number, word);
        }
    }
    return file;
}

std::vector<std::string> RunCases(const CaseFile& file, TestOffice& office)
{
    Connection& connection = office.connection;
    for (const std::string& statement : file.data)
        connection.Execute(Statement::Verbatim(statement));
    const ServerNumbers numbers(office.Text());
    std::vector<std::string> differences;
    std::size_t passed = 0;
    for (const StatementCase& one : file.cases) {
        const std::size_t before = differences.size();
        connection.Execute("BEGIN TRANSACTION");
        for (const CaseStep& step : one.steps)
            if (const std::string difference = RunStep(one, step, connection); !difference.empty())
                differences.push_back(difference);
        connection.Execute("ROLLBACK TRANSACTION");
        numbers.Restore();
        passed += differences.size() == before ? 1 : 0;
    }
    TellTally(std::filesystem::path(file.path).filename().string(), passed, file.cases.size());
    return differences;
}

}

using namespace rovanta;

static void CheckFile(const std::string& name, std::size_t fewestCases)
{
    TestOffice office;
    const CaseFile file = ReadCaseFile(SOURCE_FOLDER "/tests/store/" + name);
    CHECK(file.cases.size() >= fewestCases);
    for (const std::string& difference : RunCases(file, office))
        FAIL_CHECK(difference);
}

TEST_CASE("The rules of the dialect hold")
{
    CheckFile("dialect.txt", 60);
}

TEST_CASE("Every statement of the office gives its rows")
{
    CheckFile("corpus.txt", 80);
}
