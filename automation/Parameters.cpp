#include "automation/Parameters.h"

#include "automation/RpcError.h"
#include "values/Numbers.h"
#include "values/Text.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>

namespace rovanta {

static RpcError Wrong(const char* name, const char* wanted)
{
    return BadParameters(std::string("The parameter \"") + name + "\" must be " + wanted + ".");
}

bool Parameters::Has(const char* name) const
{
    const auto found = values.find(name);
    return found != values.end() && !found->is_null();
}

const Json& Parameters::Get(const char* name) const
{
    if (!Has(name))
        throw BadParameters(std::string("The parameter \"") + name + "\" is missing.");
    return *values.find(name);
}

std::string Parameters::Text(const char* name) const
{
    const Json& value = Get(name);
    if (!value.is_string())
        throw Wrong(name, "a text");
    return value.get<std::string>();
}

int Parameters::Number(const char* name) const
{
    const std::optional<int> number = WholeNumber(Get(name));
    if (!number)
        throw Wrong(name, "a whole number");
    return *number;
}

bool Parameters::Flag(const char* name) const
{
    const Json& value = Get(name);
    if (!value.is_boolean())
        throw Wrong(name, "true or false");
    return value.get<bool>();
}

std::optional<int> WholeNumber(const Json& value)
{
    if (!value.is_number())
        return std::nullopt;
    const double number = value.get<double>();
    const bool fits = number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
    if (!fits || number != std::trunc(number))
        return std::nullopt;
    return static_cast<int>(number);
}

std::string TypedText(const Json& value, const char* name)
{
    if (value.is_string())
        return value.get<std::string>();
    if (value.is_boolean())
        return ToText(value.get<bool>());
    if (value.is_number_float())
        return ToText(value.get<double>());
    if (value.is_number())
        return value.dump();
    throw Wrong(name, "a text, a number, true or false");
}

bool TypedFlag(const Json& value, const char* name)
{
    if (value.is_boolean())
        return value.get<bool>();
    const std::string word = value.is_string() || value.is_number() ? TypedText(value, name) : std::string{};
    if (word == "1" || EqualNoCase(word, "true"))
        return true;
    if (word == "0" || EqualNoCase(word, "false"))
        return false;
    throw Wrong(name, "true or false, 1 or 0");
}

}
