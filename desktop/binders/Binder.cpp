#include "desktop/binders/Binder.h"

#include "desktop/FormWindow.h"

#include <QEvent>
#include <QFocusEvent>
#include <QLabel>
#include <QTimer>

namespace rovanta {

Binder::Binder(FormWindow& window, Control& control) : window(window), control(control) {}

void Binder::SetWidget(QWidget* made)
{
    widget = made;
    widget->setObjectName(QString::fromStdString(control.Name()));
    // Readers of the screen hear what the headings of a table tell the eye.
    const std::string remark = control.Note().empty() ? "" : ", " + control.Note();
    widget->setAccessibleName(QString::fromStdString(PlainCaption(control.Caption()) + remark));
    widget->installEventFilter(this);
}

void Binder::SetCaptionLabel(QLabel* label, bool withKey)
{
    captionLabel = label;
    captionHasKey = withKey;
    if (withKey)
        label->setBuddy(widget);
    UpdateLabels();
}

void Binder::SetNoteLabel(QLabel* label)
{
    noteLabel = label;
    UpdateLabels();
}

bool Binder::MarkChanged()
{
    return !std::exchange(hasChanged, true);
}

void Binder::Update()
{
    hasChanged = false;
    refreshing = true;
    widget->setEnabled(control.Enabled());
    if (widget->isHidden() == control.Visible())
        widget->setVisible(control.Visible());
    UpdateLabels();
    Refresh();
    refreshing = false;
}

void Binder::UpdateLabels()
{
    if (captionLabel) {
        const QString text = captionHasKey ? CaptionWithKey() : QString::fromStdString(PlainCaption(control.Caption()));
        captionLabel->setText(text);
        captionLabel->setVisible(control.Visible());
    }
    if (noteLabel) {
        noteLabel->setText(QString::fromStdString(PlainCaption(control.Note())));
        noteLabel->setVisible(control.Visible());
    }
}

QString Binder::CaptionWithKey() const
{
    return WithKey(PlainCaption(control.Caption()), window.Keys().Find(control));
}

void Binder::Act(const std::function<void()>& act)
{
    if (refreshing || !window.Accepts(control))
        return;
    window.Gate().Run([&] {
        act();
        window.ControlChanged(control);
    });
}

void Binder::Enter()
{
    if (window.IsDetached() || window.Shown().Focused() == &control)
        return;
    Act([this] { control.SetFocus(); });
}

bool Binder::eventFilter(QObject* watched, QEvent* event)
{
    if (window.IsDetached())
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn) {
        FocusChanged(true);
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::MouseFocusReason)
            Enter();
        else if (!EntersOnRelease())
            QTimer::singleShot(0, this, [this] { Enter(); });
    } else if (event->type() == QEvent::FocusOut) {
        if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
            FocusChanged(false);
    } else if (event->type() == QEvent::MouseButtonRelease && EntersOnRelease()) {
        QTimer::singleShot(0, this, [this] {
            if (widget->hasFocus())
                Enter();
        });
    }
    return QObject::eventFilter(watched, event);
}

QString WithKey(const std::string& caption, const AccessKey* key)
{
    const auto escaped = [](const std::string& text) { return QString::fromStdString(text).replace("&", "&&"); };
    if (!key)
        return escaped(caption);
    return escaped(caption.substr(0, key->position)) + '&' + escaped(caption.substr(key->position));
}

int BoxWidth(const QWidget& widget, int digits)
{
    return widget.fontMetrics().horizontalAdvance('0') * digits + 14;
}

}
