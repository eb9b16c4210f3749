#include "store/Parser.h"

#include "store/DatabaseError.h"
#include "store/ParserState.h"
#include "values/Text.h"

#include <algorithm>
#include <charconv>

namespace rovanta {

ParserState::Level::Level(ParserState& parser) : parser(parser)
{
    constexpr int deepest = 100;
    if (parser.depth >= deepest)
        throw DatabaseError(
            "Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into "
            "smaller queries.");
    ++parser.depth;
}

const Token& ParserState::Peek(std::size_t ahead) const
{
    return list.tokens[std::min(at + ahead, list.tokens.size() - 1)];
}

bool ParserState::PeekWord(Keyword word, std::size_t ahead) const
{
    return Peek(ahead).keyword == word;
}

bool ParserState::PeekSymbol(std::string_view symbol, std::size_t ahead) const
{
    const Token& token = Peek(ahead);
    return token.kind == TokenKind::Symbol && token.text == symbol;
}

bool ParserState::TakeWord(Keyword word)
{
    const bool found = PeekWord(word);
    at += found ? 1 : 0;
    return found;
}

bool ParserState::TakeSymbol(std::string_view symbol)
{
    const bool found = PeekSymbol(symbol);
    at += found ? 1 : 0;
    return found;
}

void ParserState::ExpectWord(Keyword word)
{
    if (!TakeWord(word))
        FailHere();
}

void ParserState::ExpectSymbol(std::string_view symbol)
{
    if (!TakeSymbol(symbol))
        FailHere();
}

bool ParserState::PeekName(std::size_t ahead) const
{
    const Token& token = Peek(ahead);
    return token.kind == TokenKind::Bracketed || (token.kind == TokenKind::Word && token.keyword == Keyword::None);
}

std::string ParserState::TakeName()
{
    if (!PeekName())
        FailHere();
    return std::string(list.tokens[at++].text);
}

std::string ParserState::TakeTableName()
{
    std::string name = TakeName();
    if (!TakeSymbol("."))
        return name;
    std::string table = TakeName();
    if (!EqualNoCase(name, "dbo"))
        throw DatabaseError("Invalid object name '" + name + "." + table + "'.");
    return table;
}

int ParserState::TakeFixedNumber()
{
    const Token& token = Peek();
    if (token.kind != TokenKind::Literal || list.literals[token.literal].kind != LiteralKind::Whole)
        FailHere();
    int number = 0;
    const auto [end, error] = std::from_chars(token.text.data(), token.text.data() + token.text.size(), number);
    if (error != std::errc{} || end != token.text.data() + token.text.size())
        FailHere();
    fixedLiterals.push_back(token.literal);
    ++at;
    return number;
}

void ParserState::FailAt(const Token& token) const
{
    if (token.kind == TokenKind::Broken)
        throw DatabaseError("Unclosed quotation mark after the character string '" + std::string(token.text) + "'.");
    // At the statement's end the database names what stands last.
    const bool atEnd = token.kind == TokenKind::End && list.tokens.size() > 1;
    const Token& named = atEnd ? list.tokens[list.tokens.size() - 2] : token;
    if (named.kind == TokenKind::Literal)
        throw SyntaxErrorNear(list.literals[named.literal].text);
    throw SyntaxErrorNear(std::string(named.text));
}

void ParserState::FailHere() const
{
    FailAt(Peek());
}

ParsedStatement ParserState::Statement()
{
    StatementTree tree = AnyStatement();
    TakeSymbol(";");
    if (Peek().kind != TokenKind::End)
        FailHere();
    return {std::move(tree), std::move(list.literals), std::move(fixedLiterals)};
}

StatementTree ParserState::AnyStatement()
{
    if (PeekWord(Keyword::Select) || PeekSymbol("("))
        return ReadQuery();
    if (TakeWord(Keyword::Insert))
        return Insert();
    if (TakeWord(Keyword::Update))
        return Update();
    if (TakeWord(Keyword::Delete))
        return Delete();
    if (TakeWord(Keyword::Create))
        return Create();
    if (TakeWord(Keyword::Drop))
        return Drop();
    if (TakeWord(Keyword::Set))
        return IdentityInsert();
    if (TakeWord(Keyword::Begin))
        return Transaction(TransactionStep::Begin);
    if (TakeWord(Keyword::Commit))
        return Transaction(TransactionStep::Commit);
    if (TakeWord(Keyword::Rollback))
        return Transaction(TransactionStep::Rollback);
    FailHere();
}

InsertStatement ParserState::Insert()
{
    InsertStatement insert;
    TakeWord(Keyword::Into);
    insert.table = TakeTableName();
    if (PeekSymbol("(") && !PeekWord(Keyword::Select, 1) && !PeekSymbol("(", 1)) {
        ExpectSymbol("(");
        insert.columns = NameList();
        ExpectSymbol(")");
    }
    if (!TakeWord(Keyword::Values)) {
        if (!PeekWord(Keyword::Select) && !PeekSymbol("("))
            FailHere();
        insert.query = ReadQuery();
        return insert;
    }
    do {
        ExpectSymbol("(");
        std::vector<ExpressionPointer>& row = insert.rows.emplace_back();
        do {
            row.push_back(ValueExpression());
        } while (TakeSymbol(","));
        ExpectSymbol(")");
    } while (TakeSymbol(","));
    return insert;
}

UpdateStatement ParserState::Update()
{
    UpdateStatement update;
    update.table = TakeTableName();
    ExpectWord(Keyword::Set);
    do {
        Assignment assignment;
        assignment.column = TakeName();
        ExpectSymbol("=");
        assignment.value = ValueExpression();
        update.assignments.push_back(std::move(assignment));
    } while (TakeSymbol(","));
    if (TakeWord(Keyword::Where))
        update.where = Condition();
    return update;
}

DeleteStatement ParserState::Delete()
{
    DeleteStatement deletion;
    TakeWord(Keyword::From);
    deletion.table = TakeTableName();
    if (TakeWord(Keyword::Where))
        deletion.where = Condition();
    return deletion;
}

IdentityInsertStatement ParserState::IdentityInsert()
{
    IdentityInsertStatement setting;
    ExpectWord(Keyword::IdentityInsert);
    setting.table = TakeTableName();
    setting.on = TakeWord(Keyword::On);
    if (!setting.on)
        ExpectWord(Keyword::Off);
    return setting;
}

TransactionStatement ParserState::Transaction(TransactionStep step)
{
    if (!TakeWord(Keyword::Transaction))
        ExpectWord(Keyword::Tran);
    return {step};
}

ParsedStatement ParseStatement(TokenList tokens)
{
    return ParserState(std::move(tokens)).Statement();
}

}
