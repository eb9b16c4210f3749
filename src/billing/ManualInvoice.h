#pragma once

#include "frame/Company.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace rovanta {

/// An account word of a manual line; the taxable flag that is its default, nothing for one that is always taxed.
struct ManualAccount {
    std::string_view name;
    std::optional<Taxable::Index> taxable;
};

/// The accounts in the order of their list.
std::span<const ManualAccount> ManualAccounts();

/// Whether an account's line is taxed by default.
bool IsTaxedByDefault(const ManualAccount& account, const std::array<bool, Taxable::Count>& defaults);

/// Whether an account's lines bear dates and a bus type: bus income reports rest on these three alone.
bool BearsDates(std::string_view account);

/// The bus type of a line: what it has already, else the word of the three accounts that have one.
std::string BusTypeFor(const std::string& busType, std::string_view account);

}
