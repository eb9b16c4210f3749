#pragma once

#include "store/Connection.h"

#include <string>
#include <vector>

namespace rovanta {

/// The stored texts whose apostrophe breaks a statement of the program, a line each with the row's key. Throws
/// DatabaseError.
std::vector<std::string> TextsThatBreak(Connection& connection);

}
