#include "desktop/FormWindow.h"

#include "desktop/LayoutBuilder.h"
#include "desktop/binders/Binder.h"
#include "forms/ChoiceControls.h"

#include <QKeyEvent>
#include <QTimer>

namespace rovanta {

FormWindow::FormWindow(Form& form, const Node& layout, EventGate& gate, QWidget* parent)
    : QWidget(parent), form(form), gate(gate), keys(form, layout)
{
    setObjectName(QString::fromStdString(form.Name()));
    LayoutBuilder builder(*this);
    builder.Build(layout);
    roomy = builder.GrowsDown(layout);
    for (const auto& binder : binders)
        binder->Update();
    setEnabled(form.Enabled());
    form.SetView(this);
}

FormWindow::~FormWindow()
{
    if (!detached)
        form.SetView(nullptr);
}

void FormWindow::Detach()
{
    detached = true;
    changed.clear();
    for (const auto& binder : binders)
        binder->Forget();
}

bool FormWindow::Accepts(const Control& control) const
{
    return !detached && !gate.HasEnded() && form.Enabled() && control.Enabled() && control.Visible();
}

void FormWindow::Add(std::unique_ptr<Binder> binder)
{
    byControl[&binder->Bound()] = binder.get();
    binders.push_back(std::move(binder));
}

Binder* FormWindow::BinderOf(const Control& control) const
{
    const auto found = byControl.find(&control);
    return found == byControl.end() ? nullptr : found->second;
}

Binder* FormWindow::BinderOf(std::string_view control) const
{
    const Control* found = form.FindControl(control);
    return found ? BinderOf(*found) : nullptr;
}

void FormWindow::ControlChanged(Control& control)
{
    Binder* binder = BinderOf(control);
    if (!binder || detached || !binder->MarkChanged())
        return;
    changed.push_back(binder);
    FlushLater();
}

void FormWindow::FormChanged(Form&)
{
    formHasChanged = true;
    FlushLater();
}

void FormWindow::FocusMoved(Control&)
{
    focusHasMoved = true;
    FlushLater();
}

void FormWindow::FlushLater()
{
    // The gate settles the windows at the end of an act; what changes outside of one is drawn by the event loop.
    if (gate.IsRunning() || flushIsDue)
        return;
    flushIsDue = true;
    QTimer::singleShot(0, this, [this] {
        flushIsDue = false;
        Flush();
    });
}

void FormWindow::Flush()
{
    if (detached)
        return;
    for (Binder* binder : std::exchange(changed, {}))
        binder->Update();
    if (std::exchange(formHasChanged, false)) {
        setEnabled(form.Enabled());
        if (formChanged)
            formChanged();
    }
    if (focusHasMoved && form.Enabled() && isVisible() && (!isInFront || isInFront()))
        TakeFocus();
}

void FormWindow::TakeFocus()
{
    focusHasMoved = false;
    if (detached)
        return;
    const Binder* focused = form.Focused() ? BinderOf(*form.Focused()) : nullptr;
    if (focused) {
        if (!focused->Widget().hasFocus())
            focused->Widget().setFocus(Qt::OtherFocusReason);
        return;
    }
    FocusInside(*this);
}

void FormWindow::FocusInside(const QWidget& part)
{
    for (const auto& binder : binders) {
        QWidget& widget = binder->Widget();
        if (part.isAncestorOf(&widget) && widget.focusPolicy() & Qt::TabFocus && widget.isEnabled()) {
            widget.setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

bool FormWindow::Press(Button* button)
{
    if (detached || !button || !Accepts(*button))
        return false;
    gate.Run([&] {
        // A press leaves the box that was being typed in, with its events; these may take the focus back.
        button->SetFocus();
        if (form.Focused() == button)
            button->Click.Fire();
    });
    return true;
}

void FormWindow::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool taken = !detached && ((enter && Press(form.DefaultButton())) ||
                                     (event->key() == Qt::Key_Escape && Press(form.CancelButton())));
    if (!taken)
        QWidget::keyPressEvent(event);
}

}
