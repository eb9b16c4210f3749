#include "master/SearchConditions.h"

namespace rovanta {

void SearchConditions::Add(const Statement& condition)
{
    conditions += conditions.Get().empty() ? Statement{" WHERE "} : Statement{" AND "};
    conditions += condition;
}

void SearchConditions::AddLike(const Statement& column, const std::string& text)
{
    if (!text.empty())
        Add(column + " LIKE '%" + Text(text) + "%'");
}

void SearchConditions::AddLikeAny(std::initializer_list<Statement> columns, const std::string& text)
{
    if (text.empty())
        return;
    Statement condition;
    for (const Statement& column : columns)
        condition +=
            (condition.Get().empty() ? Statement{" ("} : Statement{" OR "}) + column + " LIKE '%" + Text(text) + "%'";
    Add(condition + ")");
}

}
