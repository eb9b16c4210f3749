#pragma once

#include "bench/BarePostgres.h"
#include "bench/BareSqlite.h"

namespace rovanta::bench {

/// The database of an office through the C API of its engine. Statements are written so that both engines take them:
/// names between double quotes, places as $1, $2, ... in their order, NULLS FIRST where an order may meet NULL.
class BareDatabase {
public:
    /// Opens what a connection text of the program names.
    explicit BareDatabase(const std::string& connectionText);

    void Run(const std::string& text)
    {
        std::visit([&](auto& one) { one.Run(text); }, engine);
    }
    /// By what a row of a table without an identity is found again.
    std::string RowKey() const
    {
        return std::visit([](const auto& one) { return one.rowKey; }, engine);
    }
    /// What an INSERT ends with whose new key is to be read.
    std::string ReturningKey() const
    {
        return std::visit([](const auto& one) { return one.returningKey; }, engine);
    }
    BarePostgres* Postgres() { return std::get_if<BarePostgres>(&engine); }
    /// Does at once what a server does by itself within a minute of many changes: without the dead rows and with the
    /// tables counted anew, its plans fit what is there. A file needs none of it.
    void KeepHouse();

private:
    friend class BareStatement;
    std::variant<BareSqlite, BarePostgres> engine;
};

/// One prepared statement on either engine.
class BareStatement {
public:
    BareStatement(BareDatabase& database, const std::string& text);

    template <class Value>
    void Bind(int place, Value value)
    {
        std::visit([&](auto& one) { one.Bind(place, value); }, statement);
    }
    void BindNull(int place)
    {
        std::visit([&](auto& one) { one.BindNull(place); }, statement);
    }
    /// Binds a row's values from that place on.
    void BindRow(const BareRow& row, int firstPlace = 1);

    /// True when there is a row.
    bool Step()
    {
        return std::visit([](auto& one) { return one.Step(); }, statement);
    }
    /// Makes ready for the next use.
    void Reset()
    {
        std::visit([](auto& one) { one.Reset(); }, statement);
    }
    /// Runs to the end and makes ready for the next use.
    void RunOnce();
    /// The same for an INSERT that ends as the database wants it, and the key of the new row.
    std::int64_t RunForKey();

    const char* Name(int column) const
    {
        return std::visit([&](const auto& one) { return one.Name(column); }, statement);
    }
    int Columns() const
    {
        return std::visit([](const auto& one) { return one.Columns(); }, statement);
    }
    std::int64_t Whole(int column)
    {
        return std::visit([&](auto& one) { return one.Whole(column); }, statement);
    }
    std::string Text(int column)
    {
        return std::visit([&](auto& one) { return one.Text(column); }, statement);
    }
    /// The values of the row, each of the kind that its column has.
    BareRow Row();

private:
    std::variant<BareSqliteStatement, BarePostgresStatement> statement;
};

}
