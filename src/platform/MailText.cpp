#include "platform/MailText.h"

#include "values/Format.h"
#include "values/Text.h"

#include <algorithm>
#include <cstdint>

namespace rovanta {

namespace {

bool IsControl(char c)
{
    return static_cast<std::uint8_t>(c) < 0x20 || c == 0x7F;
}

bool IsAscii(char c)
{
    return static_cast<std::uint8_t>(c) < 0x80;
}

std::string WithoutControls(std::string_view text)
{
    std::string plain = ValidUtf8(Replace(std::string(text), lineBreak, " "));
    std::replace_if(plain.begin(), plain.end(), IsControl, ' ');
    return plain;
}

/// Whether a header can carry the text as it stands: plain, on a line that every server takes, and not to be mistaken
/// for an encoded word.
bool FitsHeader(const std::string& text)
{
    constexpr std::size_t longest = 900;
    return text.size() <= longest && std::all_of(text.begin(), text.end(), IsAscii) &&
           text.find("=?") == std::string::npos;
}

std::string Base64(std::string_view bytes)
{
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t j = 0; j < 3; ++j)
            group = group << 8 | (i + j < bytes.size() ? static_cast<std::uint8_t>(bytes[i + j]) : 0U);
        for (std::size_t j = 0; j < 4; ++j)
            text += i + j > bytes.size() ? '=' : letters[group >> (18 - 6 * j) & 63];
    }
    return text;
}

/// The encoded words of a UTF-8 text, cut between characters alone.
std::string EncodedWords(std::string_view text)
{
    constexpr std::size_t bytesInWord = 45; // 60 letters of base64 and the 12 around them stay below 75
    std::vector<std::string> words;
    while (!text.empty()) {
        std::size_t length = std::min(bytesInWord, text.size());
        while (length < text.size() && (static_cast<std::uint8_t>(text[length]) & 0xC0) == 0x80)
            --length;
        words.push_back("=?UTF-8?B?" + Base64(text.substr(0, length)) + "?=");
        text.remove_prefix(length);
    }
    return Join(words, "\r\n ");
}

/// The sender's name before the address: in quotes, or as encoded words.
std::string NamedAddress(std::string_view name, const std::string& address)
{
    const std::string plain = Trim(WithoutControls(name));
    if (plain.empty())
        return address;
    if (!FitsHeader(plain))
        return EncodedWords(plain) + " <" + address + ">";
    return "\"" + Replace(Replace(plain, "\\", "\\\\"), "\"", "\\\"") + "\" <" + address + ">";
}

std::string HexByte(char c)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<std::uint8_t>(c);
    return {'=', digits[byte >> 4], digits[byte & 15]};
}

/// One line of the text, cut by soft line breaks.
std::string QuotedLine(std::string_view line)
{
    constexpr std::size_t longest = 75; // and the "=" of the soft break
    std::string quoted;
    std::size_t width = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        const bool lastBlank = (c == ' ' || c == '\t') && i + 1 == line.size();
        const bool plain = c == '\t' || (IsAscii(c) && !IsControl(c) && c != '=');
        const std::string piece = plain && !lastBlank ? std::string(1, c) : HexByte(c);
        if (width + piece.size() > longest) {
            quoted += "=\r\n";
            width = 0;
        }
        quoted += piece;
        width += piece.size();
    }
    return quoted;
}

}

std::string MailAddress(std::string_view address)
{
    std::string trimmed = Trim(address);
    const std::size_t at = trimmed.find('@');
    const bool whole = at != std::string::npos && at > 0 && at + 1 < trimmed.size() && at == trimmed.rfind('@');
    const bool plain = std::all_of(trimmed.begin(), trimmed.end(), [](char c) {
        return IsAscii(c) && !IsControl(c) && std::string_view(" <>()[]:;,\\\"").find(c) == std::string_view::npos;
    });
    if (!whole || !plain)
        throw MailError("'" + WithoutControls(address) + "' is no mail address.");
    return trimmed;
}

std::vector<std::string> MailRecipients(std::string_view to)
{
    std::string separated(to);
    std::replace(separated.begin(), separated.end(), ';', ',');
    std::vector<std::string> recipients;
    for (const std::string& piece : Split(separated, ',')) {
        if (!Trim(piece).empty())
            recipients.push_back(MailAddress(piece));
    }
    if (recipients.empty())
        throw MailError("The mail has no recipient.");
    return recipients;
}

std::string MailHeaderText(std::string_view text)
{
    const std::string plain = WithoutControls(text);
    return FitsHeader(plain) ? plain : EncodedWords(plain);
}

std::string QuotedPrintable(std::string_view text)
{
    const std::string plain = Replace(Replace(std::string(text), "\r\n", "\n"), "\r", "\n");
    std::vector<std::string> lines = Split(plain, '\n');
    std::transform(lines.begin(), lines.end(), lines.begin(), [](const std::string& line) { return QuotedLine(line); });
    return Join(lines, "\r\n");
}

std::string MailText(const MailMessage& message, DateTime sentAt, const std::string& messageId)
{
    return "Date: " + Format(sentAt, "ddd, dd mmm yyyy hh:nn:ss") + " +0000\r\n" +
           "From: " + NamedAddress(message.fromName, MailAddress(message.fromAddress)) + "\r\n" +
           "To: " + Join(MailRecipients(message.to), ",\r\n ") + "\r\n" +
           "Subject: " + MailHeaderText(message.subject) + "\r\n" + "Message-ID: <" + messageId + ">\r\n" +
           "MIME-Version: 1.0\r\n"
           "Content-Type: text/plain; charset=UTF-8\r\n"
           "Content-Transfer-Encoding: quoted-printable\r\n"
           "\r\n" +
           QuotedPrintable(ValidUtf8(message.body)) + "\r\n";
}

}
