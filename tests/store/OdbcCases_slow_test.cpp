#include <doctest/doctest.h>

#include "tests/store/CaseFile.h"
#include "tests/store/ServerOffice.h"

using namespace rovanta;

static void CheckFile(const std::string& name, std::size_t fewestCases)
{
    ServerOffice office;
    const CaseFile file = ReadCaseFile(SOURCE_FOLDER "/tests/store/" + name);
    CHECK(file.cases.size() >= fewestCases);
    for (const std::string& difference : RunCases(file, office.connection, ""))
        FAIL_CHECK(difference);
}

TEST_CASE("The rules of the dialect hold through the driver")
{
    CheckFile("dialect.txt", 60);
}

TEST_CASE("Every statement of the office gives its rows through the driver")
{
    CheckFile("corpus.txt", 80);
}
