#include "store/ParserState.h"

namespace rovanta {

std::unique_ptr<Query> ParserState::ReadQuery()
{
    const Level level(*this);
    auto query = std::make_unique<Query>();
    query->members.push_back(QueryMember());
    while (PeekWord(Keyword::Union)) {
        const Token& sign = Peek();
        ++at;
        const bool all = TakeWord(Keyword::All);
        if (query->members.size() > 1 && all != query->unionAll)
            FailAt(sign);
        query->unionAll = all;
        query->members.push_back(QueryMember());
    }
    if (TakeWord(Keyword::Order)) {
        ExpectWord(Keyword::By);
        query->orderBy = OrderBy();
    }
    return query;
}

/// A SELECT, or one in brackets.
Select ParserState::QueryMember()
{
    const Level level(*this);
    if (!TakeSymbol("("))
        return SelectCore();
    Select member = QueryMember();
    ExpectSymbol(")");
    return member;
}

Select ParserState::SelectCore()
{
    Select select;
    ExpectWord(Keyword::Select);
    select.distinct = TakeWord(Keyword::Distinct);
    if (TakeWord(Keyword::Top)) {
        const Token& count = Peek();
        if (count.kind != TokenKind::Literal || list.literals[count.literal].kind != LiteralKind::Whole)
            FailHere();
        select.top = count.literal;
        ++at;
    }
    do {
        select.items.push_back(Item());
    } while (TakeSymbol(","));
    if (TakeWord(Keyword::Into))
        select.into = TakeTableName();
    if (TakeWord(Keyword::From))
        select.from = From();
    if (TakeWord(Keyword::Where))
        select.where = Condition();
    if (TakeWord(Keyword::Group)) {
        ExpectWord(Keyword::By);
        do {
            select.groupBy.push_back(ValueExpression());
        } while (TakeSymbol(","));
    }
    if (TakeWord(Keyword::Having))
        select.having = Condition();
    return select;
}

SelectItem ParserState::Item()
{
    SelectItem item;
    if (TakeSymbol("*")) {
        item.star = true;
        return item;
    }
    if (PeekName() && PeekSymbol(".", 1) && PeekSymbol("*", 2)) {
        item.star = true;
        item.starQualifier = TakeName();
        at += 2;
        return item;
    }
    item.expression = ValueExpression();
    item.alias = OptionalAlias();
    // Without an alias a column bears its name as it is written here.
    if (item.alias.empty() && item.expression->kind == ExpressionKind::Column)
        item.alias = item.expression->name;
    return item;
}

std::string ParserState::OptionalAlias()
{
    if (TakeWord(Keyword::As) || PeekName())
        return TakeName();
    return {};
}

std::unique_ptr<Source> ParserState::From()
{
    auto source = JoinedSources();
    while (TakeSymbol(",")) {
        auto join = std::make_unique<Source>(SourceKind::Join);
        join->join = JoinKind::Cross;
        join->left = std::move(source);
        join->right = JoinedSources();
        source = std::move(join);
    }
    return source;
}

std::unique_ptr<Source> ParserState::JoinedSources()
{
    const Level level(*this);
    auto source = SourceItem();
    while (PeekWord(Keyword::Join) || PeekWord(Keyword::Inner) || PeekWord(Keyword::Left) || PeekWord(Keyword::Cross)) {
        auto join = std::make_unique<Source>(SourceKind::Join);
        if (TakeWord(Keyword::Left)) {
            join->join = JoinKind::Left;
            TakeWord(Keyword::Outer);
        } else if (TakeWord(Keyword::Cross)) {
            join->join = JoinKind::Cross;
        } else {
            TakeWord(Keyword::Inner);
        }
        ExpectWord(Keyword::Join);
        join->left = std::move(source);
        join->right = SourceItem();
        if (join->join != JoinKind::Cross) {
            ExpectWord(Keyword::On);
            join->condition = Condition();
        }
        source = std::move(join);
    }
    return source;
}

std::unique_ptr<Source> ParserState::SourceItem()
{
    const Level level(*this);
    if (TakeSymbol("(")) {
        if (!PeekWord(Keyword::Select)) {
            auto joined = JoinedSources();
            ExpectSymbol(")");
            return joined;
        }
        auto source = std::make_unique<Source>(SourceKind::Query);
        source->query = ReadQuery();
        ExpectSymbol(")");
        TakeWord(Keyword::As);
        source->alias = TakeName();
        return source;
    }
    auto source = std::make_unique<Source>(SourceKind::Table);
    source->table = TakeTableName();
    source->alias = OptionalAlias();
    if (source->alias.empty())
        source->alias = source->table;
    return source;
}

std::vector<OrderItem> ParserState::OrderBy()
{
    std::vector<OrderItem> order;
    do {
        OrderItem item;
        item.expression = ValueExpression();
        item.descending = TakeWord(Keyword::Desc);
        if (!item.descending)
            TakeWord(Keyword::Asc);
        order.push_back(std::move(item));
    } while (TakeSymbol(","));
    return order;
}

std::vector<std::string> ParserState::NameList()
{
    std::vector<std::string> names;
    do {
        names.push_back(TakeName());
    } while (TakeSymbol(","));
    return names;
}

}
