#pragma once

#include <cstdint>
#include <string_view>

namespace rovanta {

/// The words of the dialect that never stand for a name without brackets. Some are here to be refused: they would begin
/// something that this system does not use.
enum class Keyword : std::uint8_t {
    None,
    All,
    And,
    As,
    Asc,
    Begin,
    Between,
    By,
    Case,
    Clustered,
    Commit,
    Constraint,
    Create,
    Cross,
    Delete,
    Desc,
    Distinct,
    Drop,
    Else,
    End,
    Exists,
    From,
    Full,
    Group,
    Having,
    Identity,
    IdentityInsert,
    In,
    Index,
    Inner,
    Insert,
    Into,
    Is,
    Join,
    Key,
    Left,
    Like,
    Nonclustered,
    Not,
    Null,
    Off,
    On,
    Or,
    Order,
    Outer,
    Primary,
    Right,
    Rollback,
    Select,
    Set,
    Table,
    Top,
    Tran,
    Transaction,
    Union,
    Unique,
    Update,
    User,
    Values,
    View,
    Where,
    With,
};

/// The keyword that a word is, without regard to case; None for a name.
Keyword FindKeyword(std::string_view word);

}
