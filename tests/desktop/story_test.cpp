#include "tests/desktop/WidgetStory.h"

#include <doctest/doctest.h>

using namespace rovanta::tests;

static std::string Story(const std::string& name)
{
    return std::string(SOURCE_FOLDER) + "/tests/stories/" + name + ".test";
}

TEST_CASE("The booking runs through the real widgets as it does through the automation")
{
    CHECK(PlayOnWidgets(Story("booking")) == "");
}
