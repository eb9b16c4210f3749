#pragma once

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>

namespace rovanta {

using Json = nlohmann::json;

/// The named parameters of a call. A missing one or one of a wrong kind raises an RpcError that names it.
class Parameters {
public:
    explicit Parameters(const Json& values) : values(values) {}

    bool Has(const char* name) const;
    /// The value of any kind but null.
    const Json& Get(const char* name) const;
    std::string Text(const char* name) const;
    int Number(const char* name) const;
    bool Flag(const char* name) const;

private:
    const Json& values;
};

/// A whole number that a JSON value is; nothing for any other value.
std::optional<int> WholeNumber(const Json& value);

/// What a person types for a JSON value: a text as it stands, a number or a flag as the language writes it.
/// `name` is the parameter, for the RpcError of a list or an object.
std::string TypedText(const Json& value, const char* name);
/// On or off, given as true or false, 1 or 0, or as one of these words.
bool TypedFlag(const Json& value, const char* name);

}
