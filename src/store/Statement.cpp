#include "store/Statement.h"

#include "store/DatabaseError.h"
#include "values/Numbers.h"
#include "values/Text.h"

#include <algorithm>

namespace rovanta {

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsWhole(std::string_view key)
{
    if (!key.empty() && key.front() == '-')
        key.remove_prefix(1);
    return !key.empty() && std::all_of(key.begin(), key.end(), IsDigit);
}

/// The word that the database would stumble over: what follows the apostrophe that ends the text too early.
std::string WordBehind(std::string_view text)
{
    const auto start = text.find_first_not_of(" '");
    if (start == std::string_view::npos)
        return "'";
    const auto end = text.find_first_of(" '", start);
    return std::string(text.substr(start, end == std::string_view::npos ? end : end - start));
}

}

StatementValue Text(std::string_view text)
{
    if (const auto apostrophe = text.find('\''); apostrophe != std::string_view::npos)
        throw SyntaxErrorNear(WordBehind(text.substr(apostrophe + 1)));
    return StatementValue(std::string(text));
}

StatementValue QuotedText(std::string_view text)
{
    return StatementValue(Replace(std::string(text), "'", "''"));
}

StatementValue Key(std::string_view key)
{
    if (key.empty())
        throw SyntaxErrorNear("=");
    if (!IsWhole(key))
        throw SyntaxErrorNear(std::string(key));
    return StatementValue(std::string(key));
}

StatementValue Key(std::int64_t key)
{
    return StatementValue(std::to_string(key));
}

StatementValue KeyList(const std::vector<std::string>& keys)
{
    std::string list;
    for (const std::string& key : keys) {
        if (!list.empty())
            list += ',';
        list += Key(key).Get();
    }
    return StatementValue(std::move(list));
}

StatementValue Number(double number)
{
    return StatementValue(ToText(number));
}

StatementValue Flag(bool flag)
{
    return StatementValue(flag ? "1" : "0");
}

StatementValue DateText(DateTime date)
{
    return StatementValue(ToText(date));
}

StatementValue Name(std::string_view name)
{
    const bool plain = !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    });
    if (!plain)
        throw SyntaxErrorNear(std::string(name));
    return StatementValue(std::string(name));
}

Statement Statement::Verbatim(std::string text)
{
    Statement statement;
    statement.text = std::move(text);
    return statement;
}

Statement& Statement::operator+=(const StatementValue& value)
{
    text += value.Get();
    return *this;
}

Statement& Statement::operator+=(const Statement& other)
{
    text += other.text;
    return *this;
}

Statement operator+(Statement statement, const StatementValue& value)
{
    statement += value;
    return statement;
}

Statement operator+(Statement statement, const Statement& other)
{
    statement += other;
    return statement;
}

}
