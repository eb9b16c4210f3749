#include "tools/Findings.h"

#include <doctest/doctest.h>

using namespace rovanta;

using Lines = std::vector<std::string>;

TEST_CASE("a row whose owner is missing or not named stands alone")
{
    const std::vector<OwnedRow> rows = {{1, "first"}, {2, "second"}, {std::nullopt, "third"}, {1, "fourth"}};
    CHECK(RowsWithoutOwner(rows, {1, 2}) == Lines{"third"});
    CHECK(RowsWithoutOwner(rows, {1}) == Lines{"second", "third"});
    CHECK(RowsWithoutOwner(rows, {}).size() == 4);
    CHECK(RowsWithoutOwner({}, {1}).empty());
}

TEST_CASE("an invoice's head is held against its lines by the cent")
{
    struct Case {
        const char* name;
        InvoiceHead head;
        std::vector<double> lines;
        Lines found;
    };
    const std::vector<Case> cases = {
        {"equal", {7, 150, 13.88, 163.88, 0}, {100, 50}, {}},
        {"no lines and nothing billed", {7, 0, 0, 0, 0}, {}, {}},
        {"below half a cent", {7, 150.0049, 0, 150.0049, 0}, {150}, {}},
        {"half a cent", {7, 150.005, 0, 150, 0}, {150}, {"invoice 7: SubTotal is $150.01, its lines come to $150.00"}},
        {"many thirds", {7, 0.3, 0, 0.3, 0}, {0.1, 0.1, 0.1}, {}},
        {"a credit", {7, -20, 0, -20, 0}, {-20}, {}},
        {"both differ",
         {7, 90, 5, 95, 0},
         {100},
         {"invoice 7: SubTotal is $90.00, its lines come to $100.00",
          "invoice 7: InvoiceTotal is $95.00, its lines and the tax come to $105.00"}},
        {"the total alone",
         {7, 100, 5, 100, 0},
         {100},
         {"invoice 7: InvoiceTotal is $100.00, its lines and the tax come to $105.00"}},
        {"no figures",
         {7, std::nullopt, std::nullopt, std::nullopt, std::nullopt},
         {},
         {"invoice 7: SubTotal is NULL, its lines come to $0.00", "invoice 7: Tax is NULL",
          "invoice 7: InvoiceTotal is NULL, its lines and the tax come to $0.00"}},
        {"no tax",
         {7, 100, std::nullopt, 105, 0},
         {100},
         {"invoice 7: Tax is NULL", "invoice 7: InvoiceTotal is $105.00, its lines and the tax come to $100.00"}},
        {"lines lost",
         {7, 1500, 0, 1500, 0},
         {},
         {"invoice 7: SubTotal is $1,500.00, its lines come to $0.00",
          "invoice 7: InvoiceTotal is $1,500.00, its lines and the tax come to $0.00"}}};
    for (const Case& one : cases) {
        CAPTURE(one.name);
        std::vector<InvoiceAmount> lines = {{8, 1000.0}, {std::nullopt, 1000.0}};
        for (const double amount : one.lines)
            lines.push_back({7, amount});
        CHECK(HeadsThatDiffer({one.head}, lines) == one.found);
    }
}

TEST_CASE("what is paid is held against the payments by the cent")
{
    const auto found = [](std::optional<double> paid, const std::vector<InvoiceAmount>& payments) {
        return PaidThatDiffers({{7, 0, 0, 0, paid}}, payments);
    };
    CHECK(found(0, {}).empty());
    CHECK(found(30, {{7, 10.0}, {7, 20.0}, {8, 5.0}}).empty());
    CHECK(found(30.004, {{7, 30.0}}).empty());
    CHECK(found(30.01, {{7, 30.0}}) == Lines{"invoice 7: Paid is $30.01, its payments come to $30.00"});
    CHECK(found(0, {{7, -5.0}}) == Lines{"invoice 7: Paid is $0.00, its payments come to ($5.00)"});
    CHECK(found(30, {{std::nullopt, 30.0}}).size() == 1);
    CHECK(found(std::nullopt, {}) == Lines{"invoice 7: Paid is NULL, its payments come to $0.00"});
}

TEST_CASE("a promised file that is not there is told with its path")
{
    const std::vector<PromisedFile> files = {{"document 1", "d/1.pdf"}, {"document 2", "d/2.pdf"}};
    CHECK(MissingFiles(files, [](const std::string& path) { return path == "d/1.pdf"; }) ==
          Lines{"document 2: d/2.pdf"});
    CHECK(MissingFiles(files, [](const std::string&) { return true; }).empty());
}

TEST_CASE("findings are printed in groups, and the empty ones not at all")
{
    CHECK(FindingsText({{"Lines", {}}, {"Files", {}}}) == "Nothing found.\n");
    CHECK(FindingsText({{"Lines", {}}, {"Files", {"one"}}}) ==
          "Files: 1\n  one\nFound 1 thing. Nothing was changed.\n");
    CHECK(FindingsText({{"Lines", {"a", "b"}}, {"Files", {"c"}}}) ==
          "Lines: 2\n  a\n  b\nFiles: 1\n  c\nFound 3 things. Nothing was changed.\n");
}
