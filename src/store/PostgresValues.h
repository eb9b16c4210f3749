#pragma once

#include "store/Plan.h"
#include "store/PostgresSession.h"

namespace rovanta {

/// A value on its way to the server, for a place of that kind.
PostgresArgument ToPostgres(const Value& value, TypeKind kind);

/// A value as the server writes it, of that kind.
Value FromPostgres(std::string_view text, TypeKind kind);

/// By what a row is found again: its number, or the place of its version in the table as one number.
std::int64_t RowKeyFromPostgres(std::string_view text);

/// That place, as the server takes it.
PostgresArgument PlaceOfRow(std::int64_t rowKey);

/// The dialect's type behind the name of a server's type.
SqlType TypeOfPostgresName(std::string_view name);

}
