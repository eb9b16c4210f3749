#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rovanta::tds {

/// What a message of the client is.
enum class MessageKind : std::uint8_t { Batch = 1, RemoteCall = 3, Attention = 6, Login = 16, Prelogin = 18 };

struct Message {
    MessageKind kind;
    std::string bytes;
};

/// One client's line: messages in packets of 4096 bytes.
class Line {
public:
    explicit Line(int socket) : socket(socket) {}

    /// The next message, whole; nothing when the client has gone.
    std::optional<Message> Read();
    void Answer(std::string_view tokens);

private:
    bool ReadBytes(char* place, std::size_t count);

    int socket;
};

/// Bytes in the order of the wire, the lowest first.
class Bytes {
public:
    Bytes& Byte(unsigned value) { return Number(value, 1); }
    Bytes& Number(std::uint64_t value, int width);
    Bytes& Raw(std::string_view bytes);
    /// A text in UTF-16, without and with its length in characters before it.
    Bytes& Wide(std::string_view text);
    Bytes& ShortText(std::string_view text);
    Bytes& LongText(std::string_view text);

    const std::string& Get() const { return bytes; }

private:
    std::string bytes;
};

/// A number of that width out of the bytes; 0 beyond their end.
std::uint64_t NumberAt(std::string_view bytes, std::size_t at, int width);
/// The UTF-16 text of so many bytes, in UTF-8.
std::string WideTextAt(std::string_view bytes, std::size_t at, std::size_t count);

}
