#pragma once

#include <stdexcept>
#include <string>

namespace rovanta {

/// A failure that ends the program with its text, as the language's own run-time errors do.
class RunTimeError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A NULL met where a text, a number or a date is needed. `what` names the place, for example a column.
RunTimeError InvalidUseOfNull(const std::string& what = {});

/// A text that does not read as the number or date that is needed.
RunTimeError TypeMismatch(const std::string& text = {});

/// A number beyond its type.
RunTimeError Overflow();

/// A division by zero.
RunTimeError DivisionByZero();

}
