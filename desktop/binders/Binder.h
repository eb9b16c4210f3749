#pragma once

#include "desktop/Layout.h"
#include "forms/Control.h"

#include <QObject>
#include <QString>
#include <functional>
#include <memory>

class QLabel;
class QWidget;

namespace rovanta {

class FormWindow;
struct AccessKey;

/// Ties one control to the widget that shows it: acts of a person go to the control through the gate, and the widget is
/// drawn from the control. Drawing never reaches the logic.
class Binder : public QObject {
public:
    Binder(FormWindow& window, Control& control);
    ~Binder() override = default;

    Control& Bound() const { return control; }
    QWidget& Widget() const { return *widget; }

    /// The words beside the widget, which come and go with it.
    void SetCaptionLabel(QLabel* label, bool withKey);
    void SetNoteLabel(QLabel* label);

    /// Notes that the control has changed; false when that was noted before.
    bool MarkChanged();
    /// Draws the widget from its control.
    void Update();
    /// The control is about to go.
    virtual void Forget() {}

protected:
    /// The widget, made by the kind's own constructor.
    void SetWidget(QWidget* made);
    /// What the kind itself draws.
    virtual void Refresh() = 0;
    /// Runs an act of a person on the control; afterwards the widget is drawn from it, so that what the logic refused
    /// or changed is seen.
    void Act(const std::function<void()>& act);
    /// The focus comes by a person's hand.
    void Enter();
    bool IsRefreshing() const { return refreshing; }
    /// The caption with its access key marked.
    QString CaptionWithKey() const;
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// The keyboard has come to the widget or left it, by whatever way.
    virtual void FocusChanged(bool) {}
    /// Buttons wait for the release of the mouse: what leaving a box asks must not swallow the click.
    virtual bool EntersOnRelease() const { return false; }

    FormWindow& window;

private:
    void UpdateLabels();

    Control& control;
    QWidget* widget = nullptr;
    QLabel* captionLabel = nullptr;
    QLabel* noteLabel = nullptr;
    bool captionHasKey = false;
    bool hasChanged = false;
    bool refreshing = false;
};

/// The binder for a control of any kind, with its widget.
std::unique_ptr<Binder> MakeBinder(FormWindow& window, Control& control, const Node& node);

/// A caption with its access key marked, as the toolkit takes it.
QString WithKey(const std::string& caption, const AccessKey* key);

/// The width of a box that holds that many digits.
int BoxWidth(const QWidget& widget, int digits);

}
