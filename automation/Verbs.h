#pragma once

#include "automation/Parameters.h"

#include <map>
#include <string_view>

namespace rovanta {

class Control;
class Desk;
class Form;
class Grid;
class Screen;

/// One method: does its work at the desk and gives its result.
using Verb = Json (*)(Desk& desk, const Parameters& parameters);
using VerbTable = std::map<std::string_view, Verb>;

/// Every method by its name.
const VerbTable& AllVerbs();

// Each file of methods adds its own.
void AddProgramVerbs(VerbTable& table);
void AddControlVerbs(VerbTable& table);
void AddGridVerbs(VerbTable& table);
void AddDatabaseVerbs(VerbTable& table);
void AddReportVerbs(VerbTable& table);
void AddAccountingVerbs(VerbTable& table);

// What the methods share. A name that is not there raises an RpcError of bad parameters that names it; a form or
// control that takes nothing from a person now raises one of refusal.

Screen& NamedForm(Desk& desk, const Parameters& parameters);
Control& NamedControl(Desk& desk, const Parameters& parameters);
Grid& NamedGrid(Desk& desk, const Parameters& parameters);
void MustTakeInput(const Form& form);
void MustTakeInput(const Control& control);
/// The focus comes to the control as a press of the mouse brings it. Returns whether the press goes on: the routine of
/// the control that was left may have kept the focus, or taken away what was pressed.
bool FocusByMouse(Control& control);

}
