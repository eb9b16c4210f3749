#include "desktop/binders/DateBox.h"

#include "desktop/Look.h"

#include <QCalendarWidget>
#include <QDate>
#include <QFont>
#include <QFrame>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPalette>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>

namespace rovanta {

std::optional<DateTime> ReadTypedDate(const std::string& text, int year)
{
    if (const auto whole = ParseDate(text))
        return whole;
    const bool dayAlone = std::count(text.begin(), text.end(), '/') == 1;
    return dayAlone ? ParseDate(text + "/" + std::to_string(year)) : std::nullopt;
}

DateBox::DateBox()
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    // A whole date counts at once, so that what depends on it is seen while the box is still being typed in.
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
        const qsizetype year = text.lastIndexOf('/') + 1;
        const auto date = text.size() - year == 4 ? ParseDate(text.toStdString()) : std::nullopt;
        if (date)
            Choose(*date);
    });
}

void DateBox::ShowDate(DateTime date)
{
    shown = date;
    const QString text = QString::fromStdString(ToText(date.DateOnly()));
    if (lineEdit()->text() != text)
        lineEdit()->setText(text);
}

void DateBox::Choose(DateTime date)
{
    const DateTime day = date.DateOnly();
    if (day == shown.DateOnly() || lineEdit()->isReadOnly())
        return;
    // The time of day that a date bears stays with it.
    shown = DateTime::FromSeconds(day.Seconds() + shown.SecondsOfDay());
    if (chosen)
        chosen(shown);
}

void DateBox::Commit()
{
    const auto typed = ReadTypedDate(lineEdit()->text().toStdString(), shown.Year());
    if (typed)
        Choose(*typed);
    ShowDate(shown);
}

/// The calendar in the program's own colours: no red days, plain arrows.
static void Dress(QCalendarWidget& month)
{
    month.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    QTextCharFormat plain;
    plain.setForeground(Look::text);
    for (const auto day : {Qt::Saturday, Qt::Sunday})
        month.setWeekdayTextFormat(day, plain);
    const auto dressButton = [&](const char* name, const char* text) {
        auto* button = month.findChild<QToolButton*>(name);
        if (!button)
            return;
        button->setIcon(QIcon());
        button->setText(QString::fromUtf8(text));
        button->setFont(Look::Font(14, QFont::DemiBold));
        QPalette light = button->palette();
        light.setColor(QPalette::ButtonText, Qt::white);
        button->setPalette(light);
    };
    dressButton("qt_calendar_prevmonth", "‹");
    dressButton("qt_calendar_nextmonth", "›");
}

void DateBox::showPopup()
{
    if (lineEdit()->isReadOnly() || calendar)
        return;
    Commit();
    auto* frame = new QFrame(this, Qt::Popup);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    frame->setFrameShape(QFrame::Box);
    auto* month = new QCalendarWidget(frame);
    Dress(*month);
    month->setDateRange(QDate(1753, 1, 1), QDate(9999, 12, 31));
    month->setSelectedDate(QDate(shown.Year(), shown.Month(), shown.Day()));
    auto* box = new QVBoxLayout(frame);
    box->setContentsMargins(1, 1, 1, 1);
    box->addWidget(month);
    const auto pick = [this](QDate date) {
        hidePopup();
        Choose(DateTime::Of(date.year(), date.month(), date.day()));
        ShowDate(shown);
    };
    connect(month, &QCalendarWidget::clicked, this, pick);
    connect(month, &QCalendarWidget::activated, this, pick);
    connect(frame, &QObject::destroyed, this, [this] { calendar = nullptr; });
    calendar = frame;
    frame->adjustSize();
    const QRect room = screen()->availableGeometry();
    QPoint place = mapToGlobal(QPoint(0, height() + 2));
    if (place.y() + frame->height() > room.bottom())
        place.setY(mapToGlobal(QPoint(0, 0)).y() - frame->height() - 2);
    place.setX(std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - frame->width())));
    frame->move(place);
    frame->show();
    month->setFocus();
}

void DateBox::hidePopup()
{
    if (calendar)
        calendar->close();
    QComboBox::hidePopup();
}

void DateBox::keyPressEvent(QKeyEvent* event)
{
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    int days = 0;
    int months = 0;
    switch (event->key()) {
    case Qt::Key_Up:
        days = 1;
        break;
    case Qt::Key_Down:
        days = -1;
        break;
    case Qt::Key_PageUp:
        months = 1;
        break;
    case Qt::Key_PageDown:
        months = -1;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Commit();
        event->ignore();
        return;
    default:
        break;
    }
    if (!plain || (days == 0 && months == 0)) {
        QComboBox::keyPressEvent(event);
        return;
    }
    Commit();
    Choose(months != 0 ? AddMonths(shown, months) : AddDays(shown, days));
    ShowDate(shown);
    lineEdit()->selectAll();
}

void DateBox::wheelEvent(QWheelEvent* event)
{
    // Turns of the wheel scroll the form; they never change a date by accident.
    event->ignore();
}

}
