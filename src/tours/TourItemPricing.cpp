#include "tours/TourItemPricing.h"

#include "frame/SharedRoutines.h"
#include "values/Numbers.h"

namespace rovanta {

namespace {

/// The whole weeks in a number of days: rounded half to even, then divided with truncation.
std::int64_t Weeks(double days)
{
    return CLng(days) / 7;
}

double BilledMonths(DateTime start, DateTime end)
{
    const int startMonthDays = DaysInMonth(start);
    const int endMonthDays = DaysInMonth(end);
    // The month's length counts February by four alone, so that in 2100 there is no such last day and this throws.
    const DateTime startMonthLast = DateTime::Of(start.Year(), start.Month(), startMonthDays);
    const DateTime endMonthFirst = DateTime::Of(end.Year(), end.Month(), 1);
    const double startPart = static_cast<double>(DateDiff("d", start, startMonthLast) + 1) / startMonthDays;
    const auto between = DateDiff("m", AddDays(startMonthLast, 1), AddDays(endMonthFirst, -1));
    const double endPart = static_cast<double>(DateDiff("d", endMonthFirst, end) + 1) / endMonthDays;
    return Round(endPart + (startPart + static_cast<double>(between)) + 1, 2);
}

double ByRateType(RateType type, double rate, double days, double months)
{
    return rate * (type == RateType::PerDay ? days : months);
}

/// One travel day on a side buys no hotel: the first night is on the coach.
int HotelNights(double travelIn, double travelOut)
{
    int nights = 0;
    for (const double days : {travelIn, travelOut}) {
        if (days - 1 > 0)
            nights = CInt(nights + (days - 1));
    }
    return nights;
}

void PriceWeeklyLines(const TourItemFigures& figures, PerLine<double>& total)
{
    const auto weeks = static_cast<double>(Weeks(figures.billedDays));
    const auto begunWeeks = static_cast<double>(Weeks(figures.billedDays + 6));
    // Below a full week this line is pro-rated; from one week on the days beyond whole weeks cost nothing.
    total[Line::Supplies] =
        weeks >= 1 ? figures.rate[Line::Supplies] * weeks : figures.rate[Line::Supplies] / 7 * figures.billedDays;
    total[Line::BusWash] = figures.rate[Line::BusWash] * weeks;
    total[Line::Linen] = figures.rate[Line::Linen] * weeks;
    total[Line::Generator] = figures.rate[Line::Generator] * begunWeeks;
}

void SumByPayer(const TourItemFigures& figures, TourItemPrice& price)
{
    // Kept on purpose: eight charges stand in no sum, although invoices bill them.
    constexpr std::array summed = {Line::Bus,  Line::Driver,     Line::AddDriver, Line::HotelBuyOut,
                                   Line::Fuel, Line::Engine,     Line::Carpet,    Line::Permit,
                                   Line::Misc, Line::PayrollFee, Line::Admin};
    constexpr std::array budgetOrder = {Line::Bus,  Line::Driver, Line::AddDriver, Line::HotelBuyOut,
                                        Line::Fuel, Line::Engine, Line::Carpet,    Line::Permit,
                                        Line::Misc, Line::Admin,  Line::PayrollFee};
    for (const Line line : budgetOrder)
        price.budget += price.total[line];
    for (const Line line : summed) {
        switch (figures.payer[line]) {
        case PaidBy::Contract:
            price.contract += price.total[line];
            break;
        case PaidBy::DriverCollect:
            price.driver += price.total[line];
            break;
        case PaidBy::ClientResp:
            price.client += price.total[line];
            break;
        }
    }
}

}

BilledSpan CalculateBilledSpan(const TourSpan& span)
{
    BilledSpan billed;
    billed.tourDays = static_cast<double>(DateDiff("d", span.start, span.end) + 1);
    billed.billedDays = billed.tourDays - span.discountDays + span.travelIn + span.travelOut;
    billed.billedMonths = BilledMonths(span.start, span.end);
    return billed;
}

TourItemPrice PriceTourItem(const TourItemFigures& figures)
{
    TourItemPrice price;
    price.total = figures.total;
    const auto& rate = figures.rate;
    auto& total = price.total;
    total[Line::Bus] = ByRateType(figures.busRateType, rate[Line::Bus], figures.busDays, figures.busMonths);
    // Drivers are paid by the day, whatever the rate type.
    total[Line::Driver] = rate[Line::Driver] * figures.billedDays;
    total[Line::AddDriver] = rate[Line::AddDriver] * figures.billedDays;
    total[Line::DOT] = ByRateType(figures.dotRateType, rate[Line::DOT], figures.busDays, figures.busMonths);
    total[Line::Satellite] =
        ByRateType(figures.satelliteRateType, rate[Line::Satellite], figures.satelliteDays, figures.satelliteMonths);
    total[Line::Internet] =
        ByRateType(figures.internetRateType, rate[Line::Internet], figures.internetDays, figures.internetMonths);
    total[Line::HotelBuyOut] = rate[Line::HotelBuyOut] * HotelNights(figures.travelIn, figures.travelOut);
    PriceWeeklyLines(figures, total);
    total[Line::Fuel] = figures.totalMiles * rate[Line::Fuel];
    total[Line::Engine] = rate[Line::Engine] * figures.totalMiles;
    SumByPayer(figures, price);
    return price;
}

BusCommission CommissionOfBus(double lease, double commAmount, double commPercent)
{
    if (commPercent != 0)
        return {lease * commPercent, commPercent};
    return {commAmount, 0};
}

}
