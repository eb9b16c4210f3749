#include "automation/StoryOffice.h"

#include "app/OfficeMaker.h"
#include "store/Schema.h"
#include "values/Errors.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <system_error>

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

void MakeOffice(const fs::path& folder, const fs::path& fixture)
{
    std::ifstream stream(fixture, std::ios::binary);
    const std::string script{std::istreambuf_iterator<char>(stream), {}};
    OfficePlan plan;
    plan.folder = folder;
    plan.user = "office";
    plan.password = "coach2026";
    plan.today = DateTime::Of(2026, 1, 2);
    plan.furnish = [&](Connection& connection, const Configuration&) {
        for (const std::string& statement : ScriptStatements(script))
            connection.Execute(Statement::Verbatim(statement));
    };
    CreateOffice(plan);
}

/// The office of a fixture as it is before any story has touched it; made once and copied for each.
const fs::path& Template(const fs::path& fixture)
{
    static std::map<fs::path, std::unique_ptr<PassingFolder>> templates;
    std::unique_ptr<PassingFolder>& made = templates[fixture];
    if (!made) {
        made = std::make_unique<PassingFolder>();
        MakeOffice(made->path, fixture);
    }
    return made->path;
}

}

StoryOffice::StoryOffice(const fs::path& fixture, const std::string& keep)
{
    if (!keep.empty()) {
        folder = keep;
        MakeOffice(folder, fixture);
        return;
    }
    const fs::path& source = Template(fixture);
    PassingFolder made;
    fs::copy(source, made.path, fs::copy_options::recursive);
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
