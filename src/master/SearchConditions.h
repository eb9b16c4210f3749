#pragma once

#include "store/Statement.h"

#include <initializer_list>
#include <string>

namespace rovanta {

/// The conditions of a search, one for each field that is not empty: the first joined with WHERE, the others with AND.
class SearchConditions {
public:
    void Add(const Statement& condition);
    /// The column contains `text`; no condition for an empty one. An apostrophe raises a syntax error.
    void AddLike(const Statement& column, const std::string& text);
    /// One of the columns contains `text`; no condition for an empty one. An apostrophe raises a syntax error.
    void AddLikeAny(std::initializer_list<Statement> columns, const std::string& text);

    const Statement& Get() const { return conditions; }

private:
    Statement conditions;
};

}
