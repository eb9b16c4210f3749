#pragma once

#include "store/DatabaseError.h"
#include "tests/store/TestOffice.h"

#include <string>

namespace rovanta {

/// Runs any text at all as a statement on an office and takes back whatever it did. The database may refuse it, but in
/// no other way than by a DatabaseError with a text.
inline void TryAnyText(TestOffice& office, const std::string& text)
{
    office.Execute("BEGIN TRANSACTION");
    try {
        office.Execute(text);
    } catch (const DatabaseError& error) {
        if (std::string(error.what()).empty())
            throw std::logic_error("an error without a text for: " + text);
    }
    try {
        office.Execute("ROLLBACK TRANSACTION");
    } catch (const DatabaseError&) {
        // The text was itself the end of the transaction.
    }
    office.Execute("SET IDENTITY_INSERT Tour OFF");
}

}
