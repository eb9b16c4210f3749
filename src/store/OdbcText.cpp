#include "store/OdbcText.h"

#include "store/DatabaseError.h"
#include "values/Text.h"

#include <algorithm>
#include <charconv>

namespace rovanta {

namespace {

/// The value that begins at `at`, which then stands behind the semicolon at its end.
std::string TakeValue(std::string_view text, std::size_t& at)
{
    std::string value;
    at = std::min(text.find_first_not_of(' ', at), text.size());
    if (at < text.size() && text[at] == '{') {
        for (++at; at < text.size(); ++at) {
            if (text[at] == '}' && (++at >= text.size() || text[at] != '}'))
                break;
            value += text[at];
        }
        at = text.find(';', at);
    } else {
        const auto end = text.find(';', at);
        value = Trim(text.substr(at, end == std::string_view::npos ? end : end - at));
        at = end;
    }
    at = at == std::string_view::npos ? text.size() : at + 1;
    return value;
}

/// A plain value stands as it is; braces guard what else would end too early.
std::string Pair(const std::string& key, const std::string& value)
{
    const bool plain = value.find_first_of(";{}[]()?*!@ ") == std::string::npos;
    return key + "=" + (plain ? value : "{" + Replace(value, "}", "}}") + "}") + ";";
}

}

OdbcText::OdbcText(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        const auto equals = text.find('=', at);
        if (equals == std::string_view::npos) {
            if (Trim(text.substr(at)).empty())
                break;
            // What stands there is not told: it may be the end of a password.
            throw DatabaseError("The connection text has a word without a \"=\"" +
                                (pairs.empty() ? "."
                                               : " behind \"" + pairs.back().first +
                                                     "\": a value with a semicolon stands in {braces}."));
        }
        std::string key = Trim(text.substr(at, equals - at));
        at = equals + 1;
        pairs.emplace_back(std::move(key), TakeValue(text, at));
    }
}

bool OdbcText::Has(std::string_view key) const
{
    return std::any_of(pairs.begin(), pairs.end(), [&](const auto& pair) { return EqualNoCase(pair.first, key); });
}

std::string OdbcText::Get(std::string_view key) const
{
    for (const auto& [name, value] : pairs)
        if (EqualNoCase(name, key))
            return value;
    return {};
}

int OdbcText::Seconds(std::string_view key, int most) const
{
    const std::string text = Get(key);
    if (text.empty())
        return most;
    int seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc{} || end != text.data() + text.size() || seconds < 1 || seconds > most)
        throw DatabaseError("The connection text's " + std::string(key) + " is a number of seconds from 1 to " +
                            std::to_string(most) + ", and not \"" + text + "\".");
    return seconds;
}

std::string OdbcText::ForDriver() const
{
    std::string text;
    for (const auto& [name, value] : pairs)
        if (!EqualNoCase(name, loginTimeoutKey) && !EqualNoCase(name, queryTimeoutKey))
            text += Pair(name, value);
    return text;
}

std::string OdbcText::With(std::string_view key, const std::string& value) const
{
    std::string text;
    for (const auto& [name, old] : pairs)
        if (!EqualNoCase(name, key))
            text += Pair(name, old);
    return text + Pair(std::string(key), value);
}

std::string OdbcText::Server() const
{
    for (const char* key : {"Server", "Servername", "Address", "Addr", "DSN"})
        if (const std::string server = Get(key); !server.empty())
            return Get("Port").empty() ? server : server + ", port " + Get("Port");
    return {};
}

}
