#pragma once

#include "values/DateTime.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace rovanta {

/// The database's NULL.
struct Null {
    bool operator==(const Null&) const = default;
};

/// What a column of a row can hold: NULL, a flag, a whole number, a number, a date or a text (UTF-8).
class Value {
public:
    using Content = std::variant<Null, bool, std::int64_t, double, DateTime, std::string>;

    Value() = default;
    Value(Null) {}
    Value(bool value) : content(value) {}
    Value(int value) : content(static_cast<std::int64_t>(value)) {}
    Value(std::int64_t value) : content(value) {}
    Value(double value) : content(value) {}
    Value(DateTime value) : content(value) {}
    Value(std::string value) : content(std::move(value)) {}
    Value(std::string_view value) : content(std::string(value)) {}
    Value(const char* value) : content(std::string(value)) {}

    bool IsNull() const { return std::holds_alternative<Null>(content); }
    bool IsText() const { return std::holds_alternative<std::string>(content); }
    bool IsDate() const { return std::holds_alternative<DateTime>(content); }
    const Content& Get() const { return content; }

    /// The value as the language turns it into a text: numbers by ToText, dates m/d/yyyy, flags "True" and "False".
    /// A NULL throws InvalidUseOfNull.
    std::string Text() const;
    /// As Text, but a NULL gives the empty text: the guard that the screens put around every optional column.
    std::string TextOrEmpty() const;
    /// As a number; a text must be one whole number text, a true flag is -1. Throws InvalidUseOfNull or TypeMismatch.
    double Number() const;
    /// As a truth value: any number but 0, the texts "True" and "False". Throws InvalidUseOfNull or TypeMismatch.
    bool Flag() const;
    /// As a date; a text must read as one. Throws InvalidUseOfNull or TypeMismatch.
    DateTime Date() const;

    bool operator==(const Value&) const = default;

private:
    Content content;
};

}
