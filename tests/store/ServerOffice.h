#pragma once

#include "tests/store/TestOffice.h"
#include "tests/support/TdsServer.h"

#include <string>
#include <vector>

namespace rovanta {

/// An empty office on the suite's server, reached through the real driver.
class ServerOffice {
public:
    explicit ServerOffice(const std::vector<std::string>& options = {}, const std::string& more = "") : server(options)
    {
        server.MakeDatabase("office");
        connection.Open(server.Text("office", more));
        CreateSchema(connection);
    }

    void Execute(const std::string& statement) { connection.Execute(Statement::Verbatim(statement)); }
    Recordset Open(const std::string& select) { return Recordset(Statement::Verbatim(select), connection); }
    std::vector<std::string> Rows(const std::string& select)
    {
        Recordset records = Open(select);
        return RowsOf(records);
    }

    TdsServer server;
    Connection connection;
};

}
