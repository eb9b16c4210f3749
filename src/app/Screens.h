#pragma once

#include "frame/Screen.h"

namespace rovanta {

/// Every screen of the program by its name.
const ScreenTable& AllScreens();

}
