#include "store/ConnectionText.h"

#include "store/DatabaseError.h"
#include "store/OdbcText.h"
#include "store/PostgresText.h"
#include "values/Text.h"

namespace rovanta {

static constexpr std::string_view sqlitePrefix = "sqlite:";

std::string DatabaseFile(const std::string& connectionText)
{
    return connectionText.starts_with(sqlitePrefix) ? connectionText.substr(sqlitePrefix.size()) : connectionText;
}

/// Whether it begins as the text of a PostgreSQL server does, however it goes on.
static bool BeginsAsPostgres(const std::string& text)
{
    const auto colon = text.find(':');
    const std::string word = LowerCase(text.substr(0, colon));
    return colon != std::string::npos && (word == "postgresql" || word == "postgres");
}

bool NamesFile(const std::string& connectionText)
{
    return connectionText.starts_with(sqlitePrefix) ||
           (connectionText.find("://") == std::string::npos && connectionText.find('=') == std::string::npos &&
            !BeginsAsPostgres(connectionText));
}

EngineKind ChooseEngine(const std::string& connectionText)
{
    if (DatabaseFile(connectionText).empty())
        throw DatabaseError("The connection text names no database.");
    if (NamesFile(connectionText))
        return EngineKind::Sqlite;
    const auto scheme = connectionText.find("://");
    if (scheme != std::string::npos) {
        if (BeginsAsPostgres(connectionText))
            return EngineKind::Postgres;
        throw DatabaseError("The connection text begins with '" + connectionText.substr(0, scheme) +
                            "://', which names no database that this program knows: a server is named by "
                            "'postgresql://' or by an ODBC text that begins with 'Driver=' or 'DSN='.");
    }
    if (BeginsAsPostgres(connectionText))
        throw DatabaseError(
            "The connection text of a PostgreSQL server begins with 'postgresql://', with both slashes.");
    const OdbcText text(connectionText);
    if (text.Has("Driver") || text.Has("DSN"))
        return EngineKind::SqlServer;
    throw DatabaseError("The connection text begins with '" + connectionText.substr(0, connectionText.find('=')) +
                        "=' and names neither 'Driver=' nor 'DSN=': an ODBC text needs one of them.");
}

bool HoldsPassword(const std::string& connectionText)
{
    if (NamesFile(connectionText))
        return false;
    try {
        if (ChooseEngine(connectionText) == EngineKind::SqlServer) {
            const OdbcText text(connectionText);
            return text.Has("PWD") || text.Has("Password");
        }
        const PostgresText text(connectionText);
        return text.Whole() != text.WithoutPassword();
    } catch (const DatabaseError&) {
        return true;
    }
}

}
