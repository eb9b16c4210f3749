#include "store/Plan.h"

#include "store/Conversion.h"

#include <algorithm>
#include <charconv>

namespace rovanta {

bool Plan::Fits(const std::vector<Literal>& literals) const
{
    return std::all_of(fixed.begin(), fixed.end(),
                       [&](const FixedLiteral& one) { return literals[one.literal].text == one.text; });
}

Value LiteralAsValue(const Literal& literal, bool negative)
{
    const char* const end = literal.text.data() + literal.text.size();
    if (literal.kind == LiteralKind::Whole || literal.kind == LiteralKind::LongWhole) {
        std::int64_t number = 0;
        std::from_chars(literal.text.data(), end, number);
        return negative ? -number : number;
    }
    if (literal.kind == LiteralKind::Decimal) {
        double number = 0;
        std::from_chars(literal.text.data(), end, number);
        return negative ? -number : number;
    }
    return literal.text;
}

Value ParameterValue(const Parameter& parameter, const std::vector<Literal>& literals)
{
    Value value = LiteralAsValue(literals[parameter.literal], parameter.negative);
    if (!parameter.place.empty())
        return FittedText(Convert(value, parameter.from, {TypeKind::Varchar}).Text(), parameter.to.length,
                          parameter.place);
    return Convert(value, parameter.from, parameter.to);
}

}
