#include "bench/Results.h"

#include <algorithm>
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

namespace {

/// A work with what it took on each engine; null where it was not measured.
struct Row {
    const Result* sqlite = nullptr;
    const Result* postgres = nullptr;

    const Result& Any() const { return sqlite != nullptr ? *sqlite : *postgres; }
};

bool IsMet(const Result& result)
{
    return result.figure.value_or(0) <= *result.aim;
}

std::string AimOf(const Row& row)
{
    const auto& aim = row.Any().aim;
    if (!aim)
        return "";
    const auto word = [](const Result& result) { return IsMet(result) ? "met" : "**missed**"; };
    std::string text = "at most " + Shown(*aim, "") + ": " + word(row.Any());
    if (row.sqlite != nullptr && row.postgres != nullptr && IsMet(*row.sqlite) != IsMet(*row.postgres))
        text += std::string(" on SQLite, ") + word(*row.postgres) + " on PostgreSQL";
    return text;
}

std::string NoteOf(const Row& row)
{
    if (row.sqlite == nullptr || row.postgres == nullptr || row.sqlite->note == row.postgres->note)
        return row.Any().note;
    return "SQLite: " + row.sqlite->note + "; PostgreSQL: " + row.postgres->note;
}

std::string FiguresOf(const Result* result)
{
    if (result == nullptr)
        return " | | |";
    return " " + result->program + " | " + result->bare + " | " + (result->ratio ? Shown(*result->ratio, "") : "") +
           " |";
}

std::vector<Row> RowsOf(const std::vector<Result>& sqlite, const std::vector<Result>& postgres)
{
    std::vector<Row> rows;
    rows.reserve(sqlite.size() + postgres.size());
    for (const Result& result : sqlite)
        rows.push_back({&result, nullptr});
    for (const Result& result : postgres) {
        const auto same =
            std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.Any().what == result.what; });
        if (same == rows.end())
            rows.push_back({nullptr, &result});
        else
            same->postgres = &result;
    }
    return rows;
}

}

std::string TableOf(const std::vector<Result>& sqlite, const std::vector<Result>& postgres)
{
    std::string table =
        "| What | SQLite: Rovanta | bare | ratio | PostgreSQL: Rovanta | bare | ratio | Aim | Remark |\n"
        "|---|---|---|---|---|---|---|---|---|\n";
    for (const Row& row : RowsOf(sqlite, postgres))
        table += "| " + row.Any().what + " |" + FiguresOf(row.sqlite) + FiguresOf(row.postgres) + " " + AimOf(row) +
                 " | " + NoteOf(row) + " |\n";
    return table;
}

std::string PlainTableOf(const std::vector<Result>& results)
{
    std::string table = "| What | Rovanta | Remark |\n|---|---|---|\n";
    for (const Result& result : results)
        table += "| " + result.what + " | " + result.program + " | " + result.note + " |\n";
    return table;
}

}
