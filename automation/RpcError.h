#pragma once

#include <stdexcept>
#include <string>

namespace rovanta {

/// Why a call is answered with an error instead of a result.
enum class RpcCode {
    ParseError = -32700,
    InvalidRequest = -32600,
    UnknownMethod = -32601,
    BadParameters = -32602,
    /// The control, cell, form or menu command does not take this from a person now.
    Refused = -32001,
    /// The program has ended, or could not start.
    Ended = -32000
};

/// An error of a call. It is thrown before the call has changed anything.
class RpcError : public std::runtime_error {
public:
    RpcError(RpcCode code, const std::string& text) : std::runtime_error(text), code(code) {}
    RpcCode Code() const { return code; }

private:
    RpcCode code;
};

inline RpcError BadParameters(const std::string& text)
{
    return {RpcCode::BadParameters, text};
}

inline RpcError Refused(const std::string& text)
{
    return {RpcCode::Refused, text};
}

}
