#include "store/ServerDatabase.h"

#include "store/OdbcEngine.h"
#include "store/OdbcText.h"
#include "store/SqlServerText.h"

namespace rovanta {

namespace {

/// The database of every SQL Server in which others are made.
constexpr const char* sqlServerHome = "master";

}

std::string WithDatabase(const std::string& server, const std::string& name)
{
    return OdbcText(server).With("Database", name);
}

void CreateServerDatabase(const std::string& server, const std::string& name, const std::string& like)
{
    const std::string copy = like.empty() ? std::string{} : " AS COPY OF " + SqlServerName(like);
    OpenOdbc(WithDatabase(server, sqlServerHome))->Execute("CREATE DATABASE " + SqlServerName(name) + copy);
}

void DropServerDatabase(const std::string& server, const std::string& name)
{
    OpenOdbc(WithDatabase(server, sqlServerHome))->Execute("DROP DATABASE " + SqlServerName(name));
}

}
