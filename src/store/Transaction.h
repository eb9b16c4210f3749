#pragma once

#include "store/Connection.h"

namespace rovanta {

/// A transaction of a connection, rolled back when its life ends unless it was committed before.
class Transaction {
public:
    /// What its statements see of what others save meanwhile.
    enum class Sees {
        AllSaves,
        OneMoment, ///< none of it; such a transaction only reads
    };

    /// Begins it. Throws DatabaseError.
    explicit Transaction(Connection& connection, Sees sees = Sees::AllSaves);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Throws DatabaseError; what was not committed is rolled back.
    void Commit();

private:
    Connection& connection;
    bool open = true;
};

}
