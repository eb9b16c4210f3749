#pragma once

#include "forms/ChoiceControls.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "forms/ListControls.h"
#include "forms/TextControls.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/Statement.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace rovanta {

class App;

/// A form of this program: it knows the process-wide state and can be opened with a record's key.
class Screen : public Form {
public:
    Screen(App& app, std::string name, std::string caption) : Form(std::move(name), std::move(caption)), app(app) {}

    /// Opens the screen's record of that key; a screen without records throws std::logic_error.
    virtual void OpenRecord(const std::string& key);
    /// Reads what the screen lists anew: another screen has changed it. A screen without a list does nothing.
    virtual void Reload() {}

protected:
    /// Wires the search by first letters to a combo.
    void UseTypeAhead(ComboBox& combo);
    Connection& Database();
    void Close();

    App& app;
};

using ScreenFactory = std::function<std::unique_ptr<Screen>(App&)>;
/// Every screen by its name; the one table stands above all rooms and is handed to App.
using ScreenTable = std::map<std::string, ScreenFactory, std::less<>>;

}
