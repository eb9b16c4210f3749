#pragma once

#include "store/Tree.h"

namespace rovanta {

/// Reads one statement of the dialect. What the dialect does not have throws DatabaseError naming the token.
ParsedStatement ParseStatement(TokenList tokens);

}
