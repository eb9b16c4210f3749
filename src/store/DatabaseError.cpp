#include "store/DatabaseError.h"

namespace rovanta {

DatabaseError SyntaxErrorNear(const std::string& token)
{
    return DatabaseError("Incorrect syntax near '" + token + "'.");
}

}
