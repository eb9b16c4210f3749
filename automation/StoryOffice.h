#pragma once

#include <filesystem>
#include <string>

namespace rovanta {

/// The folder with the office that a story is played in. Where ROVANTA_TEST_SERVER holds the connection text of a
/// server, the office's database lies there, in a file of the folder otherwise.
class StoryOffice {
public:
    /// Makes a fresh office: as every office is made, and then with the statements of `fixture`. It goes with the
    /// object, unless a folder to keep is given.
    StoryOffice(const std::filesystem::path& fixture, const std::string& keep);
    /// An office that exists already and stays.
    explicit StoryOffice(const std::string& configPath);
    ~StoryOffice();
    StoryOffice(const StoryOffice&) = delete;
    StoryOffice& operator=(const StoryOffice&) = delete;

    const std::filesystem::path& Folder() const { return folder; }
    std::string ConfigPath() const { return (folder / "config.txt").string(); }

private:
    std::filesystem::path folder;
    /// Its database on the server, which goes with it; empty where there is none.
    std::string database;
    bool goes = false;
};

/// The file of statements of that name: in the folder "fixtures" beside the story or above it. Throws RunTimeError when
/// there is none.
std::filesystem::path FindFixture(const std::string& storyPath, const std::string& name);

}
