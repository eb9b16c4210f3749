#include "desktop/binders/TextBinders.h"

#include "desktop/FormWindow.h"
#include "desktop/Look.h"
#include "values/Format.h"

#include <QEvent>
#include <QFocusEvent>
#include <QFont>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QSizePolicy>
#include <QTimer>

namespace rovanta {

static constexpr int moneyDigits = 11;
static constexpr int phoneDigits = 13;
static constexpr int leastDigits = 10;

static bool IsNumberBox(const MaskedBox* box)
{
    return box && (box->Picture() == moneyPicture || box->Picture() == percentPicture);
}

/// The widths of a box: what the layout asks, or the kind's own.
static void SizeLine(QLineEdit& edit, const MaskedBox* masked, const Node& node)
{
    int digits = node.characters;
    if (digits == 0 && node.atLeast == 0 && masked)
        digits = IsNumberBox(masked) ? moneyDigits : phoneDigits;
    if (digits > 0) {
        edit.setFixedWidth(BoxWidth(edit, digits));
        edit.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        return;
    }
    edit.setMinimumWidth(BoxWidth(edit, node.atLeast > 0 ? node.atLeast : leastDigits));
    edit.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

LineBinder::LineBinder(FormWindow& window, TextControl& box, const Node& node)
    : Binder(window, box), box(box), masked(dynamic_cast<const MaskedBox*>(&box)), edit(new QLineEdit)
{
    SetWidget(edit);
    if (IsNumberBox(masked) || node.number)
        edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (node.display) {
        edit->setProperty("display", true);
        edit->setAttribute(Qt::WA_Hover);
        edit->setFont(Look::Font(11, QFont::DemiBold));
        QPalette quiet = edit->palette();
        quiet.setColor(QPalette::Base, Qt::transparent);
        edit->setPalette(quiet);
    }
    SizeLine(*edit, masked, node);
    if (const auto* text = dynamic_cast<const TextBox*>(&box); text && text->Secret())
        edit->setEchoMode(QLineEdit::Password);
    connect(edit, &QLineEdit::textEdited, this,
            [this](const QString& text) { Act([&] { this->box.SetText(text.toStdString()); }); });
}

QString LineBinder::Shown() const
{
    const bool plain = !masked || edit->hasFocus();
    return QString::fromStdString(plain ? box.Text() : masked->Display());
}

void LineBinder::Refresh()
{
    edit->setReadOnly(box.ReadOnly());
    edit->setFocusPolicy(box.ReadOnly() ? Qt::ClickFocus : Qt::StrongFocus);
    const QString shown = Shown();
    if (edit->text() == shown)
        return;
    edit->setText(shown);
    if (!edit->hasFocus())
        edit->setCursorPosition(0);
}

void LineBinder::FocusChanged(bool entered)
{
    Refresh();
    if (entered)
        edit->selectAll();
    else
        edit->deselect();
}

bool LineBinder::eventFilter(QObject* watched, QEvent* event)
{
    // A click into the box would set the cursor; coming into a box selects its whole content, by whatever way.
    if (event->type() == QEvent::FocusIn)
        enteredByMouse = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
    if (event->type() == QEvent::MouseButtonRelease && std::exchange(enteredByMouse, false) && !edit->hasSelectedText())
        QTimer::singleShot(0, edit, &QLineEdit::selectAll);
    return Binder::eventFilter(watched, event);
}

MemoBinder::MemoBinder(FormWindow& window, TextControl& box, const Node& node)
    : Binder(window, box), box(box), edit(new QPlainTextEdit)
{
    SetWidget(edit);
    edit->setTabChangesFocus(true);
    edit->document()->setDocumentMargin(3);
    const auto* text = dynamic_cast<const TextBox*>(&box);
    const int lines = node.lines > 0 ? node.lines : std::max(2, text ? text->Lines() : 8);
    const int height = edit->fontMetrics().lineSpacing() * lines + 10;
    edit->setMinimumHeight(height);
    if (node.lines > 0)
        edit->setMaximumHeight(height);
    edit->setMinimumWidth(BoxWidth(*edit, node.characters > 0 ? node.characters : leastDigits));
    edit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(edit, &QPlainTextEdit::textChanged, this, [this] {
        if (!IsRefreshing())
            Act([this] { this->box.SetText(edit->toPlainText().replace("\n", "\r\n").toStdString()); });
    });
}

void MemoBinder::Refresh()
{
    edit->setReadOnly(box.ReadOnly());
    const QString shown = QString::fromStdString(box.Text()).replace("\r\n", "\n");
    if (edit->toPlainText() == shown)
        return;
    const QSignalBlocker quiet(edit);
    edit->setPlainText(shown);
}

LabelBinder::LabelBinder(FormWindow& window, Label& label, const Node& node)
    : Binder(window, label), label(label), shown(new QLabel)
{
    SetWidget(shown);
    shown->setTextFormat(Qt::PlainText);
    shown->setFont(node.display ? Look::Font(12, QFont::DemiBold) : Look::Font());
    if (!node.display) {
        QPalette quiet = shown->palette();
        quiet.setColor(QPalette::WindowText, Look::caption);
        shown->setPalette(quiet);
    }
}

void LabelBinder::Refresh()
{
    shown->setText(QString::fromStdString(PlainCaption(label.Caption())));
}

}
