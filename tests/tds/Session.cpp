#include "tests/tds/Session.h"

#include "tests/tds/Answer.h"
#include "tests/tds/BatchRunner.h"
#include "values/Errors.h"
#include "values/Text.h"

#include <cstdlib>
#include <fstream>

#include <unistd.h>

namespace rovanta::tds {

namespace {

struct Login {
    std::string user;
    std::string password;
    std::string database;
};

/// The password travels with the halves of each byte changed over and some bits turned.
std::string PlainPassword(std::string bytes)
{
    constexpr unsigned turned = 0xA5;
    for (char& byte : bytes) {
        const unsigned straight = static_cast<unsigned char>(byte) ^ turned;
        byte = static_cast<char>((straight << 4) | (straight >> 4));
    }
    return WideTextAt(bytes, 0, bytes.size());
}

Login ReadLogin(const std::string& bytes)
{
    const auto piece = [&](std::size_t place) {
        const std::size_t at = NumberAt(bytes, place, 2);
        const std::size_t count = NumberAt(bytes, place + 2, 2) * 2;
        return at > bytes.size() ? std::string{} : bytes.substr(at, count);
    };
    const auto text = [&](std::size_t place) {
        const std::string wide = piece(place);
        return WideTextAt(wide, 0, wide.size());
    };
    constexpr std::size_t userPlace = 40;
    constexpr std::size_t passwordPlace = 44;
    constexpr std::size_t databasePlace = 68;
    Login login{text(userPlace), PlainPassword(piece(passwordPlace)), text(databasePlace)};
    if (login.database.empty())
        login.database = "master";
    return login;
}

/// One option, its version, and that there is no encryption.
std::string PreloginAnswer()
{
    constexpr unsigned noEncryption = 2;
    Bytes bytes;
    const auto bigEndian = [&](unsigned value) { bytes.Byte(value / 256).Byte(value % 256); };
    bytes.Byte(0);
    bigEndian(11);
    bigEndian(6);
    bytes.Byte(1);
    bigEndian(17);
    bigEndian(1);
    bytes.Byte(0xFF);
    bytes.Raw(std::string_view("\x10\0\0\0\0\0", 6)).Byte(noEncryption);
    return bytes.Get();
}

constexpr int loginSeverity = 14;

bool SignIn(const Login& login, const ServerPlan& plan, Answer& answer)
{
    constexpr int cannotOpen = 4060;
    constexpr int loginFailed = 18456;
    constexpr int openSeverity = 11;
    const bool known = login.user == plan.user && login.password == plan.password;
    const bool there =
        login.database == "master" || std::filesystem::exists(BatchRunner::FileOf(plan.folder, login.database));
    if (known && there) {
        answer.SignedIn(login.database);
        return true;
    }
    if (known)
        answer.Error(cannotOpen, openSeverity,
                     "Cannot open database \"" + login.database + "\" requested by the login. The login failed.");
    answer.Error(loginFailed, loginSeverity, "Login failed for user '" + login.user + "'.");
    answer.DoneWithError();
    return false;
}

[[noreturn]] void HangForever()
{
    for (;;)
        pause();
}

/// The text of a batch, which stands behind headers that tell their own length.
std::string BatchText(const std::string& bytes)
{
    const std::size_t headers = NumberAt(bytes, 0, 4);
    return WideTextAt(bytes, headers, bytes.size() - std::min(headers, bytes.size()));
}

/// Whether the line is to be cut at this batch.
bool CutsAt(const std::string& batch, const ServerPlan& plan, int& cutsSeen)
{
    return !plan.cutsAt.empty() && batch.find(plan.cutsAt) != std::string::npos && ++cutsSeen == plan.cutsAtCount;
}

/// Notes a batch that went well in the file that TDS_RECORD names, for whoever wants to judge the texts that go out.
void Record(const std::string& batch)
{
    const char* file = std::getenv("TDS_RECORD");
    if (file == nullptr)
        return;
    std::ofstream(file, std::ios::binary | std::ios::app) << batch + "\nGO\n" << std::flush;
}

void ServeBatches(Line& line, BatchRunner& runner, const ServerPlan& plan, int& cutsSeen)
{
    while (const auto message = line.Read()) {
        Answer answer;
        if (message->kind == MessageKind::Attention) {
            answer.Cancelled();
        } else if (message->kind != MessageKind::Batch) {
            answer.Error(2812, 16, "Could not find stored procedure: this server takes batches alone.");
            answer.DoneWithError();
        } else {
            const std::string batch = BatchText(message->bytes);
            if (!plan.hangsAt.empty() && batch.find(plan.hangsAt) != std::string::npos)
                HangForever();
            if (CutsAt(batch, plan, cutsSeen))
                return;
            if (runner.Run(batch, answer))
                Record(batch);
        }
        line.Answer(answer.Get());
    }
}

}

void Serve(int socket, const ServerPlan& plan, int& cutsSeen)
{
    if (plan.silent)
        HangForever();
    Line line(socket);
    auto message = line.Read();
    if (message && message->kind == MessageKind::Prelogin) {
        line.Answer(PreloginAnswer());
        message = line.Read();
    }
    if (!message || message->kind != MessageKind::Login)
        return;
    const Login login = ReadLogin(message->bytes);
    Answer answer;
    const bool in = SignIn(login, plan, answer);
    if (!in) {
        line.Answer(answer.Get());
        return;
    }
    BatchRunner runner(plan.folder, login.database);
    line.Answer(answer.Get());
    ServeBatches(line, runner, plan, cutsSeen);
}

}
