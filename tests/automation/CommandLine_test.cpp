#include <doctest/doctest.h>

#include "automation/CommandLine.h"

using namespace rovanta;

TEST_CASE("The options of a serving copy are read in any order")
{
    const CommandLine line =
        ReadCommandLine({"--machine", "desk-1", "--config", "a/config.txt", "--clock", "2026-03-02 09:00:00"});
    CHECK(line.configPath == "a/config.txt");
    CHECK(line.machine == "desk-1");
    CHECK(line.clock == DateTime::Of(2026, 3, 2, 9));
    CHECK_FALSE(line.run);
    CHECK_FALSE(ReadCommandLine({"--config", "c"}).clock);
    CHECK(ReadCommandLine({"--help"}).help);
}

TEST_CASE("Stories stand anywhere behind --run")
{
    const CommandLine line = ReadCommandLine({"--run", "--tell", "a.test", "--config", "c/config.txt", "b.test"});
    CHECK(line.run);
    CHECK(line.tell);
    CHECK(line.stories == std::vector<std::string>{"a.test", "b.test"});
    CHECK(line.configPath == "c/config.txt");
    CHECK(ReadCommandLine({"--run", "a.test", "--keep", "x"}).keep == "x");
}

TEST_CASE("Options that make no sense are refused")
{
    using Arguments = std::vector<std::string>;
    for (const Arguments& arguments :
         {Arguments{}, Arguments{"--config"}, Arguments{"--clock", "2026-03-02"}, Arguments{"--machine"},
          Arguments{"--config", "c", "--clock", "soon"}, Arguments{"--config", "c", "--clock", "2026-02-30"},
          Arguments{"--config", "c", "--fast"}, Arguments{"--config", "c", "a.test"}, Arguments{"--run"},
          Arguments{"--config", "c", "--tell"}, Arguments{"--config", "c", "--keep", "d"},
          Arguments{"--run", "a", "b", "--keep", "d"}, Arguments{"--run", "a", "--config", "c", "--keep", "d"}}) {
        CAPTURE(arguments.size());
        CHECK_THROWS_AS(ReadCommandLine(arguments), UsageError);
    }
}
