#include "automation/Dispatcher.h"

#include "automation/ControlJson.h"
#include "automation/Desk.h"
#include "automation/RpcError.h"
#include "automation/Verbs.h"

#include <nlohmann/json.hpp>

#include <istream>
#include <ostream>

namespace rovanta {

static Json ErrorResponse(const Json& id, RpcCode code, const std::string& text)
{
    return {{"jsonrpc", "2.0"}, {"id", id}, {"error", {{"code", static_cast<int>(code)}, {"message", text}}}};
}

/// One line whatever the texts hold: bytes that are no UTF-8 (an old database may have some) come out as U+FFFD.
static std::string Line(const Json& response)
{
    return response.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// A member, null where there is none. Nothing of a request is ever copied: it may be nested a million deep.
static const Json& Member(const Json& request, const char* name)
{
    static const Json none;
    const auto found = request.find(name);
    return found == request.end() ? none : *found;
}

static bool IsId(const Json& value)
{
    return value.is_string() || value.is_number() || value.is_null();
}

/// Throws unless `request` has the shape of one.
static void CheckShape(const Json& request)
{
    const auto refuse = [](const char* text) { throw RpcError(RpcCode::InvalidRequest, text); };
    if (!request.is_object())
        refuse("A request is an object.");
    if (Member(request, "jsonrpc") != "2.0")
        refuse("The member \"jsonrpc\" must be \"2.0\".");
    if (!IsId(Member(request, "id")))
        refuse("The member \"id\" must be a text, a number or null.");
    if (!Member(request, "method").is_string())
        refuse("The member \"method\" must be a text.");
    const Json& parameters = Member(request, "params");
    if (!parameters.is_null() && !parameters.is_structured())
        refuse("The member \"params\" must be an object.");
}

static void AddMessages(Json& carrier, AutomationHost& host)
{
    for (const ShownMessage& shown : host.TakeMessages())
        carrier["messages"].push_back(ToJson(shown));
}

std::optional<std::string> Dispatcher::Answer(std::string_view line)
{
    if (line.find_first_not_of(" \t\r\n") == std::string_view::npos)
        return std::nullopt;
    // The parser would take a zero byte for the end of the text and overlook what stands behind it.
    const bool cut = line.find('\0') != std::string_view::npos;
    const Json request = cut ? Json(Json::value_t::discarded) : Json::parse(line, nullptr, false);
    if (request.is_discarded())
        return Line(ErrorResponse(nullptr, RpcCode::ParseError, "The line is no JSON text."));
    const Json response = Respond(request);
    return response.is_null() ? std::nullopt : std::optional(Line(response));
}

Json Dispatcher::Respond(const Json& request)
{
    const bool hasId = request.is_object() && request.contains("id");
    const Json id = hasId && IsId(request["id"]) ? request["id"] : Json();
    bool answered = true;
    try {
        CheckShape(request);
        answered = hasId;
        Json result = Call(request["method"].get<std::string>(), Member(request, "params"));
        if (answered)
            return {{"jsonrpc", "2.0"}, {"id", id}, {"result", std::move(result)}};
    } catch (const RpcError& error) {
        if (answered)
            return ErrorResponse(id, error.Code(), error.what());
    }
    return nullptr;
}

Json Dispatcher::Call(const std::string& method, const Json& parameters)
{
    if (desk.Ended())
        throw RpcError(RpcCode::Ended, "The program has ended.");
    const auto verb = AllVerbs().find(method);
    if (verb == AllVerbs().end())
        throw RpcError(RpcCode::UnknownMethod, "There is no method \"" + method + "\".");
    if (parameters.is_array() && !parameters.empty())
        throw BadParameters("The parameters go by name: \"params\" must be an object.");
    static const Json none = Json::object();
    const Json& named = parameters.is_object() ? parameters : none;
    Json result = Json::object();
    desk.host.TakePopup();
    desk.Perform([&] { result = verb->second(desk, Parameters(named)); });
    if (result.is_object())
        AddMessages(result, desk.host);
    if (const auto& ending = desk.Ended())
        result["ended"] = {{"text", ending->text}};
    return result;
}

std::string StartFailure(Desk& desk)
{
    Json data = Json::object();
    std::string text = desk.Ended()->text;
    for (const ShownMessage& shown : desk.host.TakeMessages()) {
        if (text.empty())
            text = shown.message.text;
        data["messages"].push_back(ToJson(shown));
    }
    Json response = ErrorResponse(nullptr, RpcCode::Ended, text);
    if (!data.empty())
        response["error"]["data"] = std::move(data);
    return Line(response);
}

int Serve(Desk& desk, std::istream& input, std::ostream& output)
{
    desk.Start();
    if (desk.Ended()) {
        output << StartFailure(desk) << std::endl;
        return 1;
    }
    // What the start has shown belongs to no call.
    desk.host.TakeMessages();
    Dispatcher dispatcher(desk);
    for (std::string line; std::getline(input, line);) {
        if (const std::optional<std::string> answer = dispatcher.Answer(line))
            output << *answer << std::endl;
    }
    return desk.Ended() && desk.Ended()->failed ? 1 : 0;
}

}
