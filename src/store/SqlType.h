#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rovanta {

/// The kinds of the dialect's types, in order of precedence: of two kinds that meet, the lower is converted to the
/// higher.
enum class TypeKind { Unknown, Varchar, Bit, Int, BigInt, Money, Decimal, Float, DateTime };

/// The type of a column or an expression. A bare NULL is of kind Unknown; Decimal is the kind of a literal like 12.5
/// and of nothing else.
struct SqlType {
    TypeKind kind = TypeKind::Unknown;
    /// The most characters that a varchar holds; 0 stands for varchar(max).
    int length = 0;

    bool operator==(const SqlType&) const = default;
};

/// Whether values of this kind are numbers; a bit counts as one.
bool IsNumber(TypeKind kind);
/// Whether values of this kind are whole numbers.
bool IsWhole(TypeKind kind);

/// "varchar", "int" and so on, as error texts name a type.
std::string_view TypeName(TypeKind kind);
/// The type as a CREATE TABLE writes it: "varchar(100)", "varchar(max)", "money".
std::string TypeDeclaration(const SqlType& type);

/// The kind of that name, without regard to case; nothing for a type that this system does not use.
std::optional<TypeKind> FindTypeKind(std::string_view name);
/// Reads a declaration as TypeDeclaration writes it; "integer" counts as int.
std::optional<SqlType> ReadTypeDeclaration(std::string_view declaration);

}
