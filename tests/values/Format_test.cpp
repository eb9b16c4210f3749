#include <doctest/doctest.h>

#include "values/Format.h"

#include <cmath>

using namespace rovanta;

namespace {

struct NumberRow {
    double number;
    std::string_view picture;
    const char* expected;
};

void CheckRows(const std::vector<NumberRow>& rows)
{
    for (const NumberRow& row : rows) {
        CAPTURE(row.number);
        CAPTURE(row.picture);
        CHECK(Format(row.number, row.picture) == row.expected);
    }
}

}

TEST_CASE("Money shows two places and brackets below zero")
{
    CheckRows({
        {0, moneyPicture, "$0.00"},
        {5, moneyPicture, "$5.00"},
        {0.5, moneyPicture, "$0.50"},
        {1400, moneyPicture, "$1,400.00"},
        {1234567.891, moneyPicture, "$1,234,567.89"},
        {-5, moneyPicture, "($5.00)"},
        {-1400.5, moneyPicture, "($1,400.50)"},
        {-0.001, moneyPicture, "$0.00"},
        {999.995, moneyPicture, "$1,000.00"},
        {-5, moneyCellPicture, "-$5.00"},
        {1400, moneyCellPicture, "$1,400.00"},
    });
}

TEST_CASE("Halves round away from zero as their fifteen digits read")
{
    CheckRows({
        {0.005, moneyCellPicture, "$0.01"},
        {2.675, moneyCellPicture, "$2.68"},
        {1.005, moneyCellPicture, "$1.01"},
        {-2.675, moneyCellPicture, "-$2.68"},
        {2.6749999, moneyCellPicture, "$2.67"},
        {0.125, "0.00", "0.13"},
        {2.5, "0", "3"},
        {99.5, "0", "100"},
        {9.995, "0.00", "10.00"},
        {0.4, "0", "0"},
    });
}

TEST_CASE("A picture without a zero place shows no zero")
{
    CheckRows({
        {0, moneySumPicture, "$."},
        {1400, moneySumPicture, "$1,400."},
        {1400.5, moneySumPicture, "$1,400.5"},
        {1400.25, moneySumPicture, "$1,400.25"},
        {0.5, moneySumPicture, "$.5"},
        {0.004, moneySumPicture, "$."},
        {-1400, moneySumPicture, "-$1,400."},
        {1234567, moneySumPicture, "$1,234,567."},
        {12, "#", "12"},
        {0, "#", ""},
        {12.5, ".00", "12.50"},
        {0, ".00", ".00"},
    });
}

TEST_CASE("Percent scales by a hundred")
{
    CheckRows({
        {0, percentPicture, "0.0%"},
        {0.0825, percentPicture, "8.3%"},
        {0.5, percentPicture, "50.0%"},
        {1, percentPicture, "100.0%"},
        {12.345, percentPicture, "1,234.5%"},
        {-0.1, percentPicture, "-10.0%"},
        {0.255, "0%", "26%"},
        {-0.5, "0%;(0%)", "(50%)"},
    });
}

TEST_CASE("Sections, places and literals")
{
    CheckRows({
        {5, "0;(0);zero", "5"},
        {-5, "0;(0);zero", "(5)"},
        {0, "0;(0);zero", "zero"},
        {0.2, "0;(0);zero", "zero"},
        {-5, "0;;zero", "-5"},
        {0, "0;(0);", "0"},
        {5, "000", "005"},
        {12345, "000", "12345"},
        {1.5, "0.0#", "1.5"},
        {1.25, "0.0#", "1.25"},
        {1, "0.0#", "1.0"},
        {7, "\\#0", "#7"},
        {7, "\"no. \"0", "no. 7"},
        {7, "\"a;b\"0;-", "a;b7"},
        {1234, "#,##0", "1,234"},
        {12, "#,##0", "12"},
        {12, "0,000", "0,012"},
        {1234, "##0 mi", "1234 mi"},
        {5551234, "###-####", "555-1234"},
        {8005551234, "(###) ###-####", "(800) 555-1234"},
        {18005551234, "(###) ###-####", "(1800) 555-1234"},
    });
    CHECK(Format(1e300, moneyPicture).size() > 400);
    CHECK_THROWS(Format(std::nan(""), moneyPicture));
}

TEST_CASE("Dates under a picture")
{
    struct Row {
        DateTime date;
        std::string_view picture;
        const char* expected;
    };
    const DateTime monday = DateTime::Of(2026, 1, 5, 15, 4, 9);
    const Row rows[] = {
        {monday, datePicture, "01/05/2026"},
        {monday, "m/d/yyyy", "1/5/2026"},
        {monday, "m/d/yy", "1/5/26"},
        {monday, "dddd, mmmm d, yyyy", "Monday, January 5, 2026"},
        {monday, "ddd mmm dd", "Mon Jan 05"},
        {monday, "hh:mm:ss", "15:04:09"},
        {monday, "h:mm AM/PM", "3:04 PM"},
        {monday, "mm/dd/yyyy hh:mm", "01/05/2026 15:04"},
        {monday, "h:n:s", "15:4:9"},
        {monday, "hh:mm, mm/dd", "15:04, 01/05"},
        {DateTime::Of(2026, 12, 31), "h:mm AM/PM", "12:00 AM"},
        {DateTime::Of(2026, 12, 31, 12), "h:mm am/pm", "12:00 PM"},
        {DateTime::Of(2026, 9, 30), "MM/DD/YYYY", "09/30/2026"},
        {DateTime::Of(1999, 12, 31), "yyyy-mm-dd", "1999-12-31"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.picture);
        CHECK(Format(row.date, row.picture) == row.expected);
    }
}

TEST_CASE("A text that does not fit its picture stands as it is")
{
    struct Row {
        const char* text;
        std::string_view picture;
        const char* expected;
    };
    const Row rows[] = {
        {"1400", moneySumPicture, "$1,400."},
        {"", moneySumPicture, ""},
        {"0", moneySumPicture, "$."},
        {"n/a", moneyCellPicture, "n/a"},
        {"12 mi", "#,##0", "12 mi"},
        {"1/5/2026", datePicture, "01/05/2026"},
        {"2026-01-05 00:00:00", datePicture, "01/05/2026"},
        {"soon", datePicture, "soon"},
        {"2/30/2026", datePicture, "2/30/2026"},
        {"", datePicture, ""},
        {"1400", "", "1400"},
        {"$1,234.5", moneyCellPicture, "$1,234.50"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.text);
        CHECK(FormatText(row.text, row.picture) == row.expected);
    }
}
