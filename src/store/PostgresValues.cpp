#include "store/PostgresValues.h"

#include "values/DateTime.h"

#include <array>
#include <charconv>

namespace rovanta {

namespace {

PostgresTypeNumber NumberOfType(TypeKind kind)
{
    switch (kind) {
    case TypeKind::Bit:
        return PostgresTypeNumber::Int2;
    case TypeKind::Int:
        return PostgresTypeNumber::Int4;
    case TypeKind::BigInt:
        return PostgresTypeNumber::Int8;
    case TypeKind::Money:
        return PostgresTypeNumber::Numeric;
    case TypeKind::Decimal:
    case TypeKind::Float:
        return PostgresTypeNumber::Float8;
    case TypeKind::DateTime:
        return PostgresTypeNumber::Timestamp;
    case TypeKind::Varchar:
    case TypeKind::Unknown:
        break;
    }
    return PostgresTypeNumber::Bpchar;
}

/// All digits that the number needs to come back the same.
std::string NumberText(double number)
{
    std::array<char, 40> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), written.ptr};
}

template <class Number>
Number ReadNumber(std::string_view text)
{
    Number number{};
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// "2026-03-02 09:30:00".
Value ReadTimestamp(std::string_view text)
{
    constexpr std::size_t fullLength = 19;
    const auto piece = [&](std::size_t at, std::size_t length) { return ReadNumber<int>(text.substr(at, length)); };
    if (text.size() == fullLength)
        return DateTime::Of(piece(0, 4), piece(5, 2), piece(8, 2), piece(11, 2), piece(14, 2), piece(17, 2));
    return std::string(text);
}

}

PostgresArgument ToPostgres(const Value& value, TypeKind kind)
{
    PostgresArgument argument{NumberOfType(kind), std::nullopt};
    const auto& content = value.Get();
    if (const auto* text = std::get_if<std::string>(&content))
        argument.text = *text;
    else if (const auto* whole = std::get_if<std::int64_t>(&content))
        argument.text = std::to_string(*whole);
    else if (const auto* number = std::get_if<double>(&content))
        argument.text = NumberText(*number);
    else if (const auto* flag = std::get_if<bool>(&content))
        argument.text = *flag ? "1" : "0";
    else if (const auto* date = std::get_if<DateTime>(&content))
        argument.text = ToLongIsoText(*date);
    return argument;
}

Value FromPostgres(std::string_view text, TypeKind kind)
{
    switch (kind) {
    case TypeKind::Bit:
        return text != "0";
    case TypeKind::Int:
    case TypeKind::BigInt:
        return ReadNumber<std::int64_t>(text);
    case TypeKind::Money:
    case TypeKind::Decimal:
    case TypeKind::Float:
        return ReadNumber<double>(text);
    case TypeKind::DateTime:
        return ReadTimestamp(text);
    default:
        return std::string(text);
    }
}

/// A place is "(12,3)": a block of the table, and a line in it below this.
static constexpr std::int64_t linesOfBlock = 65536;

std::int64_t RowKeyFromPostgres(std::string_view text)
{
    if (!text.starts_with('('))
        return ReadNumber<std::int64_t>(text);
    const auto comma = text.find(',');
    return ReadNumber<std::int64_t>(text.substr(1)) * linesOfBlock + ReadNumber<std::int64_t>(text.substr(comma + 1));
}

PostgresArgument PlaceOfRow(std::int64_t rowKey)
{
    return {PostgresTypeNumber::TupleId,
            "(" + std::to_string(rowKey / linesOfBlock) + "," + std::to_string(rowKey % linesOfBlock) + ")"};
}

SqlType TypeOfPostgresName(std::string_view name)
{
    struct NamedKind {
        std::string_view name;
        TypeKind kind;
    };
    constexpr std::array<NamedKind, 8> kinds{{{"int2", TypeKind::Bit},
                                              {"int4", TypeKind::Int},
                                              {"int8", TypeKind::BigInt},
                                              {"numeric", TypeKind::Money},
                                              {"float4", TypeKind::Float},
                                              {"float8", TypeKind::Float},
                                              {"date", TypeKind::DateTime},
                                              {"timestamp", TypeKind::DateTime}}};
    for (const NamedKind& named : kinds)
        if (named.name == name)
            return {named.kind};
    return ReadTypeDeclaration(name).value_or(SqlType{TypeKind::Varchar});
}

}
