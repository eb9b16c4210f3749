#pragma once

#include "desktop/Layout.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace rovanta {

using LayoutTable = std::map<std::string, Node (*)(), std::less<>>;

/// The layout of every screen by the screen's name; the main window has none.
const LayoutTable& AllLayouts();

/// The layout of that screen; throws std::logic_error when there is none.
Node LayoutOf(std::string_view screen);

}
