#pragma once

#include "values/DateTime.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

/// A value on its way into a statement, already proved harmless for its place by the function that made it.
class StatementValue {
public:
    std::string_view Get() const { return text; }

private:
    explicit StatementValue(std::string text) : text(std::move(text)) {}
    std::string text;

    friend StatementValue Text(std::string_view);
    friend StatementValue QuotedText(std::string_view);
    friend StatementValue Key(std::string_view);
    friend StatementValue Key(std::int64_t);
    friend StatementValue KeyList(const std::vector<std::string>&);
    friend StatementValue Number(double);
    friend StatementValue Flag(bool);
    friend StatementValue DateText(DateTime);
    friend StatementValue Name(std::string_view);
};

/// A text for between two apostrophes. An apostrophe in it raises the database's own syntax error: what must break
/// breaks, and nothing slips into the engine.
StatementValue Text(std::string_view text);
/// A text for between two apostrophes, its own apostrophes doubled: for the few places that guard their values.
StatementValue QuotedText(std::string_view text);
/// A record's key: a whole number. Any other text, an empty one included, raises a syntax error.
StatementValue Key(std::string_view key);
StatementValue Key(std::int64_t key);
/// Keys with commas between them, for an IN list. An empty list gives an empty text, which the database refuses.
StatementValue KeyList(const std::vector<std::string>& keys);
/// A number as it stands in a statement. Throws Overflow for an infinite one.
StatementValue Number(double number);
/// 1 or 0.
StatementValue Flag(bool flag);
/// A date for between two apostrophes, m/d/yyyy with the time behind it where there is one.
StatementValue DateText(DateTime date);

/// A table's or column's name: letters, digits and underscores. Any other text raises a syntax error.
StatementValue Name(std::string_view name);

/// A statement in the program's T-SQL, put together from literals of the program and values with a kind.
class Statement {
public:
    Statement() = default;
    /// Only string literals (and constant arrays of the program) convert to a statement; a std::string or a buffer does
    /// not.
    template <std::size_t N>
    Statement(const char (&literal)[N]) : text(literal)
    {
    }
    template <std::size_t N>
    Statement(char (&buffer)[N]) = delete;

    /// A statement that a person or a script wrote as a whole: the automation's queries, the schema script.
    static Statement Verbatim(std::string text);

    Statement& operator+=(const StatementValue& value);
    Statement& operator+=(const Statement& other);

    const std::string& Get() const { return text; }

private:
    std::string text;
};

Statement operator+(Statement statement, const StatementValue& value);
Statement operator+(Statement statement, const Statement& other);

}
