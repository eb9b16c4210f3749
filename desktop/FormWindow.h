#pragma once

#include "desktop/AccessKeys.h"
#include "desktop/EventGate.h"
#include "desktop/Layout.h"
#include "forms/Form.h"

#include <QWidget>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace rovanta {

class Binder;

/// What is seen of one form: the widgets of its layout, each bound to its control. Changes of the controls are gathered
/// and drawn once, when the act that made them is over.
class FormWindow : public QWidget, public FormView {
public:
    FormWindow(Form& form, const Node& layout, EventGate& gate, QWidget* parent = nullptr);
    ~FormWindow() override;

    EventGate& Gate() const { return gate; }
    const AccessKeys& Keys() const { return keys; }
    /// The form; not to be asked once it has gone.
    Form& Shown() const { return form; }

    /// The form is about to go: nothing reaches it from here on.
    void Detach();
    bool IsDetached() const { return detached; }
    /// Whether a person may act on the control now.
    bool Accepts(const Control& control) const;

    void Add(std::unique_ptr<Binder> binder);
    Binder* BinderOf(const Control& control) const;
    /// The binder of the control of that name, or nullptr.
    Binder* BinderOf(std::string_view control) const;

    /// Whether the form has a part that makes use of more room: a grid, a list, a text of many lines.
    bool IsRoomy() const { return roomy; }
    /// Draws what has changed.
    void Flush();
    /// The window has come to the front: the control that has the form's focus takes the keyboard.
    void TakeFocus();
    /// The first widget within `part` that can takes the keyboard.
    void FocusInside(const QWidget& part);
    /// Presses a button for Enter or Escape. False when the form names none that can be pressed.
    bool Press(Button* button);

    /// Told when the form's caption, visibility or enabled state has changed.
    std::function<void()> formChanged;
    /// Whether this window may take the keyboard when its form moves the focus.
    std::function<bool()> isInFront;

    void ControlChanged(Control& control) override;
    void FormChanged(Form& form) override;
    void FocusMoved(Control& control) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void FlushLater();

    Form& form;
    EventGate& gate;
    AccessKeys keys;
    std::vector<std::unique_ptr<Binder>> binders;
    std::unordered_map<const Control*, Binder*> byControl;
    std::vector<Binder*> changed;
    bool formHasChanged = false;
    bool focusHasMoved = false;
    bool flushIsDue = false;
    bool detached = false;
    bool roomy = false;
};

}
