#pragma once

#include "store/Catalogue.h"
#include "store/Lexer.h"
#include "store/SqlType.h"

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace rovanta {

// The tree of a statement. The parser builds it; the binder then fills in what only the catalogue knows: types,
// sources, the columns behind a star, and the conversions that the dialect does unasked.

struct Query;

/// A column that a source of a FROM offers: a column of a table, or of a query in brackets.
struct SourceColumn {
    std::string name;
    SqlType type;
    /// The table and the column behind it; null where the value is computed.
    TablePointer table;
    const ColumnInfo* column = nullptr;
};

enum class ExpressionKind {
    Literal,
    Null,
    Column,
    Negate,
    Arithmetic,
    IsNullFunction,
    DateAdd,
    DateDiff,
    Aggregate,
    Cast,
    Convert,
    Subquery,
    // From here on conditions, which stand where a truth is asked for and nowhere else.
    Compare,
    And,
    Or,
    Not,
    IsNull,
    In,
    InQuery,
    Like,
};

enum class AggregateKind { Count, Sum, Minimum, Maximum, Average };

struct Expression {
    explicit Expression(ExpressionKind kind) : kind(kind) {}

    ExpressionKind kind;
    SqlType type;
    std::vector<std::unique_ptr<Expression>> operands;

    /// Column: its name. Arithmetic and Compare: the sign. DateAdd and DateDiff: the interval as the language names it.
    std::string name;
    /// Column: the name before the point, empty when there is none; the binder puts the source's name here.
    std::string qualifier;
    /// Literal: which one, whether a minus stands before it, and the type that it has by itself.
    std::size_t literal = 0;
    bool negative = false;
    TypeKind literalKind = TypeKind::Unknown;
    /// IsNull, In, InQuery, Like: whether a NOT stands in it.
    bool negated = false;
    AggregateKind aggregate = AggregateKind::Count;
    bool distinct = false;
    /// Subquery and InQuery.
    std::unique_ptr<Query> query;
    /// Column: where it comes from.
    const SourceColumn* source = nullptr;
    /// Literal and Convert on their way into a column of limited length: the column, for the error text.
    std::string place;

    bool IsCondition() const { return kind >= ExpressionKind::Compare; }
};

using ExpressionPointer = std::unique_ptr<Expression>;

enum class SourceKind { Table, Query, Join };
enum class JoinKind { Inner, Left, Cross };

/// One item of a FROM: a table, a query in brackets, or two sources joined.
struct Source {
    explicit Source(SourceKind kind) : kind(kind) {}

    SourceKind kind;
    /// Table: the table's name; the binder puts the catalogue's spelling here.
    std::string table;
    /// The name by which columns ask for it.
    std::string alias;
    std::unique_ptr<Query> query;
    JoinKind join = JoinKind::Inner;
    std::unique_ptr<Source> left;
    std::unique_ptr<Source> right;
    ExpressionPointer condition;
    std::vector<SourceColumn> columns;
};

/// One item of a SELECT: an expression under a name, or a star, which the binder replaces by the columns it stands for.
struct SelectItem {
    ExpressionPointer expression;
    std::string alias;
    bool star = false;
    std::string starQualifier;
};

struct Select {
    bool distinct = false;
    std::optional<std::size_t> top;
    std::vector<SelectItem> items;
    std::string into;
    std::unique_ptr<Source> from;
    ExpressionPointer where;
    std::vector<ExpressionPointer> groupBy;
    ExpressionPointer having;
};

struct OrderItem {
    ExpressionPointer expression;
    bool descending = false;
    /// The place among the result's columns that it names, counted from 1; 0 when it is an expression of its own.
    std::size_t position = 0;
};

/// A SELECT, or several joined by UNION, with the order of the whole.
struct Query {
    std::vector<Select> members;
    bool unionAll = false;
    std::vector<OrderItem> orderBy;
    /// What it delivers.
    std::vector<SourceColumn> columns;
    /// The one table whose rows it delivers, so that they can be written back; null where there is none.
    TablePointer updatable;
};

struct InsertStatement {
    std::string table;
    std::vector<std::string> columns;
    std::vector<std::vector<ExpressionPointer>> rows;
    std::unique_ptr<Query> query;
    TablePointer target;
};

struct Assignment {
    std::string column;
    ExpressionPointer value;
};

struct UpdateStatement {
    std::string table;
    std::vector<Assignment> assignments;
    ExpressionPointer where;
    std::unique_ptr<Source> target;
};

struct DeleteStatement {
    std::string table;
    ExpressionPointer where;
    std::unique_ptr<Source> target;
};

struct CreateTableStatement {
    std::string table;
    std::vector<ColumnInfo> columns;
    std::vector<std::string> primaryKey;
};

struct CreateIndexStatement {
    std::string index;
    std::string table;
    bool unique = false;
    std::vector<std::string> columns;
};

struct CreateViewStatement {
    std::string view;
    std::unique_ptr<Query> query;
};

struct DropStatement {
    TableKind kind = TableKind::Table;
    std::string name;
};

/// SET IDENTITY_INSERT: whether rows of a table may bring their own number.
struct IdentityInsertStatement {
    std::string table;
    bool on = false;
};

enum class TransactionStep { Begin, Commit, Rollback };

struct TransactionStatement {
    TransactionStep step;
};

using StatementTree = std::variant<std::unique_ptr<Query>, InsertStatement, UpdateStatement, DeleteStatement,
                                   CreateTableStatement, CreateIndexStatement, CreateViewStatement, DropStatement,
                                   IdentityInsertStatement, TransactionStatement>;

/// A statement as the front end holds it.
struct ParsedStatement {
    StatementTree tree;
    std::vector<Literal> literals;
    /// The literals whose value, and not only whose place, the tree rests on: a length, for example.
    std::vector<std::size_t> fixedLiterals;
};

}
