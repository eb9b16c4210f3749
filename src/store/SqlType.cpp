#include "store/SqlType.h"

#include "values/Text.h"

#include <array>
#include <charconv>

namespace rovanta {

namespace {

struct NamedKind {
    std::string_view name;
    TypeKind kind;
};

constexpr std::array<NamedKind, 7> columnKinds{{{"varchar", TypeKind::Varchar},
                                                {"bit", TypeKind::Bit},
                                                {"int", TypeKind::Int},
                                                {"bigint", TypeKind::BigInt},
                                                {"money", TypeKind::Money},
                                                {"float", TypeKind::Float},
                                                {"datetime", TypeKind::DateTime}}};

}

bool IsNumber(TypeKind kind)
{
    return kind >= TypeKind::Bit && kind <= TypeKind::Float;
}

bool IsWhole(TypeKind kind)
{
    return kind >= TypeKind::Bit && kind <= TypeKind::BigInt;
}

std::string_view TypeName(TypeKind kind)
{
    if (kind == TypeKind::Decimal)
        return "numeric";
    for (const NamedKind& named : columnKinds)
        if (named.kind == kind)
            return named.name;
    return "NULL";
}

std::string TypeDeclaration(const SqlType& type)
{
    std::string declaration(TypeName(type.kind));
    if (type.kind == TypeKind::Varchar)
        declaration += type.length == 0 ? "(max)" : "(" + std::to_string(type.length) + ")";
    return declaration;
}

std::optional<TypeKind> FindTypeKind(std::string_view name)
{
    for (const NamedKind& named : columnKinds)
        if (EqualNoCase(named.name, name))
            return named.kind;
    return std::nullopt;
}

std::optional<SqlType> ReadTypeDeclaration(std::string_view declaration)
{
    if (EqualNoCase(declaration, "integer"))
        return SqlType{TypeKind::Int};
    const auto bracket = declaration.find('(');
    const auto kind = FindTypeKind(declaration.substr(0, bracket));
    if (!kind)
        return std::nullopt;
    SqlType type{*kind};
    if (*kind == TypeKind::Varchar && bracket != std::string_view::npos) {
        const std::string_view length = declaration.substr(bracket + 1);
        std::from_chars(length.data(), length.data() + length.size(), type.length);
    }
    return type;
}

}
