#include "store/RowSet.h"

#include "values/Text.h"

#include <bit>
#include <cstdint>

namespace rovanta {

static std::size_t HashNoCase(std::string_view name)
{
    std::uint32_t hash = 2166136261U;
    for (const char c : name)
        hash = (hash ^ (static_cast<unsigned char>(c) | 0x20U)) * 16777619U;
    return hash;
}

ResultShape::ResultShape(std::vector<SourceColumn> all, TablePointer table)
    : columns(std::move(all)), updatable(std::move(table)), places(std::bit_ceil(columns.size() * 2 + 1), -1)
{
    for (std::size_t i = 0; i < columns.size(); ++i) {
        names.push_back(columns[i].name);
        std::size_t slot = HashNoCase(columns[i].name) & (places.size() - 1);
        while (places[slot] >= 0)
            slot = (slot + 1) & (places.size() - 1);
        places[slot] = static_cast<int>(i);
    }
}

std::optional<std::size_t> ResultShape::Find(std::string_view name) const
{
    std::size_t slot = HashNoCase(name) & (places.size() - 1);
    for (; places[slot] >= 0; slot = (slot + 1) & (places.size() - 1)) {
        const auto index = static_cast<std::size_t>(places[slot]);
        if (EqualNoCase(names[index], name))
            return index;
    }
    return std::nullopt;
}

}
