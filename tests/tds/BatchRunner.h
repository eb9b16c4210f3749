#pragma once

#include "store/Connection.h"
#include "tests/tds/Answer.h"

#include <filesystem>
#include <string>

namespace rovanta::tds {

/// Runs the batches of one client on the embedded engine. What the engine's dialect lacks and the store sends to SQL
/// Server is answered here: the catalogue, the settings of a connection, the number of a new row, the one row of
/// several equal ones, and the making and dropping of whole databases.
class BatchRunner {
public:
    /// `database` is the name in the login: the file of that name in the folder, or "master", where there is none.
    BatchRunner(std::filesystem::path folder, std::string database);

    /// Runs the statements of a batch up to the first that fails; whether none did.
    bool Run(const std::string& batch, Answer& answer);

    static std::filesystem::path FileOf(const std::filesystem::path& folder, const std::string& database);

private:
    struct Outcome {
        std::optional<RowSet> rows;
        std::int64_t rowsChanged = -1;
    };

    Outcome RunOne(const std::string& statement, const std::string& next);
    bool RunOnServer(const std::string& statement);
    void CopyDatabase(const std::string& like, const std::filesystem::path& file) const;
    Outcome Select(const std::string& select);
    Outcome Insert(const std::string& insert);
    Outcome Change(const std::string& change);
    std::int64_t ChangeOne(const std::string& statement);
    RowSet CatalogueRows();
    RowSet LastNumberRows(const std::string& statement);
    RowSet VersionRows() const;
    std::filesystem::path VersionFile() const;

    std::filesystem::path folder;
    std::string database;
    Connection connection;
    bool inTransaction = false;
    Value newNumber;
};

}
