#include <doctest/doctest.h>

#include "forms/Form.h"
#include "frame/Clock.h"
#include "frame/PayerOptions.h"
#include "frame/SecondCopyGuard.h"
#include "frame/SharedRoutines.h"
#include "values/Errors.h"

#include <ctime>
#include <filesystem>
#include <fstream>

#include <unistd.h>

using namespace rovanta;

TEST_CASE("A month has its days; February counts by the year divisible by four alone")
{
    const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month)
        CHECK(DaysInMonth(DateTime::Of(2026, month, 1)) == days[month - 1]);
    for (const int year : {2024, 2000, 1900, 2100})
        CHECK(DaysInMonth(DateTime::Of(year, 2, 10)) == 29);
    for (const int year : {2023, 2025, 2026, 1901})
        CHECK(DaysInMonth(DateTime::Of(year, 2, 28)) == 28);
}

TEST_CASE("Dates compare by calendar day, times of day do not count")
{
    const DateTime morning = DateTime::Of(2026, 3, 2, 0, 0, 1);
    const DateTime night = DateTime::Of(2026, 3, 2, 23, 59, 59);
    const DateTime next = DateTime::Of(2026, 3, 3);
    CHECK(CompareDates(night, morning) == 0);
    CHECK(CompareDates(next, night) == 1);
    CHECK(CompareDates(night, next) == -1);
    CHECK(CompareDates("3/2/2026", "2/28/2026 11:00:00 PM") == 1);
    CHECK(CompareDates("12/31/2025", "1/1/2026") == -1);
    CHECK(CompareDates("1/1/2026", "2026-01-01") == 0);
    CHECK_THROWS_AS(CompareDates("", "1/1/2026"), RunTimeError);
    CHECK_THROWS_AS(CompareDates("1/1/2026", "2/30/2026"), RunTimeError);
}

TEST_CASE("A day of the week has its letters")
{
    const char* letters[] = {"Su", "M", "Tu", "W", "Th", "F", "Sa"};
    for (int day = 1; day <= 7; ++day)
        CHECK(GetDayAbbrev("3", std::to_string(day), "2026") == letters[day - 1]);
    CHECK(GetDayAbbrev("02", "29", "2024") == "Th");
    CHECK_THROWS_AS(GetDayAbbrev("2", "29", "2026"), RunTimeError);
    CHECK_THROWS_AS(GetDayAbbrev("", "1", "2026"), RunTimeError);
}

TEST_CASE("A folder is no file")
{
    const auto folder = std::filesystem::temp_directory_path();
    const std::string file = (folder / ("file-" + std::to_string(getpid()))).string();
    CHECK_FALSE(FileExists(file));
    std::ofstream(file) << "x";
    CHECK(FileExists(file));
    std::filesystem::remove(file);
    CHECK_FALSE(FileExists(folder.string()));
    CHECK_FALSE(FileExists(""));
}

TEST_CASE("A frozen clock stands until it is moved")
{
    Clock clock(DateTime::Of(2026, 3, 2, 9, 30, 5));
    CHECK(clock.Now() == DateTime::Of(2026, 3, 2, 9, 30, 5));
    CHECK(clock.Today() == DateTime::Of(2026, 3, 2));
    CHECK(clock.Timer() == 34205);
    clock.Freeze(DateTime::Of(2026, 3, 3));
    CHECK(clock.Now() == DateTime::Of(2026, 3, 3));
    CHECK(clock.Timer() == 0);
}

TEST_CASE("The machine's clock tells local time")
{
    const Clock clock;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const auto seconds = clock.Now().Seconds();
    const auto expected =
        DateTime::Of(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec)
            .Seconds();
    CHECK(seconds >= expected);
    CHECK(seconds <= expected + 2);
    CHECK(clock.Timer() >= 0);
    CHECK(clock.Timer() < 86401);
}

TEST_CASE("One copy runs on a machine; its mark is free again when it has gone")
{
    const std::string machine = "guard-" + std::to_string(getpid());
    {
        const SecondCopyGuard first(machine);
        CHECK(first.IsFirst());
        const SecondCopyGuard second(machine);
        CHECK_FALSE(second.IsFirst());
        const SecondCopyGuard elsewhere(machine + "-b");
        CHECK(elsewhere.IsFirst());
    }
    const SecondCopyGuard again(machine);
    CHECK(again.IsFirst());
}

TEST_CASE("A copy that stands for a machine with signs in its name marks that one alone")
{
    const std::string machine = "../guard/" + std::to_string(getpid());
    const SecondCopyGuard first(machine);
    CHECK(first.IsFirst());
    CHECK_FALSE(SecondCopyGuard(machine).IsFirst());
    CHECK(SecondCopyGuard(machine + "2").IsFirst());
}

TEST_CASE("A payer's word chooses its button, and any other word the client's")
{
    Form form("frm", "");
    PayerOptions payer(&form, "Fuel", "Fuel");
    CHECK(payer.Word() == "Client Resp");
    payer.Choose("Contract");
    CHECK(payer.contract.Value());
    CHECK(payer.Word() == "Contract");
    payer.Choose("Driver Collect");
    CHECK(payer.driver.Value());
    CHECK_FALSE(payer.contract.Value());
    CHECK(payer.Word() == "Driver Collect");
    for (const char* other : {"Client Resp", "", "contract", "Nobody"}) {
        payer.Choose("Contract");
        payer.Choose(other);
        CHECK(payer.client.Value());
        CHECK(payer.Word() == "Client Resp");
    }
    CHECK(form.FindControl("optFuelContract") == &payer.contract);
    CHECK(form.FindControl("optFuelDriver") == &payer.driver);
    CHECK(form.FindControl("optFuelClient") == &payer.client);
}
