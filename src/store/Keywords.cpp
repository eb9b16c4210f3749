#include "store/Keywords.h"

#include "values/Text.h"

#include <array>

namespace rovanta {

namespace {

/// In the order of the enumeration.
constexpr std::array<std::string_view, 62> keywordTexts{
    "",          "ALL",          "AND",        "AS",     "ASC",    "BEGIN",  "BETWEEN", "BY",       "CASE",
    "CLUSTERED", "COMMIT",       "CONSTRAINT", "CREATE", "CROSS",  "DELETE", "DESC",    "DISTINCT", "DROP",
    "ELSE",      "END",          "EXISTS",     "FROM",   "FULL",   "GROUP",  "HAVING",  "IDENTITY", "IDENTITY_INSERT",
    "IN",        "INDEX",        "INNER",      "INSERT", "INTO",   "IS",     "JOIN",    "KEY",      "LEFT",
    "LIKE",      "NONCLUSTERED", "NOT",        "NULL",   "OFF",    "ON",     "OR",      "ORDER",    "OUTER",
    "PRIMARY",   "RIGHT",        "ROLLBACK",   "SELECT", "SET",    "TABLE",  "TOP",     "TRAN",     "TRANSACTION",
    "UNION",     "UNIQUE",       "UPDATE",     "USER",   "VALUES", "VIEW",   "WHERE",   "WITH"};

static_assert(keywordTexts.size() == static_cast<std::size_t>(Keyword::With) + 1);

constexpr std::size_t longestKeyword = 15;
constexpr std::size_t slotCount = 256;

/// Letters of either case give the same slot.
constexpr std::size_t Slot(std::string_view word)
{
    std::size_t hash = word.size();
    for (const char c : word)
        hash = hash * 31 + (static_cast<unsigned char>(c) & 0x1FU);
    return hash % slotCount;
}

/// Where each keyword lies, at its slot or the next free one.
constexpr std::array<std::uint8_t, slotCount> FilledSlots()
{
    std::array<std::uint8_t, slotCount> slots{};
    for (std::size_t i = 1; i < keywordTexts.size(); ++i) {
        std::size_t slot = Slot(keywordTexts[i]);
        while (slots[slot] != 0)
            slot = (slot + 1) % slotCount;
        slots[slot] = static_cast<std::uint8_t>(i);
    }
    return slots;
}

constexpr std::array<std::uint8_t, slotCount> slots = FilledSlots();

}

Keyword FindKeyword(std::string_view word)
{
    if (word.size() > longestKeyword)
        return Keyword::None;
    for (std::size_t slot = Slot(word); slots[slot] != 0; slot = (slot + 1) % slotCount)
        if (EqualNoCase(keywordTexts[slots[slot]], word))
            return static_cast<Keyword>(slots[slot]);
    return Keyword::None;
}

}
