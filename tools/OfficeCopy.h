#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace rovanta {

/// What a table comes to: its rows, and by column the sum of a numeric one, or how many rows of another are filled.
struct TableSum {
    std::string table;
    std::int64_t rows = 0;
    std::vector<std::pair<std::string, double>> columns;
    /// The highest number that a row has had, where the table numbers its rows.
    std::optional<std::int64_t> lastNumber = std::nullopt;
};

/// What differs between a table and its copy, a sentence each. Sums count as equal within a ten-thousandth, since
/// each engine adds in an order of its own.
std::vector<std::string> Differences(const TableSum& original, const TableSum& copy);

/// What was copied.
struct CopyReport {
    std::vector<TableSum> tables;
    /// Views that no office has by itself; they stay behind.
    std::vector<std::string> viewsLeft;
    /// Tables of no office that a desk dropped before they were reached, as a report does with its own.
    std::vector<std::string> tablesGone;
};

/// Copies an office's database, every table with its rows and their numbers, to a database that holds no table yet; a
/// file that is not there is made. The copy is the office of one moment, whatever the desks save meanwhile, and goes on
/// numbering where the office stood. Then counts and sums on both sides are compared. Throws RunTimeError when the
/// source is no office, the target is not empty, a row does not fit or the sides differ; nothing of the copy then
/// stays.
CopyReport CopyOffice(const std::string& from, const std::string& to);

}
