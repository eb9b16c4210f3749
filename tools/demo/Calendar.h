#pragma once

#include "values/DateTime.h"

#include <utility>
#include <vector>

namespace rovanta::demo {

/// When the vehicles, the drivers or the customers of the demo are busy, by their position.
class Calendar {
public:
    explicit Calendar(std::size_t count) : spans(count) {}

    bool IsFree(std::size_t who, DateTime first, DateTime last) const
    {
        for (const auto& [from, to] : spans[who])
            if (from <= last && to >= first)
                return false;
        return true;
    }

    void Book(std::size_t who, DateTime first, DateTime last) { spans[who].emplace_back(first, last); }

private:
    std::vector<std::vector<std::pair<DateTime, DateTime>>> spans;
};

}
