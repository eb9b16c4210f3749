#pragma once

#include "store/Tree.h"

#include <initializer_list>

namespace rovanta {

/// The parser at work: where it stands among the tokens. Its routines lie in one file for each kind of statement.
class ParserState {
public:
    explicit ParserState(TokenList tokens) : list(std::move(tokens)) {}

    ParsedStatement Statement();

private:
    /// Counts how deep the statement is nested, so that no input can exhaust the stack.
    class Level {
    public:
        explicit Level(ParserState& parser);
        ~Level() { --parser.depth; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

    private:
        ParserState& parser;
    };

    // Tokens
    const Token& Peek(std::size_t ahead = 0) const;
    bool PeekWord(Keyword word, std::size_t ahead = 0) const;
    bool PeekSymbol(std::string_view symbol, std::size_t ahead = 0) const;
    bool TakeWord(Keyword word);
    bool TakeSymbol(std::string_view symbol);
    void ExpectWord(Keyword word);
    void ExpectSymbol(std::string_view symbol);
    /// The name of a table, column or the like.
    std::string TakeName();
    bool PeekName(std::size_t ahead = 0) const;
    /// The name of a table, whose schema can only be dbo.
    std::string TakeTableName();
    /// A whole number that the tree rests on.
    int TakeFixedNumber();
    [[noreturn]] void FailHere() const;
    [[noreturn]] void FailAt(const Token& token) const;

    // Statements
    StatementTree AnyStatement();
    InsertStatement Insert();
    UpdateStatement Update();
    DeleteStatement Delete();
    IdentityInsertStatement IdentityInsert();
    TransactionStatement Transaction(TransactionStep step);

    // Definitions
    StatementTree Create();
    CreateTableStatement CreateTable();
    void TableElement(CreateTableStatement& table);
    void ColumnOptions(CreateTableStatement& table, ColumnInfo& column);
    void PrimaryKeyConstraint(CreateTableStatement& table);
    void StorageOptions();
    CreateIndexStatement CreateIndex(bool unique);
    std::vector<std::string> KeyColumns();
    DropStatement Drop();
    /// A type; a varchar without a length gets the one given.
    SqlType Type(int lengthUntold);

    // Queries
    std::unique_ptr<Query> ReadQuery();
    Select QueryMember();
    Select SelectCore();
    SelectItem Item();
    std::unique_ptr<Source> From();
    std::unique_ptr<Source> JoinedSources();
    std::unique_ptr<Source> SourceItem();
    std::string OptionalAlias();
    std::vector<OrderItem> OrderBy();
    std::vector<std::string> NameList();

    // Expressions
    ExpressionPointer Condition();
    ExpressionPointer ValueExpression();
    ExpressionPointer OrChain();
    ExpressionPointer AndChain();
    ExpressionPointer NotChain();
    ExpressionPointer Predicate();
    ExpressionPointer InPredicate(ExpressionPointer left, bool negated);
    ExpressionPointer Sum();
    ExpressionPointer Product();
    ExpressionPointer Signed();
    ExpressionPointer Primary();
    ExpressionPointer Brackets();
    ExpressionPointer LiteralValue();
    ExpressionPointer ColumnOrFunction();
    ExpressionPointer Function(const Token& name);
    ExpressionPointer Aggregate(AggregateKind kind);
    ExpressionPointer CastFunction();
    ExpressionPointer DateFunction(ExpressionKind kind);

    TokenList list;
    std::size_t at = 0;
    int depth = 0;
    std::vector<std::size_t> fixedLiterals;
};

}
