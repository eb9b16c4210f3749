#pragma once

#include "automation/Desk.h"
#include "automation/Dispatcher.h"
#include "automation/Parameters.h"
#include "forms/Picture.h"
#include "frame/MDI.h"
#include "frame/frmAbout.h"
#include "frame/frmLogin.h"
#include "support/TestApp.h"
#include "values/Format.h"
#include "values/Text.h"

#include <nlohmann/json.hpp>

#include <stdexcept>

namespace rovanta::tests {

/// A screen with a control of every kind; what happens to them is written down.
class frmSample : public Screen {
public:
    static constexpr const char* screenName = "frmSample";

    explicit frmSample(App& app) : Screen(app, screenName, "Sample")
    {
        cmbName.AddPair("Anna", "1");
        cmbName.AddPair("Bruno", "2");
        for (const char* entry : {"red", "green", "blue"}) {
            lstOne.AddItem(entry);
            lstMany.AddItem(entry);
        }
        FillGrid();
        WireEvents();
        ++alive;
    }
    ~frmSample() override { --alive; }

    /// How many of these screens there are, closed ones that still wait included.
    inline static int alive = 0;

    TextBox txtName{this, "txtName", "Name"};
    TextBox txtLocked{this, "txtLocked", "Locked"};
    TextBox txtOff{this, "txtOff", "Off"};
    TextBox txtHidden{this, "txtHidden", Visibility::Hidden};
    MoneyBox txtMoney{this, "txtMoney", "Money"};
    RichTextBox rtbText{this, "rtbText", "Text"};
    ComboPair cmbName{this, "cmbName", "Names"};
    ListBox lstOne{this, "lstOne", "One"};
    ListBox lstMany{this, "lstMany", "Many", Visibility::Shown, Choosing::Several};
    CheckBox chkFlag{this, "chkFlag", "Flag"};
    OptionGroup group;
    OptionButton optFirst{this, group, "optFirst", "First"};
    OptionButton optSecond{this, group, "optSecond", "Second"};
    DatePicker dtDate{this, "dtDate", "Date"};
    Label lblText{this, "lblText", "A label"};
    Button btnPress{this, "btnPress", "Press"};
    Button btnFail{this, "btnFail", "Fail"};
    Button btnAsk{this, "btnAsk", "Ask"};
    Button btnLeave{this, "btnLeave", "Leave"};
    Button btnFile{this, "btnFile", "File"};
    Tabs tabs{this, "tabs", {"Front", "Back"}};
    Grid grid{this, "grid"};
    Picture pic{this, "pic"};

    /// What happened, in order; asking empties it.
    std::string TakeLog() { return std::exchange(log, {}); }

private:
    void FillGrid()
    {
        grid.SetCols(3);
        grid.SetRows(1);
        grid.SetFixedRows(1);
        grid.SetFixedCols(1);
        grid.SetTextMatrix(0, 0, "No.");
        grid.SetTextMatrix(0, 1, "Tick");
        grid.SetTextMatrix(0, 2, "Total");
        grid.AddItem("1\tFalse\t1234.5");
        grid.AddItem("2\tTrue\t");
        grid.SetColDataType(1, ColumnData::Boolean);
        grid.SetColFormat(2, moneyCellPicture);
        grid.SetBackColor({1, 0, 1, 0}, 0xFFC0FF);
        grid.SetForeColor({2, 2, 2, 2}, 0x0000FF);
        grid.SetEditable(true);
    }

    void WireEvents()
    {
        txtLocked.SetReadOnly(true);
        txtOff.SetEnabled(false);
        txtName.Change = [this] { Note("change " + txtName.Text()); };
        txtName.GotFocus = [this] { Note("enter txtName"); };
        txtName.LostFocus = [this] { txtName_LostFocus(); };
        txtMoney.LostFocus = [this] { Note("leave txtMoney"); };
        cmbName.Click = [this] { Note("click cmbName " + cmbName.Key()); };
        cmbName.Change = [this] { Note("change cmbName"); };
        cmbName.KeyPress = [this](std::string& key) { Note("key " + key); };
        lstOne.Click = [this] { Note("click lstOne"); };
        lstOne.DoubleClick = [this] { Note("doubleClick lstOne"); };
        chkFlag.Click = [this] { Note("click chkFlag"); };
        optFirst.Click = [this] { Note("click optFirst"); };
        dtDate.Change = [this] { Note("change dtDate"); };
        tabs.Click = [this] { Note("click tabs"); };
        btnPress.Click = [this] { Note("click btnPress"); };
        btnFail.Click = [] { throw RunTimeError("Something unexpected"); };
        btnLeave.Click = [this] { app.CloseAndExit(); };
        btnAsk.Click = [this] {
            Note(app.Ask("Go on?", "Question", MessageIcon::Question) ? "yes" : "no");
            app.Say("Done.", "Answer", MessageIcon::Exclamation);
        };
        btnFile.Click = [this] { Note("file " + app.host.ChooseFile({}).value_or("none")); };
        grid.Click = [this] { Note("click grid " + Mouse()); };
        grid.DoubleClick = [this] { Note("doubleClick grid " + Mouse()); };
        grid.RightClick = [this] { Note("rightClick grid " + Mouse()); };
        grid.MouseMove = [this] { Note("hover grid " + Mouse()); };
        grid.SelChange = [this] { Note("select " + std::to_string(grid.Row()) + "," + std::to_string(grid.Col())); };
        grid.AfterEdit = [this](int row, int col) { Note("edit " + grid.TextMatrix(row, col)); };
    }

    void txtName_LostFocus()
    {
        Note("leave txtName");
        if (txtName.Text() == "stay")
            txtName.SetFocus();
    }

    std::string Mouse() const { return std::to_string(grid.MouseRow()) + "," + std::to_string(grid.MouseCol()); }
    void Note(const std::string& what) { log += (log.empty() ? "" : "; ") + what; }

    std::string log;
};

inline const ScreenTable& SampleScreens()
{
    static const ScreenTable screens = {
        {MDI::screenName, [](App& app) { return std::make_unique<MDI>(app); }},
        {frmAbout::screenName, [](App& app) { return std::make_unique<frmAbout>(app); }},
        {frmLogin::screenName, [](App& app) { return std::make_unique<frmLogin>(app); }},
        {frmSample::screenName, [](App& app) { return std::make_unique<frmSample>(app); }},
    };
    return screens;
}

/// A desk in a fresh office with the sample screen open, and a client that talks to it in lines of JSON.
class SampleDesk {
public:
    SampleDesk()
        : desk(SampleScreens(), {office.ConfigPath(), NextMachine(), DateTime::Of(2026, 3, 2, 9, 0, 0)}),
          dispatcher(desk)
    {
        desk.Start();
        if (desk.Ended())
            throw std::runtime_error(desk.Ended()->text);
        desk.Program().Open(frmSample::screenName);
    }

    frmSample& Form() { return *desk.Program().Find<frmSample>(); }
    std::string Log() { return Form().TakeLog(); }

    /// The whole response to a call.
    Json Respond(const std::string& method, const Json& parameters = Json::object())
    {
        const Json request = {{"jsonrpc", "2.0"}, {"id", 7}, {"method", method}, {"params", parameters}};
        return Json::parse(dispatcher.Answer(request.dump()).value());
    }

    /// The result of a call that must succeed.
    Json Call(const std::string& method, const Json& parameters = Json::object())
    {
        const Json response = Respond(method, parameters);
        if (!response.contains("result"))
            throw std::runtime_error(response.dump());
        return response["result"];
    }

    /// The error code of a call, 0 when it succeeds.
    int Error(const std::string& method, const Json& parameters = Json::object())
    {
        const Json response = Respond(method, parameters);
        lastError = response.contains("error") ? response["error"]["message"].get<std::string>() : std::string{};
        return response.contains("error") ? response["error"]["code"].get<int>() : 0;
    }

    /// The same for a control of the sample screen.
    Json On(const std::string& method, const std::string& control, Json more = Json::object())
    {
        return Call(method, Named("control", control, std::move(more)));
    }
    int ErrorOn(const std::string& method, const std::string& control, Json more = Json::object())
    {
        return Error(method, Named("control", control, std::move(more)));
    }
    /// The same for a cell of the sample grid.
    Json OnCell(const std::string& method, int row, int col, Json more = Json::object())
    {
        return Call(method, Cell(row, col, std::move(more)));
    }
    int ErrorOnCell(const std::string& method, const Json& row, const Json& col, Json more = Json::object())
    {
        return Error(method, Cell(row, col, std::move(more)));
    }

    TestOffice office;
    Desk desk;
    Dispatcher dispatcher;
    /// What the last error said.
    std::string lastError;

private:
    static Json Named(const char* what, const std::string& name, Json more)
    {
        more["form"] = frmSample::screenName;
        more[what] = name;
        return more;
    }

    static Json Cell(const Json& row, const Json& col, Json more)
    {
        more["row"] = row;
        more["col"] = col;
        return Named("grid", "grid", std::move(more));
    }

    static std::string NextMachine()
    {
        static int count = 0;
        return "sample-" + std::to_string(getpid()) + "-" + std::to_string(++count);
    }
};

}
