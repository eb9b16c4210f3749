#include "app/OfficeMaker.h"

#include "frame/Clock.h"
#include "store/DatabaseError.h"
#include "store/Recordset.h"
#include "store/Schema.h"
#include "store/Transaction.h"
#include "values/Errors.h"
#include "values/Text.h"

#include <array>
#include <fstream>
#include <ranges>
#include <system_error>
#include <utility>
#include <vector>

namespace rovanta {

namespace {

namespace fs = std::filesystem;

constexpr const char* configName = "config.txt";
constexpr const char* databaseText = "sqlite:rovanta.db";

/// What was made so far, taken away again unless the whole office comes to stand.
class MadeThings {
public:
    MadeThings() = default;
    MadeThings(const MadeThings&) = delete;
    MadeThings& operator=(const MadeThings&) = delete;
    ~MadeThings()
    {
        std::error_code ignored;
        for (const fs::path& path : paths | std::views::reverse)
            fs::remove_all(path, ignored);
    }

    /// Makes a folder and those above it that are missing.
    void Folder(const fs::path& folder)
    {
        if (fs::is_directory(folder))
            return;
        if (folder.has_parent_path() && folder.parent_path() != folder)
            Folder(folder.parent_path());
        std::error_code failure;
        fs::create_directory(folder, failure);
        if (failure)
            throw RunTimeError("Cannot make the folder " + folder.string() + ": " + failure.message());
        paths.push_back(folder);
    }

    void File(const fs::path& file) { paths.push_back(file); }
    void KeepAll() { paths.clear(); }

private:
    std::vector<fs::path> paths;
};

void Refuse(const fs::path& existing, const char* what)
{
    if (fs::exists(existing))
        throw RunTimeError(std::string(what) + existing.string());
}

/// The sign-in trims both texts and puts them between apostrophes, so a user with other ones could never get in.
std::string SignInText(const std::string& text, const char* what)
{
    std::string trimmed = Trim(text);
    if (trimmed.empty())
        throw RunTimeError(std::string("The first user needs a ") + what + ".");
    if (trimmed.find('\'') != std::string::npos)
        throw RunTimeError(std::string("The ") + what + " of the first user cannot hold an apostrophe.");
    return trimmed;
}

void WriteConfigFile(const fs::path& file, const std::string& connection)
{
    // A field ends at its second quote, so there is no way to write one within it.
    if (connection.find_first_of("\"\r\n") != std::string::npos)
        throw RunTimeError("The connection text cannot hold a double quote or a line end.");
    const std::array<std::pair<const char*, std::string>, 13> records = {
        std::pair{"Connection", connection},
        std::pair{"Bus pictures", "pictures/"},
        std::pair{"Lease templates", "leases/"},
        std::pair{"Documents", "documents/"},
        std::pair{"Owner account prefix", "Owner Payable - "},
        std::pair{"Driver account prefix", "Driver Payable - "},
        std::pair{"Truck income account", "Truck Income"},
        std::pair{"Trailer income account", "Trailer Income"},
        std::pair{"Engine service account", "Engine Service Income"},
        std::pair{"Driver expense account", "Driver Expense"},
        std::pair{"Linen expense account", "Linen Expense"},
        std::pair{"Bus wash expense account", "Bus Wash Expense"},
        std::pair{"Additional driver expense account", "Additional Driver Expense"}};
    std::ofstream stream(file, std::ios::binary);
    stream << "\"Rovanta configuration: only the order of the records counts\"\r\n";
    for (const auto& [label, value] : records)
        stream << '"' << label << "\",\"" << value << "\"\r\n";
    stream.close();
    if (!stream)
        throw RunTimeError("Cannot write " + file.string());
}

void AddUser(Connection& connection, const OfficePlan& plan)
{
    Recordset user("SELECT TOP 1 * FROM [User]", connection);
    user.AddNew();
    user.Fields("Name") = SignInText(plan.user, "name");
    user.Fields("Username") = SignInText(plan.user, "name");
    user.Fields("Password") = SignInText(plan.password, "password");
    user.Fields("Type") = "Admin";
    user.Fields("Inactive") = false;
    user.Fields("WebPermission") = "None";
    user.Fields("DateEntered") = plan.today.value_or(Clock().Now()).DateOnly();
    user.Update();
}

void FillDatabase(const OfficePlan& plan, const Configuration& configuration)
{
    Connection connection;
    connection.Open(configuration.ConnectionString);
    // On a server as well nothing stays of an office that fails midway: the connection takes all of it back.
    Transaction transaction(connection);
    AddSchema(connection);
    for (const std::string& statement : ScriptStatements(LookupScript()))
        connection.Execute(Statement::Verbatim(statement));
    AddUser(connection, plan);
    if (plan.furnish)
        plan.furnish(connection, configuration);
    transaction.Commit();
}

}

void CreateOffice(const OfficePlan& plan)
{
    const fs::path folder = fs::absolute(plan.folder).lexically_normal();
    const fs::path configPath = folder / configName;
    Refuse(configPath, "There is an office already: ");
    SignInText(plan.user, "name");
    SignInText(plan.password, "password");

    MadeThings made;
    made.Folder(folder);
    // The file takes its name last of all: where there is a config.txt, there is a whole office.
    const fs::path draftPath = folder / (std::string(configName) + ".new");
    made.File(draftPath);
    WriteConfigFile(draftPath, plan.connection.empty() ? databaseText : plan.connection);
    const Configuration configuration = ReadConfigFile(draftPath.string());
    std::string file;
    if (NamesFile(configuration.ConnectionString)) {
        file = DatabaseFile(configuration.ConnectionString);
        Refuse(file, "There is a database already: ");
        for (const char* companion : {"", "-wal", "-shm", "-journal"})
            made.File(file + companion);
        CreateDatabaseFile(configuration.ConnectionString);
    }
    for (const std::string& needed :
         {configuration.BusImagePath, configuration.LeaseTemplatePath, configuration.DocumentPath})
        made.Folder(fs::path(needed).parent_path());
    try {
        FillDatabase(plan, configuration);
    } catch (const DatabaseError& error) {
        // A connection text may hold a password; only a file's path is told.
        throw DatabaseError("The database " + (file.empty() ? "" : file + " ") +
                            "could not be filled: " + std::string(error.what()));
    }
    fs::rename(draftPath, configPath);
    made.KeepAll();
}

}
