#include "bench/BareDatabase.h"

#include "store/ConnectionText.h"

namespace rovanta::bench {

namespace {

std::variant<BareSqlite, BarePostgres> Open(const std::string& connectionText)
{
    if (ChooseEngine(connectionText) == EngineKind::Postgres)
        return BarePostgres(connectionText);
    return BareSqlite(DatabaseFile(connectionText));
}

using EitherStatement = std::variant<BareSqliteStatement, BarePostgresStatement>;

EitherStatement Prepare(BareSqlite& database, const std::string& text)
{
    return BareSqliteStatement(database, text);
}

EitherStatement Prepare(BarePostgres& database, const std::string& text)
{
    return BarePostgresStatement(database, text);
}

}

BareDatabase::BareDatabase(const std::string& connectionText) : engine(Open(connectionText)) {}

void BareDatabase::KeepHouse()
{
    if (Postgres() == nullptr)
        return;
    Run("VACUUM ANALYZE");
    // None falls due among what is measured.
    Run("CHECKPOINT");
}

BareStatement::BareStatement(BareDatabase& database, const std::string& text)
    : statement(std::visit([&](auto& one) { return Prepare(one, text); }, database.engine))
{
}

void BareStatement::BindRow(const BareRow& row, int firstPlace)
{
    int place = firstPlace;
    for (const BareValue& value : row) {
        if (const auto* whole = std::get_if<std::int64_t>(&value))
            Bind(place, *whole);
        else if (const auto* number = std::get_if<double>(&value))
            Bind(place, *number);
        else if (const auto* text = std::get_if<std::string>(&value))
            Bind(place, std::string_view(*text));
        else
            BindNull(place);
        ++place;
    }
}

void BareStatement::RunOnce()
{
    while (Step()) {
    }
    Reset();
}

std::int64_t BareStatement::RunForKey()
{
    Step();
    const std::int64_t key = std::visit([](auto& one) { return one.NewKey(); }, statement);
    Reset();
    return key;
}

BareRow BareStatement::Row()
{
    return std::visit(
        [](auto& one) {
            BareRow row;
            const int columns = one.Columns();
            row.reserve(static_cast<std::size_t>(columns));
            for (int column = 0; column < columns; ++column)
                row.push_back(one.Value(column));
            return row;
        },
        statement);
}

}
