#include <doctest/doctest.h>

#include "SampleDesk.h"

using namespace rovanta;
using namespace rovanta::tests;

static const Json theGrid = {{"form", "frmSample"}, {"grid", "grid"}};

static Json With(Json parameters, const char* name, const Json& value)
{
    parameters[name] = value;
    return parameters;
}

TEST_CASE("The cells of a grid are read as they are shown")
{
    SampleDesk at;
    CHECK(at.Call("grid.cells", theGrid) ==
          Json::parse(R"({"rows":3,"cols":3,"fixedRows":1,"fixedCols":1,"row":-1,"col":-1,
                          "text":[["No.","Tick","Total"],["1","False","$1,234.50"],["2","True",""]]})"));
    const Json colored = at.Call("grid.cells", With(With(theGrid, "rows", {1, 2}), "colors", true));
    CHECK(colored["text"] == Json::parse(R"([["1","False","$1,234.50"],["2","True",""]])"));
    CHECK(colored["back"] == Json::parse("[[16761087,null,null],[null,null,null]]"));
    CHECK(colored["fore"] == Json::parse("[[null,null,null],[null,null,255]]"));
    at.Form().grid.SetColHidden(0, true);
    at.Form().grid.SetEnabled(false);
    CHECK(at.Call("grid.cells", With(theGrid, "rows", {0, 0}))["text"] == Json::parse(R"([["No.","Tick","Total"]])"));
    at.Form().grid.SetRows(0);
    CHECK(at.Call("grid.cells", theGrid)["text"] == Json::array());
}

TEST_CASE("Rows that a grid has not are refused")
{
    SampleDesk at;
    for (const char* rows : {"[0,3]", "[-1,0]", "[2,1]", "[0]", "[0,1,2]", "[\"0\",1]", "1", "{}", "[0.5,1]"}) {
        CAPTURE(rows);
        CHECK(at.Error("grid.cells", With(theGrid, "rows", Json::parse(rows))) == -32602);
    }
    CHECK(at.Error("grid.cells", With(theGrid, "colors", "yes")) == -32602);
    CHECK(at.Error("grid.cells", {{"form", "frmSample"}, {"grid", "txtName"}}) == -32602);
    CHECK(at.lastError == "The control \"txtName\" of \"frmSample\" is no grid.");
    CHECK(at.Error("grid.cells", {{"form", "frmSample"}, {"grid", "none"}}) == -32602);
}

TEST_CASE("A cell is edited in place, a check box cell by true and false")
{
    SampleDesk at;
    at.OnCell("grid.set", 1, 2, {{"value", "99"}});
    CHECK(at.Log() == "select 1,2; edit 99");
    CHECK(at.Call("grid.cells", theGrid)["text"][1][2] == "$99.00");
    at.OnCell("grid.set", 1, 1, {{"value", true}});
    CHECK(at.Form().grid.IsTicked(1, 1));
    at.OnCell("grid.set", 1, 1, {{"value", false}});
    CHECK_FALSE(at.Form().grid.IsTicked(1, 1));
    at.OnCell("grid.set", 2, 2, {{"value", 7}});
    CHECK(at.Form().grid.TextMatrix(2, 2) == "7");
}

TEST_CASE("A cell that nobody may edit is refused")
{
    SampleDesk at;
    CHECK(at.ErrorOnCell("grid.set", 0, 1, {{"value", true}}) == -32001);
    CHECK(at.ErrorOnCell("grid.set", 1, 0, {{"value", "x"}}) == -32001);
    at.Form().grid.SetEditable(false);
    CHECK(at.ErrorOnCell("grid.set", 1, 2, {{"value", "x"}}) == -32001);
    at.Form().grid.SetEditable(true);
    at.Form().grid.SetReadOnly(true);
    CHECK(at.ErrorOnCell("grid.set", 1, 2, {{"value", "x"}}) == -32001);
    at.Form().grid.SetReadOnly(false);
    CHECK(at.ErrorOnCell("grid.set", 1, 1, {{"value", "maybe"}}) == -32602);
    CHECK(at.ErrorOnCell("grid.set", 3, 1, {{"value", true}}) == -32602);
    CHECK(at.lastError == "The grid \"grid\" of \"frmSample\" has no row 3.");
    CHECK(at.ErrorOnCell("grid.set", 1, 3, {{"value", true}}) == -32602);
    CHECK(at.lastError == "The grid \"grid\" of \"frmSample\" has no column 3.");
    CHECK(at.ErrorOnCell("grid.set", "1", 2, {{"value", "x"}}) == -32602);
    CHECK(at.ErrorOnCell("grid.set", 1, 2) == -32602);
    CHECK(at.ErrorOnCell("grid.click", -1, 0) == -32602);
    at.Form().grid.SetEnabled(false);
    for (const char* verb : {"grid.select", "grid.click", "grid.doubleClick", "grid.rightClick", "grid.hover"})
        CHECK(at.ErrorOnCell(verb, 1, 2) == -32001);
    CHECK(at.Log() == "");
    CHECK(at.Form().grid.TextMatrix(1, 2) == "1234.5");
}

TEST_CASE("Selecting makes a cell current or marks a span of rows")
{
    SampleDesk at;
    at.OnCell("grid.select", 2, 1);
    CHECK(at.Log() == "select 2,1");
    at.OnCell("grid.select", 1, 0, {{"rowTo", 2}});
    CHECK(at.Form().grid.Row() == 1);
    CHECK(at.Form().grid.RowSel() == 2);
    at.Log();
    CHECK(at.ErrorOnCell("grid.select", 0, 0) == -32001);
    CHECK(at.ErrorOnCell("grid.select", 1, 0, {{"rowTo", 5}}) == -32602);
    CHECK(at.Log() == "");
}

TEST_CASE("A click makes a data cell current; a heading takes the click alone")
{
    SampleDesk at;
    at.OnCell("grid.click", 1, 2);
    CHECK(at.Log() == "select 1,2; click grid 1,2");
    at.OnCell("grid.click", 0, 2);
    CHECK(at.Log() == "click grid 0,2");
    CHECK(at.Form().grid.Row() == 1);
    at.OnCell("grid.doubleClick", 2, 2);
    CHECK(at.Log() == "select 2,2; click grid 2,2; doubleClick grid 2,2");
    at.OnCell("grid.rightClick", 1, 0);
    CHECK(at.Log() == "rightClick grid 1,0");
    CHECK(at.Form().grid.Row() == 2);
    at.OnCell("grid.hover", 0, 1);
    CHECK(at.Log() == "hover grid 0,1");
}

TEST_CASE("A click ticks a check box cell of a grid that may be edited")
{
    SampleDesk at;
    at.OnCell("grid.click", 1, 1);
    CHECK(at.Log() == "select 1,1; edit True; click grid 1,1");
    at.OnCell("grid.click", 1, 1);
    CHECK(at.Log() == "edit False; click grid 1,1");
    at.Form().grid.SetEditable(false);
    at.OnCell("grid.click", 1, 1);
    CHECK(at.Log() == "click grid 1,1");
    at.OnCell("grid.click", 0, 1);
    CHECK(at.Form().grid.TextMatrix(0, 1) == "Tick");
}
