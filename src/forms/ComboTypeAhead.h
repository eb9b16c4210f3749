#pragma once

#include "forms/ListControls.h"

#include <string>

namespace rovanta {

/// What the search by first letters remembers between two keys; one record for all combos of a program.
struct TypeAheadState {
    double lastKeyTime = 0; ///< seconds since midnight
    std::string searchText;
    const ComboBox* lastCombo = nullptr;
};

/// Takes one key pressed in `combo`: gathers it, or starts afresh after `keyPressDelay` seconds or in another combo,
/// and chooses the first entry that begins with what was gathered, in any case. Every key is swallowed: `key` comes
/// back empty. `now` is in seconds since midnight; a key after midnight follows one before it without a time-out.
void ComboTypeAhead(ComboBox& combo, std::string& key, TypeAheadState& state, double now, double keyPressDelay);

}
