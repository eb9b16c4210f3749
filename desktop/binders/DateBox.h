#pragma once

#include "values/DateTime.h"

#include <QComboBox>
#include <functional>

namespace rovanta {

/// A box for a date: it is typed as people write it (4/6/2026, 4/6/26 or 4/6), picked from a calendar that drops down,
/// or moved by the arrow keys, a day each, and by Page Up and Page Down, a month each.
class DateBox : public QComboBox {
public:
    DateBox();

    void ShowDate(DateTime date);
    DateTime Date() const { return shown; }
    /// Takes what is typed; a text that is no date goes back to the one that was shown.
    void Commit();

    /// Told when a person has chosen another date.
    std::function<void(DateTime)> chosen;

    void showPopup() override;
    void hidePopup() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Choose(DateTime date);

    DateTime shown;
    QWidget* calendar = nullptr;
};

/// A date as a person writes it; without a year it is one of `year`. Nothing when the text is none.
std::optional<DateTime> ReadTypedDate(const std::string& text, int year);

}
