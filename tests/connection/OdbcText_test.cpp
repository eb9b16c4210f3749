#include "tests/connection/Refusals.h"

#include "tests/support/TdsServer.h"

#include <doctest/doctest.h>

using namespace rovanta;
using namespace rovanta::tests;

static std::string Server(const std::string& host, const std::string& port)
{
    return "Driver={FreeTDS};Server=" + host + ";Port=" + port +
           ";Database=office;UID=office;PWD=sesame;TDS_Version=7.4";
}

TEST_CASE("Who may not enter a SQL Server is told at the start")
{
    const TdsServer server;
    server.MakeDatabase("office");
    CheckRefusals("SQL Server",
                  {
                      {server.Text("office", "", "sesame"), {"Login failed for user 'office'."}},
                      {Replace(server.Text("office"), "PWD=coach;", ""), {"Login failed for user 'office'."}},
                      {Replace(server.Text("office", "", "sesame"), "UID=office", "UID=nobody"),
                       {"Login failed for user 'nobody'."}},
                      {server.Text("absent"), {"Cannot open database \"absent\""}},
                      {server.Text("office"), {"The database holds no office: it has no table Company."}},
                  });
}

TEST_CASE("A SQL Server that is not there or does not answer is told within ten seconds")
{
    const SilentServer silent;
    const TdsServer hanging({"--hang", "DATEFORMAT"});
    CheckRefusals(
        "SQL Server",
        {
            {Server("127.0.0.1", silent.Port()), {"The database server '127.0.0.1, port " + silent.Port() + "'"}},
            {hanging.Text("master"), {"The database server '127.0.0.1, port ", "did not answer within 10 seconds"}},
            {Server("no-such-host.invalid", "1433"), {"'no-such-host.invalid, port 1433'"}},
            {Server("127.0.0.1", "1"),
             {"The database server '127.0.0.1, port 1' does not answer: Unable to connect: Adaptive Server is "
              "unavailable "
              "or does not exist Unable to connect to data source"}},
            {Server("127.0.0.1", "none"), {"The database server '127.0.0.1, port none' does not answer"}},
        });
}

TEST_CASE("An ODBC text that makes no sense is told, without the password")
{
    CheckRefusals("SQL Server",
                  {
                      {"Driver={FreeTD};Server=db;UID=office;PWD=sesame", {"The ODBC driver 'FreeTD' cannot be used"}},
                      {"Driver=;Server=db;PWD=sesame", {"The connection text names no ODBC driver."}},
                      {"Driver={FreeTDS};Port=1433;UID=office;PWD=sesame", {"The connection text names no server."}},
                      {"DSN=no_such_source;UID=office;PWD=sesame", {"'no_such_source'"}},
                      {"Driver={FreeTDS};Server=db;PWD=open;sesame", {R"(without a "=" behind "PWD")", "{braces}"}},
                      {"Driver={FreeTDS};Server=db;PWD=sesame;LoginTimeout=90", {"from 1 to 8, and not \"90\""}},
                      {"Driver={FreeTDS};Server=db;PWD=sesame;QueryTimeout=soon", {"from 1 to 60, and not \"soon\""}},
                  });
}
