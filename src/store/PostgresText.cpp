#include "store/PostgresText.h"

#include "store/DatabaseError.h"
#include "values/Text.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace rovanta {

namespace {

bool IsDigit(char letter)
{
    return std::isdigit(static_cast<unsigned char>(letter)) != 0;
}

bool IsSecret(const std::string& option)
{
    const std::string name = LowerCase(option.substr(0, option.find('=')));
    return name == "password" || name == "sslpassword";
}

/// Whether each percent sign begins the number of a sign.
bool IsWellWritten(std::string_view piece)
{
    for (std::size_t at = piece.find('%'); at != std::string_view::npos; at = piece.find('%', at + 1)) {
        const std::string_view number = piece.substr(at + 1, 2);
        const bool hexadecimal =
            std::all_of(number.begin(), number.end(), [](unsigned char letter) { return std::isxdigit(letter) != 0; });
        if (number.size() < 2 || !hexadecimal || number == "00")
            return false;
    }
    return true;
}

/// Whether what stands behind the colon of a server, if there is one, can be a port.
bool HasPortOrNone(const std::string& server)
{
    const auto colon = server.find(':', server.starts_with('[') ? server.find(']') : 0);
    return colon == std::string::npos ||
           std::all_of(server.begin() + static_cast<std::ptrdiff_t>(colon) + 1, server.end(), IsDigit);
}

DatabaseError NoSense(const std::string& why)
{
    return DatabaseError("The connection text of the PostgreSQL server makes no sense: " + why);
}

}

PostgresText::PostgresText(const std::string& text)
{
    std::string rest = text.substr(text.find("://") + 3);
    const auto sign = rest.find('@');
    if (sign < rest.find('/')) {
        user = rest.substr(0, sign);
        rest.erase(0, sign + 1);
        if (const auto colon = user->find(':'); colon != std::string::npos) {
            password = user->substr(colon + 1);
            user->erase(colon);
        }
    }
    const auto mark = rest.find('?');
    if (mark != std::string::npos)
        options = Split(rest.substr(mark + 1), '&');
    rest.erase(std::min(mark, rest.size()));
    const auto slash = std::min(rest.find('/'), rest.size());
    servers = rest.substr(0, slash);
    path = rest.substr(slash);
}

void PostgresText::Check() const
{
    if (servers.find('@') != std::string::npos || path.find('@') != std::string::npos)
        throw NoSense("a sign such as '@' or '/' in the user, the password or the database is written by its number "
                      "(%40, %2F).");
    const std::vector<std::string> all = Split(servers, ',');
    if (!user && !std::all_of(all.begin(), all.end(), HasPortOrNone))
        throw NoSense("what stands behind the colon is no port. A user and a password end with a '@'.");
    if (password && !IsWellWritten(*password))
        throw NoSense("a '%' in the password is written by its number (%25).");
    for (const std::string& option : options) {
        if (std::count(option.begin(), option.end(), '=') != 1)
            throw NoSense("an option behind its '?' is no name with a '=' and a value.");
        if (IsSecret(option) && !IsWellWritten(option))
            throw NoSense("a '%' in the password is written by its number (%25).");
    }
}

std::string PostgresText::Joined(const std::string& place, Secrets secrets) const
{
    std::string text = "postgresql://";
    if (user)
        text += *user + (secrets == Secrets::Told && password ? ":" + *password : "") + "@";
    std::vector<std::string> chosen = options;
    if (secrets == Secrets::LeftOut)
        std::erase_if(chosen, IsSecret);
    return text + servers + place + (chosen.empty() ? "" : "?" + Join(chosen, "&"));
}

std::string PostgresText::Whole() const
{
    return Joined(path, Secrets::Told);
}

std::string PostgresText::WithoutPassword() const
{
    return Joined(path, Secrets::LeftOut);
}

std::string PostgresText::WithDatabase(const std::string& name) const
{
    return Joined("/" + name, Secrets::Told);
}

std::string PostgresText::Server() const
{
    if (!servers.empty())
        return servers;
    constexpr std::string_view host = "host=";
    for (const std::string& option : options)
        if (option.starts_with(host))
            return option.substr(host.size());
    return "localhost";
}

}
