#include "automation/StoryOffice.h"

#include "app/OfficeMaker.h"
#include "store/Schema.h"
#include "store/ServerDatabase.h"
#include "values/Errors.h"
#include "values/Text.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <system_error>

#include <unistd.h>

namespace rovanta {

namespace fs = std::filesystem;

namespace {

/// A folder that goes with the object.
struct PassingFolder {
    PassingFolder()
    {
        std::string pattern = (fs::temp_directory_path() / "rovanta-story-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw RunTimeError("Cannot make a folder in " + fs::temp_directory_path().string());
        path = pattern;
    }
    ~PassingFolder()
    {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
    PassingFolder(const PassingFolder&) = delete;
    PassingFolder& operator=(const PassingFolder&) = delete;

    fs::path path;
};

std::string ReadWhole(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The connection text of the server that the offices lie on; empty where each lies in a file of its own.
std::string TestServer()
{
    const char* text = std::getenv("ROVANTA_TEST_SERVER");
    return text == nullptr ? std::string{} : text;
}

std::string NewDatabaseName()
{
    static int count = 0;
    return "story_" + std::to_string(getpid()) + "_" + std::to_string(++count);
}

void MakeOffice(const fs::path& folder, const fs::path& fixture, const std::string& database)
{
    const std::string script = ReadWhole(fixture);
    OfficePlan plan;
    plan.folder = folder;
    if (!database.empty()) {
        CreateServerDatabase(TestServer(), database, "");
        plan.connection = WithDatabase(TestServer(), database);
    }
    plan.user = "office";
    plan.password = "coach2026";
    plan.today = DateTime::Of(2026, 1, 2);
    plan.furnish = [&](Connection& connection, const Configuration&) {
        for (const std::string& statement : ScriptStatements(script))
            connection.Execute(Statement::Verbatim(statement));
    };
    CreateOffice(plan);
}

/// The office of a fixture as it is before any story has touched it, and its database where that lies on a server.
struct OfficeTemplate {
    PassingFolder folder;
    std::string database = TestServer().empty() ? std::string{} : NewDatabaseName();
};

/// Made once and copied for each story.
const OfficeTemplate& Template(const fs::path& fixture)
{
    static std::map<fs::path, std::unique_ptr<OfficeTemplate>> templates;
    std::unique_ptr<OfficeTemplate>& made = templates[fixture];
    if (!made) {
        made = std::make_unique<OfficeTemplate>();
        MakeOffice(made->folder.path, fixture, made->database);
    }
    return *made;
}

/// Gives a copied office a copy of the database, and its configuration the copy's name.
void CopyDatabase(const fs::path& folder, const std::string& from, const std::string& to)
{
    CreateServerDatabase(TestServer(), to, from);
    const fs::path config = folder / "config.txt";
    const std::string text = ReadWhole(config);
    std::ofstream(config, std::ios::binary)
        << Replace(text, WithDatabase(TestServer(), from), WithDatabase(TestServer(), to));
}

}

StoryOffice::StoryOffice(const fs::path& fixture, const std::string& keep)
{
    if (!keep.empty()) {
        folder = keep;
        MakeOffice(folder, fixture, TestServer().empty() ? std::string{} : NewDatabaseName());
        return;
    }
    const OfficeTemplate& source = Template(fixture);
    PassingFolder made;
    fs::copy(source.folder.path, made.path, fs::copy_options::recursive);
    if (!source.database.empty()) {
        database = NewDatabaseName();
        CopyDatabase(made.path, source.database, database);
    }
    folder = std::move(made.path);
    made.path.clear();
    goes = true;
}

StoryOffice::StoryOffice(const std::string& configPath) : folder(fs::absolute(configPath).parent_path()) {}

StoryOffice::~StoryOffice()
{
    std::error_code ignored;
    if (goes)
        fs::remove_all(folder, ignored);
    try {
        if (!database.empty())
            DropServerDatabase(TestServer(), database);
    } catch (const RunTimeError&) {
        // The server may be what the story has ended; its databases go with it.
    }
}

fs::path FindFixture(const std::string& storyPath, const std::string& name)
{
    const fs::path story = fs::absolute(storyPath);
    for (fs::path folder = story.parent_path();; folder = folder.parent_path()) {
        const fs::path fixture = folder / "fixtures" / (name + ".sql");
        if (fs::is_regular_file(fixture))
            return fixture;
        if (folder == folder.root_path())
            throw RunTimeError("There is no office \"" + name + "\": no fixtures/" + name + ".sql above " + storyPath);
    }
}

}
