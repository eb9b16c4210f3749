#include "support/TestApp.h"

#include <doctest/doctest.h>

#include <array>
#include <cstdio>
#include <sys/wait.h>

using rovanta::tests::TestFolder;

namespace {

struct Outcome {
    int code = 0;
    std::string output; ///< both streams
};

/// Runs the program with nobody at its standard input.
Outcome Run(const std::string& arguments)
{
    const std::string command = std::string(BINARY_FOLDER) + "/bin/rovanta-db " + arguments + " 2>&1 </dev/null";
    Outcome outcome;
    std::FILE* pipe = popen(command.c_str(), "r");
    REQUIRE(pipe != nullptr);
    std::array<char, 512> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), pipe) != nullptr)
        outcome.output += buffer.data();
    outcome.code = WEXITSTATUS(pclose(pipe));
    return outcome;
}

}

TEST_CASE("the program makes an office and refuses to make it twice")
{
    const TestFolder test;
    const std::string folder = test.File("office");
    const Outcome made = Run("create " + folder + " --user dana --password word");
    CHECK(made.code == 0);
    CHECK(made.output == "Made an empty office in " + folder + ". Its first user is dana.\n");
    const Outcome again = Run("create " + folder + " --user dana --password word");
    CHECK(again.code == 1);
    CHECK(again.output == "rovanta-db: There is an office already: " + folder + "/config.txt\n");
}

TEST_CASE("without a terminal the program does not wait for a password")
{
    const TestFolder test;
    const Outcome refused = Run("create " + test.File("office"));
    CHECK(refused.code == 2);
    CHECK(refused.output.starts_with("rovanta-db: There is no terminal to ask for the password of admin"));
    CHECK_FALSE(std::filesystem::exists(test.File("office")));
}

TEST_CASE("the exit code tells a wrong command line from a failure")
{
    CHECK(Run("--help").code == 0);
    CHECK(Run("").code == 2);
    CHECK(Run("create /dev/null/office --password word").code == 1);
}
