#include "store/DatabaseError.h"
#include "store/ParserState.h"
#include "values/Text.h"

#include <array>

namespace rovanta {

namespace {

ExpressionPointer Node(ExpressionKind kind, ExpressionPointer left = nullptr, ExpressionPointer right = nullptr)
{
    auto node = std::make_unique<Expression>(kind);
    if (left)
        node->operands.push_back(std::move(left));
    if (right)
        node->operands.push_back(std::move(right));
    return node;
}

struct Interval {
    std::string_view word;
    /// As the language's DateAdd names it.
    std::string_view name;
};

constexpr std::array<Interval, 20> intervals{
    {{"year", "yyyy"}, {"yyyy", "yyyy"}, {"yy", "yyyy"}, {"month", "m"},  {"mm", "m"}, {"m", "m"},    {"week", "ww"},
     {"wk", "ww"},     {"ww", "ww"},     {"day", "d"},   {"dd", "d"},     {"d", "d"},  {"hour", "h"}, {"hh", "h"},
     {"minute", "n"},  {"mi", "n"},      {"n", "n"},     {"second", "s"}, {"ss", "s"}, {"s", "s"}}};

}

ExpressionPointer ParserState::Condition()
{
    const Token& first = Peek();
    auto condition = OrChain();
    if (!condition->IsCondition())
        throw DatabaseError(
            "An expression of non-boolean type specified in a context where a condition is expected, near '" +
            std::string(first.text) + "'.");
    return condition;
}

ExpressionPointer ParserState::ValueExpression()
{
    const Level level(*this);
    const Token& first = Peek();
    auto value = Sum();
    if (value->IsCondition())
        FailAt(first);
    return value;
}

ExpressionPointer ParserState::OrChain()
{
    const Level level(*this);
    auto first = AndChain();
    if (!PeekWord(Keyword::Or))
        return first;
    auto chain = Node(ExpressionKind::Or, std::move(first));
    while (PeekWord(Keyword::Or)) {
        const Token& sign = Peek();
        ++at;
        chain->operands.push_back(AndChain());
        if (!chain->operands.front()->IsCondition() || !chain->operands.back()->IsCondition())
            FailAt(sign);
    }
    return chain;
}

ExpressionPointer ParserState::AndChain()
{
    auto first = NotChain();
    if (!PeekWord(Keyword::And))
        return first;
    auto chain = Node(ExpressionKind::And, std::move(first));
    while (PeekWord(Keyword::And)) {
        const Token& sign = Peek();
        ++at;
        chain->operands.push_back(NotChain());
        if (!chain->operands.front()->IsCondition() || !chain->operands.back()->IsCondition())
            FailAt(sign);
    }
    return chain;
}

ExpressionPointer ParserState::NotChain()
{
    const Level level(*this);
    if (!PeekWord(Keyword::Not))
        return Predicate();
    const Token& sign = Peek();
    ++at;
    auto operand = NotChain();
    if (!operand->IsCondition())
        FailAt(sign);
    return Node(ExpressionKind::Not, std::move(operand));
}

ExpressionPointer ParserState::Predicate()
{
    auto left = Sum();
    const Token& sign = Peek();
    constexpr std::array<std::string_view, 6> comparisons{"=", "<>", "<", ">", "<=", ">="};
    for (const std::string_view comparison : comparisons) {
        if (!TakeSymbol(comparison))
            continue;
        if (left->IsCondition())
            FailAt(sign);
        auto compare = Node(ExpressionKind::Compare, std::move(left), ValueExpression());
        compare->name = comparison;
        return compare;
    }
    if (left->IsCondition())
        return left;
    if (TakeWord(Keyword::Is)) {
        auto test = Node(ExpressionKind::IsNull, std::move(left));
        test->negated = TakeWord(Keyword::Not);
        ExpectWord(Keyword::Null);
        return test;
    }
    const bool negated = PeekWord(Keyword::Not) && (PeekWord(Keyword::In, 1) || PeekWord(Keyword::Like, 1));
    at += negated ? 1 : 0;
    if (TakeWord(Keyword::In))
        return InPredicate(std::move(left), negated);
    if (TakeWord(Keyword::Like)) {
        auto like = Node(ExpressionKind::Like, std::move(left), ValueExpression());
        like->negated = negated;
        return like;
    }
    return left;
}

ExpressionPointer ParserState::InPredicate(ExpressionPointer left, bool negated)
{
    ExpectSymbol("(");
    ExpressionPointer in;
    if (PeekWord(Keyword::Select)) {
        in = Node(ExpressionKind::InQuery, std::move(left));
        in->query = ReadQuery();
    } else {
        in = Node(ExpressionKind::In, std::move(left));
        do {
            in->operands.push_back(ValueExpression());
        } while (TakeSymbol(","));
    }
    ExpectSymbol(")");
    in->negated = negated;
    return in;
}

ExpressionPointer ParserState::Sum()
{
    auto left = Product();
    int terms = 0;
    while (PeekSymbol("+") || PeekSymbol("-")) {
        const Token& sign = Peek();
        ++at;
        auto right = Product();
        // A chain is a tree as deep as it is long, so its length has a bound as the depth of brackets has.
        constexpr int mostTerms = 400;
        if (left->IsCondition() || right->IsCondition() || ++terms > mostTerms)
            FailAt(sign);
        left = Node(ExpressionKind::Arithmetic, std::move(left), std::move(right));
        left->name = sign.text;
    }
    return left;
}

ExpressionPointer ParserState::Product()
{
    auto left = Signed();
    int factors = 0;
    while (PeekSymbol("*") || PeekSymbol("/") || PeekSymbol("%")) {
        const Token& sign = Peek();
        ++at;
        auto right = Signed();
        constexpr int mostFactors = 100;
        if (left->IsCondition() || right->IsCondition() || ++factors > mostFactors)
            FailAt(sign);
        left = Node(ExpressionKind::Arithmetic, std::move(left), std::move(right));
        left->name = sign.text;
    }
    return left;
}

ExpressionPointer ParserState::Signed()
{
    const Level level(*this);
    if (TakeSymbol("+"))
        return Signed();
    const Token& sign = Peek();
    if (!TakeSymbol("-"))
        return Primary();
    const bool number = Peek().kind == TokenKind::Literal && list.literals[Peek().literal].kind != LiteralKind::Text;
    auto operand = Signed();
    if (operand->IsCondition())
        FailAt(sign);
    if (number) {
        operand->negative = true;
        return operand;
    }
    return Node(ExpressionKind::Negate, std::move(operand));
}

ExpressionPointer ParserState::Primary()
{
    const Token& token = Peek();
    if (token.kind == TokenKind::Literal)
        return LiteralValue();
    if (PeekSymbol("("))
        return Brackets();
    if (TakeWord(Keyword::Null))
        return Node(ExpressionKind::Null);
    return ColumnOrFunction();
}

ExpressionPointer ParserState::Brackets()
{
    const Level level(*this);
    ExpectSymbol("(");
    ExpressionPointer inner;
    if (PeekWord(Keyword::Select)) {
        inner = Node(ExpressionKind::Subquery);
        inner->query = ReadQuery();
    } else {
        inner = OrChain();
    }
    ExpectSymbol(")");
    return inner;
}

ExpressionPointer ParserState::LiteralValue()
{
    auto literal = Node(ExpressionKind::Literal);
    literal->literal = list.tokens[at++].literal;
    const Literal& value = list.literals[literal->literal];
    switch (value.kind) {
    case LiteralKind::Text:
        literal->literalKind = TypeKind::Varchar;
        break;
    case LiteralKind::Whole:
        literal->literalKind = TypeKind::Int;
        break;
    case LiteralKind::LongWhole:
        literal->literalKind = TypeKind::BigInt;
        break;
    case LiteralKind::Decimal:
        literal->literalKind = TypeKind::Decimal;
        break;
    }
    literal->type = {literal->literalKind};
    return literal;
}

ExpressionPointer ParserState::ColumnOrFunction()
{
    const Token& name = Peek();
    if (name.kind == TokenKind::Word && PeekSymbol("(", 1)) {
        if (!PeekName())
            FailHere();
        at += 2;
        return Function(name);
    }
    auto column = Node(ExpressionKind::Column);
    column->name = TakeName();
    if (TakeSymbol(".")) {
        column->qualifier = std::move(column->name);
        column->name = TakeName();
    }
    return column;
}

ExpressionPointer ParserState::Function(const Token& name)
{
    struct NamedAggregate {
        std::string_view name;
        AggregateKind kind;
    };
    constexpr std::array<NamedAggregate, 5> aggregates{{{"COUNT", AggregateKind::Count},
                                                        {"SUM", AggregateKind::Sum},
                                                        {"MIN", AggregateKind::Minimum},
                                                        {"MAX", AggregateKind::Maximum},
                                                        {"AVG", AggregateKind::Average}}};
    for (const NamedAggregate& aggregate : aggregates)
        if (EqualNoCase(name.text, aggregate.name))
            return Aggregate(aggregate.kind);
    if (EqualNoCase(name.text, "ISNULL")) {
        auto value = ValueExpression();
        ExpectSymbol(",");
        auto node = Node(ExpressionKind::IsNullFunction, std::move(value), ValueExpression());
        ExpectSymbol(")");
        return node;
    }
    if (EqualNoCase(name.text, "CAST"))
        return CastFunction();
    if (EqualNoCase(name.text, "DATEADD"))
        return DateFunction(ExpressionKind::DateAdd);
    if (EqualNoCase(name.text, "DATEDIFF"))
        return DateFunction(ExpressionKind::DateDiff);
    throw DatabaseError("'" + std::string(name.text) + "' is not a recognized built-in function name.");
}

ExpressionPointer ParserState::Aggregate(AggregateKind kind)
{
    auto node = Node(ExpressionKind::Aggregate);
    node->aggregate = kind;
    if (kind == AggregateKind::Count && TakeSymbol("*")) {
        ExpectSymbol(")");
        return node;
    }
    node->distinct = TakeWord(Keyword::Distinct);
    node->operands.push_back(ValueExpression());
    ExpectSymbol(")");
    return node;
}

ExpressionPointer ParserState::CastFunction()
{
    auto node = Node(ExpressionKind::Cast, ValueExpression());
    ExpectWord(Keyword::As);
    constexpr int lengthUntold = 30;
    node->type = Type(lengthUntold);
    ExpectSymbol(")");
    return node;
}

ExpressionPointer ParserState::DateFunction(ExpressionKind kind)
{
    const Token& word = Peek();
    auto node = Node(kind);
    for (const Interval& interval : intervals)
        if (word.kind == TokenKind::Word && EqualNoCase(word.text, interval.word))
            node->name = interval.name;
    if (node->name.empty())
        throw DatabaseError("'" + std::string(word.text) + "' is not a recognized " +
                            (kind == ExpressionKind::DateAdd ? "dateadd" : "datediff") + " option.");
    ++at;
    ExpectSymbol(",");
    node->operands.push_back(ValueExpression());
    ExpectSymbol(",");
    node->operands.push_back(ValueExpression());
    ExpectSymbol(")");
    return node;
}

}
