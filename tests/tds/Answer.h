#pragma once

#include "store/RowSet.h"
#include "tests/tds/Wire.h"

#include <string>

namespace rovanta::tds {

/// What the server answers to one message.
class Answer {
public:
    /// A result set: its columns and its rows.
    void Rows(const RowSet& rows);
    /// The end of one statement. Where another follows in the batch, `more`.
    void Done(bool more, std::int64_t rowsChanged);
    void DoneWithError();
    void Cancelled();
    void Error(int number, int severity, const std::string& text);
    void SignedIn(const std::string& database);

    const std::string& Get() const { return bytes.Get(); }

private:
    void Done(unsigned status, std::int64_t rowCount);
    void Changed(unsigned what, const std::string& to, const std::string& from);

    Bytes bytes;
};

}
