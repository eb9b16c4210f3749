#pragma once

#include "store/Tree.h"

namespace rovanta {

/// Fills in what only the catalogue knows: the type of each expression, the source of each column, the columns behind
/// each star, and a conversion wherever the dialect converts unasked. `identityInsertTable` is the table whose rows may
/// bring their own number, empty for none. Throws DatabaseError for names that do not exist and types that do not meet.
void BindStatement(ParsedStatement& statement, Catalogue& catalogue, const std::string& identityInsertTable);

}
