#pragma once

#include "values/Errors.h"

namespace rovanta {

/// What the database answers when a statement, a connection or an `Update` fails; the text is the database's own.
class DatabaseError : public RunTimeError {
public:
    using RunTimeError::RunTimeError;
};

/// "Incorrect syntax near '...'."
DatabaseError SyntaxErrorNear(const std::string& token);

}
