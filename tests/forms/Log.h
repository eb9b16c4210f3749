#pragma once

#include "forms/Form.h"

#include <string>
#include <utility>

namespace rovanta::tests {

/// What happened, in order, one word after the other.
class Log {
public:
    void operator()(const std::string& what) { text += (text.empty() ? "" : " ") + what; }
    /// Asking empties it.
    std::string Take() { return std::exchange(text, {}); }

private:
    std::string text;
};

/// An observer that writes down what it is told.
class LoggedView : public FormView {
public:
    explicit LoggedView(Log& log) : log(log) {}
    void ControlChanged(Control& control) override { log("changed:" + control.Name()); }
    void FormChanged(Form& form) override { log("form:" + form.Name()); }
    void FocusMoved(Control& control) override { log("focus:" + control.Name()); }

private:
    Log& log;
};

}
