#include "bench/Results.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace rovanta::bench {

std::string Shown(double figure, const std::string& unit)
{
    std::array<char, 64> text{};
    const int places = figure >= 100 ? 0 : figure >= 10 ? 1 : figure >= 1 ? 2 : 3;
    std::snprintf(text.data(), text.size(), "%.*f", places, figure);
    return std::string(text.data()) + (unit.empty() ? "" : " " + unit);
}

Result Compared(const std::string& what, double program, double bare, std::optional<double> aim,
                const std::string& note)
{
    return {what, Shown(program, "ms"), Shown(bare, "ms"), program / bare, aim, program / bare, note};
}

static std::string AimOf(const Result& result)
{
    if (!result.aim)
        return "";
    const double figure = result.figure.value_or(0);
    return "at most " + Shown(*result.aim, "") + (figure <= *result.aim ? ": met" : ": **missed**");
}

std::string TableOf(const std::vector<Result>& results)
{
    std::string table = "| What | Rovanta | Beside it | Ratio | Aim | Remark |\n|---|---|---|---|---|---|\n";
    for (const Result& result : results)
        table += "| " + result.what + " | " + result.program + " | " + result.bare + " | " +
                 (result.ratio ? Shown(*result.ratio, "") : "") + " | " + AimOf(result) + " | " + result.note + " |\n";
    return table;
}

}
