#include "store/ConnectionText.h"

#include "store/DatabaseError.h"
#include "values/Text.h"

namespace rovanta {

static constexpr std::string_view sqlitePrefix = "sqlite:";

std::string DatabaseFile(const std::string& connectionText)
{
    return connectionText.starts_with(sqlitePrefix) ? connectionText.substr(sqlitePrefix.size()) : connectionText;
}

EngineKind ChooseEngine(const std::string& connectionText)
{
    if (DatabaseFile(connectionText).empty())
        throw DatabaseError("The connection text names no database.");
    if (connectionText.starts_with(sqlitePrefix))
        return EngineKind::Sqlite;
    const auto scheme = connectionText.find("://");
    if (scheme != std::string::npos) {
        const std::string word = LowerCase(connectionText.substr(0, scheme));
        if (word == "postgresql" || word == "postgres")
            return EngineKind::Postgres;
        throw DatabaseError("The connection text begins with '" + word +
                            "://', which names no database that this program knows: a server is named by "
                            "'postgresql://' or by an ODBC text that begins with 'Driver=' or 'DSN='.");
    }
    const auto sign = connectionText.find('=');
    if (sign == std::string::npos)
        return EngineKind::Sqlite;
    // An ODBC text may name its driver anywhere among its words.
    const std::string text = ";" + LowerCase(connectionText);
    if (text.find(";driver=") != std::string::npos || text.find(";dsn=") != std::string::npos)
        return EngineKind::SqlServer;
    throw DatabaseError("The connection text begins with '" + connectionText.substr(0, sign) +
                        "=' and names neither 'Driver=' nor 'DSN=': an ODBC text needs one of them.");
}

}
