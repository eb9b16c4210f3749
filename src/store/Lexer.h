#pragma once

#include "store/Keywords.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

/// A LongWhole has ten digits or more and so may not fit an int. It is a kind of its own, for a statement with such a
/// number means other work than one with a short number.
enum class LiteralKind : std::uint8_t { Text, Whole, LongWhole, Decimal };

/// A value that stands in a statement's text: 'O''Brien' without its quotes, 120 or 12.5.
struct Literal {
    LiteralKind kind;
    std::string text;
};

/// Broken is a text or [name] without an end, behind which nothing can be read.
enum class TokenKind : std::uint8_t { Word, Bracketed, Literal, Symbol, Broken, End };

/// One piece of a statement: a name or keyword, a [name], a literal, or a symbol such as "<=".
struct Token {
    TokenKind kind;
    /// As it stands in the statement; of a [name] the name alone.
    std::string_view text;
    /// The keyword that a word is.
    Keyword keyword = Keyword::None;
    /// Which of the statement's literals this is.
    std::size_t literal = 0;
};

/// A statement cut into pieces. The tokens look into the text they were read from.
struct TokenList {
    std::vector<Token> tokens;
    std::vector<Literal> literals;
    /// The text with a mark of its kind in place of each literal: statements of one shape mean the same work, save
    /// where that rests on a literal by its value, which the plan then names.
    std::string shape;
};

/// Cuts a statement into tokens, the last of kind End or Broken. Comments of both kinds are blanks. Throws
/// DatabaseError with the piece that belongs to no statement.
TokenList ReadTokens(std::string_view text);

/// The statements of a script, parted by semicolons, without comments and empty ones.
std::vector<std::string> SplitScript(std::string_view script);

}
