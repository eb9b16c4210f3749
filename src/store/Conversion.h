#pragma once

#include "store/DatabaseError.h"
#include "store/SqlType.h"
#include "values/Value.h"

#include <string>

namespace rovanta {

/// `value`, of type `from`, as the database converts it to `to`: '' is 0 and January 1, 1900; a number is a true bit
/// unless it is 0; money keeps four decimals; a text is cut to the length of `to`. NULL stays NULL. Throws
/// DatabaseError with the database's text where the value does not convert.
Value Convert(const Value& value, TypeKind from, const SqlType& to);

/// What the database says where no value of `from` converts to `to`.
DatabaseError NotConvertible(TypeKind from, TypeKind to);

/// Whether every value of `from` is one of `to` as it stands, so that no conversion is needed.
bool FitsAsItStands(const SqlType& from, const SqlType& to);

/// An amount with the four decimals that money has. Throws DatabaseError beyond 922,337,203,685,477.5807.
double RoundMoney(double amount);

/// The kind of type that a value in hand has by itself.
TypeKind KindOf(const Value& value);

/// `text`, which is to go into a varchar of `length` characters, 0 for any number. Blanks too many at its end are cut;
/// a longer text throws "String or binary data would be truncated in <place>."
std::string FittedText(std::string text, int length, const std::string& place);

/// "table 'Tour', column 'TourName'", as error texts name a column.
std::string ColumnPlace(const std::string& table, const std::string& column);

}
