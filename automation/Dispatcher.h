#pragma once

#include "automation/Parameters.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace rovanta {

class Desk;

/// Answers JSON-RPC 2.0 requests at one desk.
class Dispatcher {
public:
    explicit Dispatcher(Desk& desk) : desk(desk) {}

    /// The response to one line, without its line end; nothing for a notification and for a blank line.
    std::optional<std::string> Answer(std::string_view line);

private:
    Json Respond(const Json& request);
    Json Call(const std::string& method, const Json& parameters);

    Desk& desk;
};

/// The one response of a start that failed.
std::string StartFailure(Desk& desk);

/// Answers the lines of `input` until its end. Returns the exit code of the process.
int Serve(Desk& desk, std::istream& input, std::ostream& output);

}
