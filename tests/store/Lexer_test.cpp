#include <doctest/doctest.h>

#include "store/DatabaseError.h"
#include "store/Lexer.h"
#include "store/Schema.h"

using namespace rovanta;

static std::string TokensOf(const std::string& text)
{
    const TokenList list = ReadTokens(text);
    std::string shown;
    for (const Token& token : list.tokens) {
        constexpr std::string_view marks = "wbls!e";
        shown += marks[static_cast<std::size_t>(token.kind)];
        shown += "<" + std::string(token.text) + ">";
    }
    return shown;
}

TEST_CASE("A statement falls into words, names, literals and symbols")
{
    CHECK(TokensOf("SELECT [a b].x,-1.5e3") == "w<SELECT>b<a b>s<.>w<x>s<,>s<->l<1.5e3>e<>");
    CHECK(TokensOf("a<>b<=c>=d") == "w<a>s<<>>w<b>s<<=>w<c>s<>=>w<d>e<>");
    CHECK(TokensOf("x -- to the end\n/* and\nthis */ y") == "w<x>w<y>e<>");
    CHECK(TokensOf("") == "e<>");
    CHECK(TokensOf("tmp_2 Größe") == "w<tmp_2>w<Größe>e<>");
}

TEST_CASE("A text keeps a doubled apostrophe as one")
{
    const TokenList list = ReadTokens("'O''Brien' '' ''''");
    CHECK(list.literals[0].text == "O'Brien");
    CHECK(list.literals[1].text == "");
    CHECK(list.literals[2].text == "'");
}

TEST_CASE("Numbers are whole up to eighteen digits")
{
    const TokenList list = ReadTokens("12 12. .5 1e2 123456789012345678 1234567890123456789");
    const std::vector<LiteralKind> kinds{LiteralKind::Whole,   LiteralKind::Decimal,   LiteralKind::Decimal,
                                         LiteralKind::Decimal, LiteralKind::LongWhole, LiteralKind::Decimal};
    for (std::size_t i = 0; i < kinds.size(); ++i)
        CHECK(list.literals[i].kind == kinds[i]);
}

TEST_CASE("Statements that differ in their values alone are of one shape")
{
    CHECK(ReadTokens("SELECT * FROM T WHERE A = 5 AND B = 'x'").shape ==
          ReadTokens("SELECT * FROM T  WHERE A = 77 AND\nB = 'O''Brien'").shape);
    CHECK(ReadTokens("A = 5").shape != ReadTokens("A = '5'").shape);
    CHECK(ReadTokens("A = 5").shape != ReadTokens("A = 5.0").shape);
    CHECK(ReadTokens("A = 999999999").shape != ReadTokens("A = 5000000000").shape);
    CHECK(ReadTokens("A IN (1)").shape != ReadTokens("A IN (1,2)").shape);
    CHECK(ReadTokens("A = 'x").shape != ReadTokens("A = 'x'").shape);
    CHECK(ReadTokens("A = B").shape != ReadTokens("A = [B]").shape);
}

TEST_CASE("Pieces that belong to no statement are refused")
{
    for (const char* text : {"@x", "a ? b", "12abc", "[]", "\"x\"", "a # b", "{", "\x01", "/* open"})
        CHECK_THROWS_AS(ReadTokens(text), DatabaseError);
    CHECK(TokensOf("a 'open") == "w<a>!<open>e<>");
    CHECK(TokensOf("a [open") == "w<a>!<open>e<>");
}

TEST_CASE("A script falls into its statements")
{
    CHECK(ScriptStatements("-- first\nA 'x;y' ; ;\nB [c;d]; -- last\n") ==
          std::vector<std::string>{"A 'x;y' ", "B [c;d]"});
    CHECK(ScriptStatements("A; [B] c") == std::vector<std::string>{"A", "[B] c"});
    CHECK(ScriptStatements("").empty());
    CHECK(ScriptStatements(SchemaScript()).size() > 80);
}
