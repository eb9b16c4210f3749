#pragma once

#include "bench/BareDatabase.h"

namespace rovanta::bench {

/// What the tour screen does at the database when a tour is loaded and when it is saved, statement by statement, in
/// plain C API calls.
class BareTour {
public:
    explicit BareTour(BareDatabase& database);

    void Load(std::int64_t id);
    /// Saves what was loaded; `now` is the new time of the edit.
    void Save(const std::string& now);

private:
    void LoadTourList();

    BareStatement customer, tour, lines, invoices, payments;
    BareStatement updateTour, mail, updateMail, deleteItems, oneItem, insertItem, list;
    std::size_t itemColumns = 0;
    BareRow head;
    std::vector<BareRow> items;
    std::vector<std::pair<std::string, std::int64_t>> tourList;
};

}
