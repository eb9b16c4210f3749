#include "store/Transaction.h"

#include "store/DatabaseError.h"
#include "store/Engine.h"

namespace rovanta {

Transaction::Transaction(Connection& connection, Sees sees) : connection(connection)
{
    if (sees == Sees::OneMoment)
        connection.GetEngine().BeginSnapshot();
    else
        connection.Execute("BEGIN TRANSACTION");
}

Transaction::~Transaction()
{
    if (!open)
        return;
    try {
        connection.Execute("ROLLBACK TRANSACTION");
    } catch (const DatabaseError&) {
        // The connection is lost, and the transaction with it.
    }
}

void Transaction::Commit()
{
    connection.Execute("COMMIT TRANSACTION");
    open = false;
}

}
