#include "automation/Verbs.h"

#include "automation/Desk.h"
#include "automation/RpcError.h"
#include "forms/Grid.h"

#include <nlohmann/json.hpp>

namespace rovanta {

const VerbTable& AllVerbs()
{
    static const VerbTable verbs = [] {
        VerbTable table;
        AddProgramVerbs(table);
        AddControlVerbs(table);
        AddGridVerbs(table);
        AddDatabaseVerbs(table);
        AddReportVerbs(table);
        AddAccountingVerbs(table);
        return table;
    }();
    return verbs;
}

Screen& NamedForm(Desk& desk, const Parameters& parameters)
{
    const std::string name = parameters.Text("form");
    Screen* screen = desk.Program().Find(name);
    if (!screen)
        throw BadParameters("The form \"" + name + "\" is not open.");
    return *screen;
}

static Control& ControlOf(const Form& form, const std::string& name)
{
    Control* control = form.FindControl(name);
    if (!control)
        throw BadParameters("The form \"" + form.Name() + "\" has no control \"" + name + "\".");
    return *control;
}

Control& NamedControl(Desk& desk, const Parameters& parameters)
{
    const Screen& form = NamedForm(desk, parameters);
    return ControlOf(form, parameters.Text("control"));
}

Grid& NamedGrid(Desk& desk, const Parameters& parameters)
{
    const Screen& form = NamedForm(desk, parameters);
    Control& control = ControlOf(form, parameters.Text("grid"));
    if (control.Kind() != ControlKind::Grid)
        throw BadParameters("The control \"" + control.Name() + "\" of \"" + form.Name() + "\" is no grid.");
    return static_cast<Grid&>(control);
}

static bool TakesInput(const Form& form)
{
    return form.Visible() && form.Enabled();
}

static bool TakesInput(const Control& control)
{
    return TakesInput(control.Owner()) && control.Visible() && control.Enabled();
}

void MustTakeInput(const Form& form)
{
    if (!TakesInput(form))
        throw Refused("The form \"" + form.Name() + "\" is " + (form.Visible() ? "disabled." : "hidden."));
}

void MustTakeInput(const Control& control)
{
    MustTakeInput(control.Owner());
    if (!TakesInput(control))
        throw Refused("The control \"" + control.Name() + "\" of \"" + control.Owner().Name() + "\" is " +
                      (control.Visible() ? "disabled." : "hidden."));
}

bool FocusByMouse(Control& control)
{
    if (control.Kind() == ControlKind::Label || control.Kind() == ControlKind::Picture)
        return true;
    control.SetFocus();
    return control.Owner().Focused() == &control && TakesInput(control);
}

}
