#include "values/Value.h"

#include "values/Errors.h"
#include "values/Numbers.h"
#include "values/Text.h"

namespace rovanta {

namespace {

template <class... Cases>
struct Match : Cases... {
    using Cases::operator()...;
};

template <class... Cases>
Match(Cases...) -> Match<Cases...>;

}

std::string Value::Text() const
{
    return std::visit(Match{[](Null) -> std::string { throw InvalidUseOfNull(); },
                            [](const std::string& text) { return text; },
                            [](const auto& other) { return ToText(other); }},
                      content);
}

std::string Value::TextOrEmpty() const
{
    return IsNull() ? std::string{} : Text();
}

double Value::Number() const
{
    return std::visit(
        Match{[](Null) -> double { throw InvalidUseOfNull(); }, [](bool flag) { return flag ? -1.0 : 0.0; },
              [](std::int64_t number) { return static_cast<double>(number); }, [](double number) { return number; },
              [](DateTime date) -> double { throw TypeMismatch(ToText(date)); },
              [](const std::string& text) { return CDbl(text); }},
        content);
}

bool Value::Flag() const
{
    return std::visit(Match{[](Null) -> bool { throw InvalidUseOfNull(); }, [](bool flag) { return flag; },
                            [](std::int64_t number) { return number != 0; }, [](double number) { return number != 0; },
                            [](DateTime date) -> bool { throw TypeMismatch(ToText(date)); },
                            [](const std::string& text) {
                                if (EqualNoCase(text, "True"))
                                    return true;
                                if (EqualNoCase(text, "False"))
                                    return false;
                                return CDbl(text) != 0;
                            }},
                      content);
}

DateTime Value::Date() const
{
    return std::visit(Match{[](Null) -> DateTime { throw InvalidUseOfNull(); }, [](DateTime date) { return date; },
                            [](const std::string& text) { return ToDate(text); },
                            [](const auto& other) -> DateTime { throw TypeMismatch(ToText(other)); }},
                      content);
}

}
