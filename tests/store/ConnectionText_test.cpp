#include <doctest/doctest.h>

#include "store/ConnectionText.h"
#include "store/DatabaseError.h"
#include "store/OdbcText.h"

using namespace rovanta;

TEST_CASE("The connection text chooses the engine")
{
    struct Trial {
        const char* text;
        EngineKind engine;
    };
    for (const Trial& trial : {Trial{"rovanta.db", EngineKind::Sqlite},
                               {"sqlite:/srv/office's data/a=b.db", EngineKind::Sqlite},
                               {"postgresql://office@db/rovanta", EngineKind::Postgres},
                               {"Postgres://office@db/rovanta", EngineKind::Postgres},
                               {"Driver={FreeTDS};Server=db", EngineKind::SqlServer},
                               {"dsn=rovanta", EngineKind::SqlServer},
                               {"Server=db; Driver = {FreeTDS}", EngineKind::SqlServer}}) {
        CAPTURE(trial.text);
        CHECK(ChooseEngine(trial.text) == trial.engine);
    }
    for (const char* text : {"", "sqlite:", "mysql://db/rovanta", "postgresql:db", "Server=db;Database=rovanta"}) {
        CAPTURE(text);
        CHECK_THROWS_AS(ChooseEngine(text), DatabaseError);
    }
}

TEST_CASE("Blanks around the words of an ODBC text do not count")
{
    const OdbcText text("Server = db ; Driver = {Free TDS}; PWD={a;b}}c}");
    CHECK(text.Get("server") == "db");
    CHECK(text.Get("Driver") == "Free TDS");
    CHECK(text.Get("PWD") == "a;b}c");
    CHECK(text.Has("Pwd"));
    CHECK_FALSE(text.Has("DSN"));
}

TEST_CASE("A connection text is asked whether it holds a password")
{
    for (const char* text :
         {"postgresql://office:secret@db/rovanta", "postgresql://office@db/rovanta?sslmode=require&password=secret",
          "Driver={FreeTDS};Server=db;UID=office;PWD=secret", "DSN=rovanta;UID=office;pwd={a;b}",
          "DSN=rovanta;Password=secret", "DSN=rovanta;UID=office;PWD=sec;ret", "mysql://office:secret@db/rovanta"}) {
        CAPTURE(text);
        CHECK(HoldsPassword(text));
    }
    for (const char* text : {"rovanta.db", "sqlite:/srv/PWD=secret/rovanta.db", "postgresql://office@db/rovanta",
                             "postgresql:///rovanta?host=/run", "DSN=rovanta;UID=office"}) {
        CAPTURE(text);
        CHECK_FALSE(HoldsPassword(text));
    }
}
