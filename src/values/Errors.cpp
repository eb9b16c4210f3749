#include "values/Errors.h"

namespace rovanta {

static RunTimeError WithPlace(const std::string& text, const std::string& place)
{
    return RunTimeError(place.empty() ? text : text + ": " + place);
}

RunTimeError InvalidUseOfNull(const std::string& what)
{
    return WithPlace("Invalid use of Null", what);
}

RunTimeError TypeMismatch(const std::string& text)
{
    return WithPlace("Type mismatch", text.empty() ? text : "'" + text + "'");
}

RunTimeError Overflow()
{
    return RunTimeError("Overflow");
}

RunTimeError DivisionByZero()
{
    return RunTimeError("Division by zero");
}

}
