#pragma once

#include <string>

namespace rovanta::tests {

/// Whether hands alone can do all that the story does: it neither starts a second program nor calls a method.
bool IsForHands(const std::string& story);

/// Plays a story of tests/stories on the real widgets: what it sets is typed, what it picks and clicks is clicked, and
/// what it expects of a box is read from the widget. Returns what differs, an empty text when nothing does.
std::string PlayOnWidgets(const std::string& story);

}
