#pragma once

#include "store/RowSet.h"
#include "store/Tree.h"

namespace rovanta {

/// How a literal of the statement's text is bound where the plan runs.
struct Parameter {
    std::size_t literal;
    bool negative = false;
    TypeKind from = TypeKind::Unknown;
    SqlType to;
    /// The column of limited length that it goes to, for the error text; empty for none.
    std::string place;
};

/// A literal that the plan rests on by its value.
struct FixedLiteral {
    std::size_t literal;
    std::string text;
};

enum class PlanKind { Query, Change, Definition, IdentityInsert, Transaction };

/// What an engine runs for all statements of one shape.
struct Plan {
    PlanKind kind = PlanKind::Change;
    /// In the engine's own language. The parameters are those of the last.
    std::vector<std::string> statements;
    std::vector<Parameter> parameters;
    std::vector<FixedLiteral> fixed;
    /// Query: what it delivers.
    std::shared_ptr<const ResultShape> shape;
    /// Change: the table whose new rows bring their own number; null where none do.
    TablePointer numbered;
    IdentityInsertStatement identityInsert;
    TransactionStep transaction = TransactionStep::Begin;

    /// Whether it holds for a statement of its shape with these literals.
    bool Fits(const std::vector<Literal>& literals) const;
};

/// The value that a literal stands for at its place. Throws DatabaseError where it does not convert.
Value ParameterValue(const Parameter& parameter, const std::vector<Literal>& literals);

/// The literal as it stands, without a conversion.
Value LiteralAsValue(const Literal& literal, bool negative);

}
