#include <doctest/doctest.h>

#include "automation/SampleDesk.h"

using namespace rovanta;
using namespace rovanta::tests;

static void SignIn(SampleDesk& at, const std::string& user = "admin")
{
    at.Call("control.set", {{"form", "frmLogin"}, {"control", "txtUsername"}, {"value", user}});
    at.Call("control.set", {{"form", "frmLogin"}, {"control", "txtPassword"}, {"value", "word"}});
    at.Call("control.click", {{"form", "frmLogin"}, {"control", "btnLogin"}});
}

TEST_CASE("Forms are listed oldest first, those alone that are seen")
{
    SampleDesk at;
    at.Form().SetEnabled(false);
    CHECK(at.Call("app.forms") == Json::parse(R"({"forms":[
        {"form":"MDI","caption":"Rovanta - Larkfield Production","enabled":true},
        {"form":"frmLogin","caption":"Login","enabled":true},
        {"form":"frmSample","caption":"Sample","enabled":false}]})"));
    at.Form().SetVisible(false);
    CHECK(at.Call("app.forms")["forms"].size() == 2);
}

TEST_CASE("A form is opened by name; one that is open already stays as it is")
{
    SampleDesk at;
    at.Form().txtName = "kept";
    CHECK(at.Call("app.open", {{"form", "frmSample"}}) == Json::object());
    CHECK(at.Form().txtName.Text() == "kept");
    CHECK(at.Error("app.open", {{"form", "frmNone"}}) == -32602);
    CHECK(at.lastError == "There is no form \"frmNone\".");
    CHECK(at.Error("app.open") == -32602);
}

TEST_CASE("A form's close box closes it, unless another form stands before it")
{
    SampleDesk at;
    at.Form().SetEnabled(false);
    CHECK(at.Error("form.close", {{"form", "frmSample"}}) == -32001);
    at.Form().SetEnabled(true);
    at.Call("form.close", {{"form", "frmSample"}});
    CHECK(at.desk.Program().Find<frmSample>() == nullptr);
    CHECK(frmSample::alive == 0);
    CHECK(at.Error("form.close", {{"form", "frmSample"}}) == -32602);
}

TEST_CASE("Closing the main window ends the program without a question")
{
    SampleDesk at;
    const Json result = at.Call("form.close", {{"form", "MDI"}});
    CHECK(result == Json::parse(R"({"ended":{"text":""}})"));
    CHECK(at.Error("app.forms") == -32000);
    CHECK_FALSE(at.desk.Ended()->failed);
}

TEST_CASE("The state of a form is its caption and its controls by name, also of a hidden form")
{
    SampleDesk at;
    at.Form().SetVisible(false);
    const Json state = at.Call("form.state", {{"form", "frmSample"}});
    CHECK(state["caption"] == "Sample");
    CHECK(state["controls"].size() == at.Form().Controls().size());
    CHECK(state["controls"]["lblText"] == at.On("control.get", "lblText"));
    CHECK(at.Error("form.state", {{"form", "frmNone"}}) == -32602);
}

TEST_CASE("Before anybody has signed in the menu gives nothing but the way out")
{
    SampleDesk at;
    CHECK(at.Error("app.menu", {{"command", "About"}}) == -32001);
    CHECK(at.lastError == "The menu command \"About\" is disabled.");
    CHECK(at.Error("app.menu", {{"command", "OpenTour"}}) == -32001);
    CHECK(at.Error("app.menu", {{"command", "CompanyInfo"}}) == -32001);
    CHECK(at.Call("app.menu", {{"command", "Exit"}})["ended"]["text"] == "");
}

TEST_CASE("A menu command is picked by its name")
{
    SampleDesk at;
    SignIn(at);
    at.Call("app.menu", {{"command", "About"}});
    CHECK(at.desk.Program().Find<frmAbout>() != nullptr);
    CHECK(at.Error("app.menu", {{"command", "NoCommand"}}) == -32602);
    CHECK(at.lastError == "There is no menu command \"NoCommand\".");
    CHECK(at.Error("app.menu", {{"command", "File"}}) == -32602);
    at.desk.Program().Find<MDI>()->menu.Find("About")->visible = false;
    CHECK(at.Error("app.menu", {{"command", "About"}}) == -32001);
    at.desk.Program().Find<MDI>()->SetEnabled(false);
    CHECK(at.Error("app.menu", {{"command", "LeaseEntry"}}) == -32001);
}

TEST_CASE("The clock is moved")
{
    SampleDesk at;
    at.Call("clock.set", {{"now", "2026-12-31 23:59:59"}});
    CHECK(at.desk.Program().clock.Now() == DateTime::Of(2026, 12, 31, 23, 59, 59));
    CHECK(at.Error("clock.set", {{"now", "soon"}}) == -32602);
    CHECK(at.Error("clock.set", {{"now", 5}}) == -32602);
    CHECK(at.desk.Program().clock.Now() == DateTime::Of(2026, 12, 31, 23, 59, 59));
}

TEST_CASE("A query gives columns and rows: NULL, dates, flags, numbers and texts as JSON has them")
{
    SampleDesk at;
    at.Call("db.execute", {{"sql", "INSERT INTO Customer (Name,Inactive,DateEntered) VALUES ('Gold Pine',1,"
                                   "'3/2/2026 4:05:06 PM')"}});
    const Json result = at.Call(
        "db.query", {{"sql", "SELECT ID,Name,City,Inactive,DateEntered,Name FROM Customer WHERE Name = 'Gold Pine'"}});
    CHECK(result["columns"] == Json::parse(R"(["ID","Name","City","Inactive","DateEntered","Name"])"));
    const Json& row = result["rows"][0];
    CHECK(row[0].is_number_integer());
    CHECK(row[1] == "Gold Pine");
    CHECK(row[2].is_null());
    CHECK(row[3] == true);
    CHECK(row[4] == "2026-03-02 16:05:06");
    CHECK(row[5] == "Gold Pine");
    CHECK(at.Call("db.query", {{"sql", "SELECT Name FROM Customer WHERE ID = 0"}})["rows"] == Json::array());
    CHECK(at.Call("db.query", {{"sql", "SELECT 1.25 AS N FROM Company"}})["rows"] == Json::parse("[[1.25]]"));
}

TEST_CASE("Of two columns with one name each gives its own value")
{
    SampleDesk at;
    at.Call("db.execute", {{"sql", "INSERT INTO Customer (Name,City) VALUES ('Oak','Nashville')"}});
    const Json result = at.Call("db.query", {{"sql", "SELECT Name AS X,City AS X FROM Customer WHERE Name = 'Oak'"}});
    CHECK(result["rows"] == Json::parse(R"([["Oak","Nashville"]])"));
}

TEST_CASE("A statement that the database refuses is the caller's mistake and ends nothing")
{
    SampleDesk at;
    CHECK(at.Error("db.query", {{"sql", "SELECT * FROM NoTable"}}) == -32602);
    CHECK(at.Error("db.query", {{"sql", "SELECT 'open"}}) == -32602);
    CHECK(at.Error("db.query", {{"sql", "DELETE FROM Customer"}}) == -32602);
    CHECK(at.Error("db.query", {{"sql", ""}}) == -32602);
    CHECK(at.Error("db.execute", {{"sql", "INSERT INTO NoTable VALUES (1)"}}) == -32602);
    CHECK(at.Error("db.execute") == -32602);
    CHECK_FALSE(at.desk.Ended());
}

TEST_CASE("No report is shown, and what is not shown cannot be exported")
{
    SampleDesk at;
    CHECK(at.Call("report.shown").is_null());
    CHECK(at.Error("report.export", {{"path", "out.pdf"}}) == -32602);
    CHECK(at.lastError == "Viewer shows nothing that could be exported to \"out.pdf\".");
}

TEST_CASE("What a grid sends to the printer is a job")
{
    SampleDesk at;
    CHECK(at.Call("print.jobs") == Json::parse(R"({"jobs":[]})"));
    at.Form().grid.PrintGrid({"Sample List", true, 360});
    at.Form().grid.SetRows(200);
    at.Form().grid.PrintGrid({"Long List", false, 720});
    CHECK(at.Call("print.jobs") == Json::parse(R"({"jobs":[
        {"what":"grid","title":"Sample List","orientation":"landscape","pages":1},
        {"what":"grid","title":"Long List","orientation":"portrait","pages":4}]})"));
    const auto pagesOf = [&](int rows) {
        at.Form().grid.SetRows(rows);
        at.Form().grid.PrintGrid({"List", false, 720});
        return at.Call("print.jobs")["jobs"].back()["pages"].get<int>();
    };
    CHECK(pagesOf(53) == 1);
    CHECK(pagesOf(54) == 2);
}

TEST_CASE("The accounting file holds no document, and an unknown component cannot fail")
{
    SampleDesk at;
    CHECK(at.Call("accounting.documents") ==
          Json::parse(R"({"customers":[],"invoices":[],"creditMemos":[],"journalEntries":[],"payments":[]})"));
    const Json failure = {{"component", "Invoice"}, {"operation", "Add"}, {"number", 1}, {"description", "x"}};
    CHECK(at.Error("accounting.fail", failure) == -32602);
    CHECK(at.lastError == "There is no accounting component \"Invoice\".");
}
