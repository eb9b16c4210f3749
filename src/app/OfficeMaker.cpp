#include "app/OfficeMaker.h"

#include "frame/Clock.h"
#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "store/NewSqliteFile.h"
#include "store/Recordset.h"
#include "store/Schema.h"
#include "store/Transaction.h"
#include "values/Errors.h"
#include "values/Text.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace rovanta {

namespace {

namespace fs = std::filesystem;

constexpr const char* configName = "config.txt";
constexpr const char* databaseText = "sqlite:rovanta.db";

/// What was made so far, taken away again unless the whole office comes to stand. Nothing that was there before or that
/// somebody else makes meanwhile is among it.
class MadeThings {
public:
    MadeThings() = default;
    MadeThings(const MadeThings&) = delete;
    MadeThings& operator=(const MadeThings&) = delete;
    ~MadeThings()
    {
        std::error_code ignored;
        for (; !things.empty(); things.pop_back()) {
            const auto& [path, content] = things.back();
            content == Content::Ours ? fs::remove_all(path, ignored) : fs::remove(path, ignored);
        }
    }

    enum class Content { Ours, Anybodys };

    /// Makes a folder and those above it that are missing. What lies in it goes with it only if it is ours.
    void Folder(const fs::path& folder, Content content)
    {
        if (fs::is_directory(folder))
            return;
        if (folder.has_parent_path() && folder.parent_path() != folder)
            Folder(folder.parent_path(), Content::Anybodys);
        std::error_code failure;
        if (fs::create_directory(folder, failure))
            things.emplace_back(folder, content);
        if (failure)
            throw RunTimeError("Cannot make the folder " + folder.string() + ": " + failure.message());
    }

    /// Makes an empty file, which must not be there.
    void File(const fs::path& file, mode_t rights)
    {
        const int made = open(file.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, rights);
        if (made < 0 && errno == EEXIST)
            throw RunTimeError("Another office is being made here, or was left half-made: " + file.string());
        if (made < 0)
            throw RunTimeError("Cannot make " + file.string() + ": " + std::generic_category().message(errno));
        close(made);
        things.emplace_back(file, Content::Ours);
    }

    void KeepAll() { things.clear(); }

private:
    std::vector<std::pair<fs::path, Content>> things;
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
    if (connection.GetEngine().Tables().Find("Company"))
        throw RunTimeError("The database holds an office already. For one more desk of it copy that office's "
                           "config.txt, and let its folders be the same ones.");
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
    made.Folder(folder, MadeThings::Content::Anybodys);
    // The file takes its name last of all: where there is a config.txt, there is a whole office. Of two that make an
    // office here at once, one alone can make the draft.
    const fs::path draftPath = folder / (std::string(configName) + ".new");
    const std::string connection = plan.connection.empty() ? databaseText : plan.connection;
    constexpr mode_t forAll = 0644;
    constexpr mode_t forItsGroup = 0640;
    made.File(draftPath, HoldsPassword(connection) ? forItsGroup : forAll);
    Refuse(configPath, "There is an office already: ");
    WriteConfigFile(draftPath, connection);
    const Configuration configuration = ReadConfigFile(draftPath.string());
    std::optional<NewSqliteFile> file;
    if (NamesFile(configuration.ConnectionString)) {
        const std::string path = DatabaseFile(configuration.ConnectionString);
        Refuse(path, "There is a database already: ");
        file.emplace(path);
    }
    for (const std::string& needed :
         {configuration.BusImagePath, configuration.LeaseTemplatePath, configuration.DocumentPath})
        made.Folder(fs::path(needed).parent_path(), MadeThings::Content::Ours);
    try {
        FillDatabase(plan, configuration);
    } catch (const DatabaseError& error) {
        // A connection text may hold a password; only a file's path is told.
        throw DatabaseError("The database " + (file ? file->Path() + " " : "") +
                            "could not be filled: " + std::string(error.what()));
    }
    std::error_code failure;
    fs::rename(draftPath, configPath, failure);
    if (failure)
        throw RunTimeError("Cannot make " + configPath.string() + ": " + failure.message());
    made.KeepAll();
    if (file)
        file->Keep();
}

}
