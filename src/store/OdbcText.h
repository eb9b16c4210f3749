#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace rovanta {

/// A connection text for ODBC, cut into its pairs: "Driver={FreeTDS};Server=db;Port=1433". A value in braces may hold
/// semicolons, and a closing brace doubled.
class OdbcText {
public:
    explicit OdbcText(std::string_view text);

    bool Has(std::string_view key) const;
    /// The value of that key without regard to case; empty when there is none.
    std::string Get(std::string_view key) const;
    /// A number of seconds under that key, between 1 and `most`, and `most` when there is none. Throws DatabaseError
    /// for anything else.
    int Seconds(std::string_view key, int most) const;
    /// The text for the driver: all pairs but those that are the program's own.
    std::string ForDriver() const;
    /// The whole text with another value under that key.
    std::string With(std::string_view key, const std::string& value) const;
    /// The server as the text names it, with its port; empty where it names none.
    std::string Server() const;

private:
    std::vector<std::pair<std::string, std::string>> pairs;
};

/// What the connection text may say beyond what the driver understands: how long signing in and how long one statement
/// may take, in seconds.
inline constexpr std::string_view loginTimeoutKey = "LoginTimeout";
inline constexpr std::string_view queryTimeoutKey = "QueryTimeout";

}
