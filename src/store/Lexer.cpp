#include "store/Lexer.h"

#include "store/DatabaseError.h"

namespace rovanta {

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// A letter, an underscore or a byte of a character beyond ASCII.
bool BeginsWord(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

class Reader {
public:
    explicit Reader(std::string_view text) : text(text)
    {
        list.shape.reserve(text.size());
        list.tokens.reserve(text.size() / 3 + 8);
    }

    TokenList Read()
    {
        while (true) {
            SkipBlanks();
            if (at == text.size())
                break;
            ReadToken();
        }
        list.tokens.push_back({TokenKind::End, {}, Keyword::None, 0});
        return std::move(list);
    }

private:
    char Peek(std::size_t ahead = 0) const { return at + ahead < text.size() ? text[at + ahead] : '\0'; }

    /// Any run of blanks and comments is one blank of the shape.
    void SkipBlanks()
    {
        const std::size_t start = at;
        while (at < text.size()) {
            if (IsBlank(text[at]))
                ++at;
            else if (Peek() == '-' && Peek(1) == '-')
                at = std::min(text.find('\n', at), text.size());
            else if (Peek() == '/' && Peek(1) == '*')
                SkipBlockComment();
            else
                break;
        }
        if (at != start)
            list.shape += ' ';
    }

    void SkipBlockComment()
    {
        const auto end = text.find("*/", at + 2);
        if (end == std::string_view::npos)
            throw DatabaseError("Missing end comment mark '*/'.");
        at = end + 2;
    }

    void ReadToken()
    {
        const char c = Peek();
        if (BeginsWord(c))
            ReadWord();
        else if (IsDigit(c) || (c == '.' && IsDigit(Peek(1))))
            ReadNumber();
        else if (c == '\'')
            ReadText();
        else if (c == '[')
            ReadBracketed();
        else
            ReadSymbol();
    }

    void Add(TokenKind kind, std::string_view piece, std::size_t length)
    {
        list.tokens.push_back({kind, piece, Keyword::None, 0});
        list.shape.append(text.substr(at, length));
        at += length;
    }

    void AddLiteral(LiteralKind kind, std::string value, std::size_t length)
    {
        constexpr std::string_view marks = "\1\2\3\4";
        list.tokens.push_back({TokenKind::Literal, text.substr(at, length), Keyword::None, list.literals.size()});
        list.literals.push_back({kind, std::move(value)});
        list.shape += marks[static_cast<std::size_t>(kind)];
        at += length;
    }

    void ReadWord()
    {
        std::size_t length = 1;
        while (BeginsWord(Peek(length)) || IsDigit(Peek(length)) || Peek(length) == '$' || Peek(length) == '#')
            ++length;
        const std::string_view word = text.substr(at, length);
        Add(TokenKind::Word, word, length);
        list.tokens.back().keyword = FindKeyword(word);
    }

    void ReadNumber()
    {
        std::size_t length = 0;
        bool whole = true;
        while (IsDigit(Peek(length)))
            ++length;
        if (Peek(length) == '.') {
            whole = false;
            ++length;
            while (IsDigit(Peek(length)))
                ++length;
        }
        if (Peek(length) == 'e' || Peek(length) == 'E') {
            const std::size_t sign = Peek(length + 1) == '+' || Peek(length + 1) == '-' ? 1 : 0;
            if (IsDigit(Peek(length + 1 + sign))) {
                whole = false;
                length += 1 + sign;
                while (IsDigit(Peek(length)))
                    ++length;
            }
        }
        if (BeginsWord(Peek(length)))
            throw SyntaxErrorNear(std::string(text.substr(at, length + 1)));
        AddLiteral(whole ? KindOfWhole(length) : LiteralKind::Decimal, std::string(text.substr(at, length)), length);
    }

    static LiteralKind KindOfWhole(std::size_t digits)
    {
        constexpr std::size_t alwaysFitsInt = 9;
        constexpr std::size_t alwaysFitsBigInt = 18;
        return digits <= alwaysFitsInt      ? LiteralKind::Whole
               : digits <= alwaysFitsBigInt ? LiteralKind::LongWhole
                                            : LiteralKind::Decimal;
    }

    void ReadText()
    {
        std::string value;
        std::size_t end = at + 1;
        while (true) {
            const auto quote = text.find('\'', end);
            if (quote == std::string_view::npos)
                return Add(TokenKind::Broken, text.substr(at + 1), text.size() - at);
            value.append(text.substr(end, quote - end));
            end = quote + 1;
            if (end == text.size() || text[end] != '\'')
                break;
            value += '\'';
            ++end;
        }
        AddLiteral(LiteralKind::Text, std::move(value), end - at);
    }

    void ReadBracketed()
    {
        const auto end = text.find(']', at);
        if (end == std::string_view::npos)
            return Add(TokenKind::Broken, text.substr(at + 1), text.size() - at);
        if (end == at + 1)
            throw SyntaxErrorNear("[]");
        Add(TokenKind::Bracketed, text.substr(at + 1, end - at - 1), end + 1 - at);
    }

    void ReadSymbol()
    {
        const std::string_view two = text.substr(at, 2);
        if (two == "<=" || two == ">=" || two == "<>") {
            Add(TokenKind::Symbol, two, 2);
            return;
        }
        constexpr std::string_view symbols = "(),.+-*/%=<>;";
        if (symbols.find(Peek()) == std::string_view::npos)
            throw SyntaxErrorNear(std::string(1, Peek()));
        Add(TokenKind::Symbol, text.substr(at, 1), 1);
    }

    std::string_view text;
    std::size_t at = 0;
    TokenList list;
};

}

TokenList ReadTokens(std::string_view text)
{
    return Reader(text).Read();
}

std::vector<std::string> SplitScript(std::string_view script)
{
    const TokenList list = ReadTokens(script);
    std::vector<std::string> statements;
    const char* begin = nullptr;
    for (const Token& token : list.tokens) {
        const bool ends = token.kind == TokenKind::End || (token.kind == TokenKind::Symbol && token.text == ";");
        if (!ends && begin == nullptr)
            begin = token.kind == TokenKind::Bracketed ? token.text.data() - 1 : token.text.data();
        if (ends && begin != nullptr) {
            const char* end = token.kind == TokenKind::End ? script.data() + script.size() : token.text.data();
            statements.emplace_back(begin, end);
            begin = nullptr;
        }
    }
    return statements;
}

}
