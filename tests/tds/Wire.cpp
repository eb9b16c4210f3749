#include "tests/tds/Wire.h"

#include "store/Utf16.h"

#include <algorithm>
#include <array>

#include <sys/socket.h>

namespace rovanta::tds {

namespace {

constexpr std::size_t headSize = 8;
constexpr std::size_t packetSize = 4096;
constexpr unsigned answerKind = 4;

}

bool Line::ReadBytes(char* place, std::size_t count)
{
    while (count > 0) {
        const ssize_t got = recv(socket, place, count, 0);
        if (got <= 0)
            return false;
        place += got;
        count -= static_cast<std::size_t>(got);
    }
    return true;
}

std::optional<Message> Line::Read()
{
    Message message{};
    bool last = false;
    while (!last) {
        std::array<char, headSize> head{};
        if (!ReadBytes(head.data(), head.size()))
            return std::nullopt;
        message.kind = static_cast<MessageKind>(head[0]);
        last = (head[1] & 1) != 0;
        const std::size_t length = static_cast<unsigned char>(head[2]) * 256U + static_cast<unsigned char>(head[3]);
        if (length < headSize)
            return std::nullopt;
        const std::size_t before = message.bytes.size();
        message.bytes.resize(before + length - headSize);
        if (!ReadBytes(message.bytes.data() + before, length - headSize))
            return std::nullopt;
    }
    return message;
}

void Line::Answer(std::string_view tokens)
{
    unsigned number = 0;
    do {
        const std::string_view piece = tokens.substr(0, packetSize - headSize);
        tokens.remove_prefix(piece.size());
        const std::size_t length = piece.size() + headSize;
        Bytes packet;
        packet.Byte(answerKind).Byte(tokens.empty() ? 1 : 0);
        packet.Byte(static_cast<unsigned>(length / 256)).Byte(static_cast<unsigned>(length % 256));
        packet.Number(0, 2).Byte(++number & 0xFFU).Byte(0).Raw(piece);
        for (std::string_view rest = packet.Get(); !rest.empty();) {
            const ssize_t sent = send(socket, rest.data(), rest.size(), MSG_NOSIGNAL);
            if (sent <= 0)
                return;
            rest.remove_prefix(static_cast<std::size_t>(sent));
        }
    } while (!tokens.empty());
}

Bytes& Bytes::Number(std::uint64_t value, int width)
{
    for (int i = 0; i < width; ++i)
        bytes += static_cast<char>((value >> (8 * i)) & 0xFFU);
    return *this;
}

Bytes& Bytes::Raw(std::string_view more)
{
    bytes += more;
    return *this;
}

Bytes& Bytes::Wide(std::string_view text)
{
    for (const char16_t unit : ToUtf16(text))
        Number(unit, 2);
    return *this;
}

Bytes& Bytes::ShortText(std::string_view text)
{
    return Byte(static_cast<unsigned>(ToUtf16(text).size())).Wide(text);
}

Bytes& Bytes::LongText(std::string_view text)
{
    return Number(ToUtf16(text).size(), 2).Wide(text);
}

std::uint64_t NumberAt(std::string_view bytes, std::size_t at, int width)
{
    std::uint64_t value = 0;
    for (int i = 0; i < width && at + static_cast<std::size_t>(i) < bytes.size(); ++i)
        value |= std::uint64_t{static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)])} << (8 * i);
    return value;
}

std::string WideTextAt(std::string_view bytes, std::size_t at, std::size_t count)
{
    std::u16string text;
    for (std::size_t i = 0; i + 1 < count && at + i + 1 < bytes.size(); i += 2)
        text += static_cast<char16_t>(NumberAt(bytes, at + i, 2));
    return ToUtf8(text);
}

}
