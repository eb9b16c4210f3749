#include "automation/ControlJson.h"
#include "automation/Desk.h"
#include "automation/RpcError.h"
#include "automation/Verbs.h"
#include "frame/MDI.h"

#include <nlohmann/json.hpp>

#include <vector>

namespace rovanta {

static Json PickMenu(Desk& desk, const Parameters& parameters)
{
    const std::string name = parameters.Text("command");
    MDI* main = desk.Program().Find<MDI>();
    MenuItem* item = main ? main->menu.Find(name) : nullptr;
    if (!item || !item->IsCommand())
        throw BadParameters("There is no menu command \"" + name + "\".");
    MustTakeInput(*main);
    if (!item->visible || !main->menu.CanPick(name))
        throw Refused("The menu command \"" + name + "\" is " + (item->visible ? "disabled." : "hidden."));
    item->Click.Fire();
    return Json::object();
}

static Json OpenForm(Desk& desk, const Parameters& parameters)
{
    const std::string name = parameters.Text("form");
    if (!desk.Program().KnowsScreen(name))
        throw BadParameters("There is no form \"" + name + "\".");
    desk.Program().Open(name);
    return Json::object();
}

static Json ListForms(Desk& desk, const Parameters&)
{
    Json forms = Json::array();
    for (const Screen* screen : desk.Program().Screens()) {
        if (screen->Visible())
            forms.push_back({{"form", screen->Name()}, {"caption", screen->Caption()}, {"enabled", screen->Enabled()}});
    }
    return {{"forms", std::move(forms)}};
}

static Json CloseForm(Desk& desk, const Parameters& parameters)
{
    Screen& form = NamedForm(desk, parameters);
    MustTakeInput(form);
    if (form.Name() == MDI::screenName)
        desk.CloseMainWindow();
    desk.Program().Unload(form);
    return Json::object();
}

static Json FormState(Desk& desk, const Parameters& parameters)
{
    const Screen& form = NamedForm(desk, parameters);
    Json controls = Json::object();
    for (const Control* control : form.Controls())
        controls[control->Name()] = ToJson(*control);
    return {{"caption", form.Caption()}, {"controls", std::move(controls)}};
}

static MessageAnswer AnswerNamed(const Json& word)
{
    if (word == "yes")
        return MessageAnswer::Yes;
    if (word == "no")
        return MessageAnswer::No;
    throw BadParameters("The parameter \"answers\" must be a list of \"yes\" and \"no\".");
}

static Json QueueAnswers(Desk& desk, const Parameters& parameters)
{
    const Json& words = parameters.Get("answers");
    if (!words.is_array())
        throw BadParameters("The parameter \"answers\" must be a list of \"yes\" and \"no\".");
    std::vector<MessageAnswer> answers;
    for (const Json& word : words)
        answers.push_back(AnswerNamed(word));
    for (const MessageAnswer answer : answers)
        desk.host.QueueAnswer(answer);
    return Json::object();
}

static Json QueueFile(Desk& desk, const Parameters& parameters)
{
    desk.host.QueueFile(parameters.Text("path"));
    return Json::object();
}

static Json SetClock(Desk& desk, const Parameters& parameters)
{
    const std::optional<DateTime> now = ParseDate(parameters.Text("now"));
    if (!now)
        throw BadParameters("The parameter \"now\" must be a date and time, yyyy-mm-dd hh:mm:ss.");
    desk.Program().clock.Freeze(*now);
    return Json::object();
}

void AddProgramVerbs(VerbTable& table)
{
    table["app.menu"] = PickMenu;
    table["app.open"] = OpenForm;
    table["app.forms"] = ListForms;
    table["form.close"] = CloseForm;
    table["form.state"] = FormState;
    table["ui.answer"] = QueueAnswers;
    table["ui.file"] = QueueFile;
    table["clock.set"] = SetClock;
}

}
