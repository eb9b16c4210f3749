#pragma once

#include "store/Tree.h"
#include "values/Text.h"
#include "values/Value.h"

namespace rovanta {

/// How one engine words what the engines word differently. What stands inside an expression comes written already.
class SqlDialect {
public:
    SqlDialect() = default;
    virtual ~SqlDialect() = default;
    SqlDialect(const SqlDialect&) = delete;
    SqlDialect& operator=(const SqlDialect&) = delete;

    /// A name as the engine takes any name. Throws DatabaseError for one that it cannot keep.
    virtual std::string Name(const std::string& name) const = 0;
    /// The place of a parameter, counted from 1.
    virtual std::string Mark(std::size_t parameter) const = 0;
    /// A value written out, for a place of that kind; a NULL of kind Unknown is the bare word.
    virtual std::string Written(const Value& value, TypeKind kind) const = 0;
    /// The name of a function that the program has brought to the engine.
    virtual std::string Function(const char* name) const = 0;

    /// The expression as a text that is compared, sorted or grouped: with the collation where it has none of its own.
    virtual std::string Collated(const Expression& expression, const std::string& text) const = 0;
    virtual std::string Arithmetic(const Expression& expression, const std::string& left,
                                   const std::string& right) const = 0;
    /// An aggregate, written as the call of its function, as the type that it has in the program's language.
    virtual std::string Aggregate(const Expression& expression, const std::string& text) const = 0;
    /// The conversion of a text that does not fit as it stands. `place` is the column of limited length that it goes
    /// to, empty for none.
    virtual std::string Conversion(const std::string& text, TypeKind from, const SqlType& to,
                                   const std::string& place) const = 0;
    virtual std::string Like(const Expression& expression, const std::string& text,
                             const std::string& pattern) const = 0;

    /// By what the engine finds a row of a table again.
    virtual std::string RowKey(const std::string& alias, const TableInfo& table) const = 0;
    /// A member of a UNION that bears a LIMIT of its own.
    virtual std::string LimitedMember(const std::string& select) const = 0;
    /// One item of an ORDER BY, with its direction and NULL as the lowest value.
    virtual std::string OrderItemText(const Query& query, const OrderItem& item, const std::string& text) const = 0;
    /// By what rows are ordered whose order the statement leaves open; empty where the engine's own order will do.
    virtual std::vector<std::string> TieBreakers(const Query&) const { return {}; }

    /// A column in a CREATE TABLE; an identity is the table's key.
    virtual std::string ColumnDefinition(const ColumnInfo& column) const = 0;
    virtual std::string IndexedColumn(const std::string& column) const = 0;
    /// What must have run before a table of that column can be made; empty for nothing.
    virtual std::string NeededFirst(const ColumnInfo&) const { return {}; }

    /// A text between apostrophes, which every engine takes.
    static std::string Quoted(const std::string& text) { return "'" + Replace(text, "'", "''") + "'"; }
};

}
