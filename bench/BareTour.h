#pragma once

#include "bench/BareSqlite.h"

#include <string>
#include <variant>
#include <vector>

namespace rovanta::bench {

/// A value as a plain program keeps it between reading and writing.
using BareValue = std::variant<std::monostate, sqlite3_int64, double, std::string>;
using BareRow = std::vector<BareValue>;

BareRow ReadRow(BareStatement& statement);
void BindRow(BareStatement& statement, const BareRow& row, int firstPlace = 1);

/// What the tour screen does at the database when a tour is loaded and when it is saved, statement by statement, in
/// plain C API calls.
class BareTour {
public:
    explicit BareTour(BareDatabase& database);

    void Load(sqlite3_int64 id);
    /// Saves what was loaded; `now` is the new time of the edit.
    void Save(const std::string& now);

    std::vector<BareRow> items;

private:
    void LoadTourList();

    BareDatabase& database;
    BareStatement customer, tour, lines, invoices, payments;
    BareStatement updateTour, mail, updateMail, deleteItems, oneItem, list;
    std::vector<std::string> itemColumns;
    BareRow head;
    std::vector<std::pair<std::string, sqlite3_int64>> tourList;
};

}
