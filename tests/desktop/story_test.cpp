#include "tests/desktop/WidgetStory.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

using namespace rovanta::tests;

static const std::filesystem::path stories = std::filesystem::path(SOURCE_FOLDER) / "tests/stories";

/// Stories that give a box its text at once. Typed letter by letter, the letters on the way count too: "5", "50" and
/// "500" are rates, and "500 a day" is none.
static const std::set<std::string> notLetterByLetter = {"tours/a_box_counts_by_its_leading_number"};

TEST_SUITE_BEGIN("stories");

TEST_CASE("The booking runs through the real widgets as it does through the automation")
{
    CHECK(PlayOnWidgets((stories / "booking.test").string()) == "");
}

TEST_CASE("What hands can do in the other stories runs through the real widgets too")
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(stories)) {
        if (entry.path().extension() == ".test" && entry.path().parent_path() != stories)
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    int played = 0;
    for (const auto& file : files) {
        const std::string name = file.lexically_relative(stories).replace_extension().string();
        if (notLetterByLetter.contains(name) || !IsForHands(file.string()))
            continue;
        CHECK(PlayOnWidgets(file.string()) == "");
        ++played;
    }
    CHECK(played > 20);
}

TEST_SUITE_END();
