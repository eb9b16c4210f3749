#pragma once

#include <optional>
#include <string>
#include <vector>

namespace rovanta::bench {

/// What a piece of work took on one engine.
struct Result {
    std::string what;
    std::string program; ///< what the program took, with its unit
    std::string bare;    ///< what stands beside it, empty for nothing
    std::optional<double> ratio;
    std::optional<double> aim;    ///< the ratio, or the figure, that is to be met
    std::optional<double> figure; ///< what the aim is compared with; the ratio where there is none
    std::string note;
};

/// "3.42 ms" and its like: three digits that count.
std::string Shown(double figure, const std::string& unit);

/// A result of two times in milliseconds with their ratio.
Result Compared(const std::string& what, double program, double bare, std::optional<double> aim,
                const std::string& note);

/// The results of both engines side by side as a table in Markdown, with a word on each aim.
std::string TableOf(const std::vector<Result>& sqlite, const std::vector<Result>& postgres);

/// Results that no database takes part in.
std::string PlainTableOf(const std::vector<Result>& results);

}
