#include <doctest/doctest.h>

#include "store/DatabaseError.h"
#include "store/Engine.h"
#include "store/Transaction.h"
#include "tests/store/TestOffice.h"

using namespace rovanta;

static const char* const names = "SELECT Name FROM Driver ORDER BY ID";

TEST_CASE("What a transaction does stays when it is committed and not when it is left")
{
    TestOffice office;
    {
        Transaction left(office.connection);
        office.Execute("INSERT INTO Driver (Name) VALUES ('Left')");
    }
    CHECK(RowsOf(office, names).empty());
    Transaction kept(office.connection);
    office.Execute("INSERT INTO Driver (Name) VALUES ('Kept')");
    CHECK_THROWS_AS(Transaction(office.connection), DatabaseError);
    kept.Commit();
    CHECK_THROWS_AS(kept.Commit(), DatabaseError);
    CHECK(RowsOf(office, names) == std::vector<std::string>{"'Kept'"});
}

TEST_CASE("A transaction whose connection is lost cannot be committed, and is left in silence")
{
    TestOffice office;
    {
        Transaction lost(office.connection);
        office.Execute("INSERT INTO Driver (Name) VALUES ('Lost')");
        office.connection.Close();
        CHECK_THROWS_AS(lost.Commit(), DatabaseError);
    }
    office.connection.Open(office.Text());
    CHECK(RowsOf(office, names).empty());
}

TEST_CASE("A transaction of one moment sees nothing of a save that comes meanwhile, and nobody waits for it")
{
    TestOffice office;
    Connection desk;
    desk.Open(office.Text());
    desk.Execute("INSERT INTO Driver (Name) VALUES ('Early')");
    {
        const Transaction oneMoment(office.connection, Transaction::Sees::OneMoment);
        CHECK(RowsOf(office, names) == std::vector<std::string>{"'Early'"});
        desk.Execute("INSERT INTO Driver (Name) VALUES ('Late')");
        CHECK(RowsOf(office, names) == std::vector<std::string>{"'Early'"});
    }
    CHECK(RowsOf(office, names) == std::vector<std::string>{"'Early'", "'Late'"});
    Transaction next(office.connection);
    office.Execute("DELETE FROM Driver WHERE Name = 'Early'");
    next.Commit();
    CHECK(RowsOf(office, names) == std::vector<std::string>{"'Late'"});
}

TEST_CASE("The last number of a table is the highest that a row has had")
{
    TestOffice office;
    Engine& engine = office.connection.GetEngine();
    const auto last = [&] { return engine.LastNumber(*engine.Tables().Find("Driver")); };
    CHECK(last() == 0);
    for (int i = 0; i < 3; ++i)
        office.Execute("INSERT INTO Driver (Name) VALUES ('Any')");
    CHECK(last() == 3);
    office.Execute("DELETE FROM Driver WHERE ID > 1");
    CHECK(last() == 3);
    office.Execute("SET IDENTITY_INSERT Driver ON");
    office.Execute("INSERT INTO Driver (ID,Name) VALUES (40,'Far')");
    office.Execute("SET IDENTITY_INSERT Driver OFF");
    CHECK(last() == 40);
    office.Execute("DELETE FROM Driver");
    CHECK(last() == 40);
}
