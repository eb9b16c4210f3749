#include "desktop/CommandLine.h"

#include <doctest/doctest.h>

using namespace rovanta;

TEST_CASE("The desktop's options are read in any order")
{
    const DesktopOptions options = ReadDesktopOptions(
        {"--machine", "A", "--clock", "2026-03-02 09:00:00", "--config", "office/config.txt", "--screenshots", "out"});
    CHECK(options.configPath == "office/config.txt");
    CHECK(options.machine == "A");
    CHECK(options.clock == DateTime::Of(2026, 3, 2, 9, 0, 0));
    CHECK(options.screenshotFolder == "out");
    CHECK_FALSE(options.help);
    CHECK(ReadDesktopOptions({}).configPath.empty());
    CHECK(ReadDesktopOptions({"-h"}).help);
}

TEST_CASE("Options that make no sense are told")
{
    CHECK_THROWS_WITH_AS(ReadDesktopOptions({"--config"}), "The option --config needs a value.", DesktopUsageError);
    CHECK_THROWS_WITH_AS(ReadDesktopOptions({"--window"}), "There is no option --window.", DesktopUsageError);
    CHECK_THROWS_AS(ReadDesktopOptions({"--clock", "soon"}), DesktopUsageError);
}
