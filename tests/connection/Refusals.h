#pragma once

#include "support/Tally.h"
#include "support/TestApp.h"
#include "values/Text.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <future>
#include <string>
#include <vector>

#include <sys/wait.h>

namespace rovanta::tests {

/// A connection text that leads nowhere, and what the programs must say of it. Every password in it holds "sesame".
struct WrongText {
    std::string text;
    std::vector<std::string> told;
};

/// How a program that was started ended.
struct Ending {
    int code = -1;
    std::string output; ///< both streams
    double seconds = 0;
};

inline Ending RunProgram(const std::string& arguments)
{
    const auto start = std::chrono::steady_clock::now();
    Ending ending;
    std::FILE* pipe = popen((std::string(BINARY_FOLDER) + "/bin/" + arguments + " 2>&1 </dev/null").c_str(), "r");
    std::array<char, 512> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), pipe) != nullptr)
        ending.output += buffer.data();
    const int status = pclose(pipe);
    ending.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    ending.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return ending;
}

/// An office whose config.txt holds that connection text, met by both programs at once.
class Meeting {
public:
    explicit Meeting(WrongText wrong) : wrong(std::move(wrong))
    {
        WriteContent(office.ConfigPath(),
                     Replace(ContentOf(office.ConfigPath()), "sqlite:rovanta.db", this->wrong.text));
        const auto start = [](const std::string& arguments) {
            return std::async(std::launch::async, [arguments] { return RunProgram(arguments); });
        };
        desk = start("rovanta-automation --config " + office.ConfigPath() + " --machine wrong-" +
                     office.folder.path.filename().string());
        tool = start("rovanta-db check " + office.folder.path.string());
    }

    /// Whether both programs ended as they must.
    bool Check()
    {
        CAPTURE(wrong.text);
        Ending deskEnd = desk.get();
        const Ending toolEnd = tool.get();
        // It speaks JSON.
        deskEnd.output = Replace(deskEnd.output, "\\\"", "\"");
        const bool right = Told(deskEnd) && Told(toolEnd) && toolEnd.output.starts_with("rovanta-db: ");
        CAPTURE(deskEnd.output);
        CAPTURE(deskEnd.seconds);
        CAPTURE(toolEnd.output);
        CAPTURE(toolEnd.seconds);
        CHECK(right);
        return right;
    }

private:
    /// One line, in time, with all that must stand in it and without the password.
    bool Told(const Ending& ending) const
    {
        const auto holds = [&](const std::string& text) { return ending.output.find(text) != std::string::npos; };
        return ending.code == 1 && ending.seconds < 11 && !holds("sesame") &&
               std::count(ending.output.begin(), ending.output.end(), '\n') == 1 &&
               std::all_of(wrong.told.begin(), wrong.told.end(), holds);
    }

    WrongText wrong;
    TestOffice office;
    std::future<Ending> desk;
    std::future<Ending> tool;
};

/// Has both programs meet each of the texts. Those that take their time do so side by side.
inline void CheckRefusals(const std::string& engine, const std::vector<WrongText>& texts)
{
    constexpr std::size_t sideBySide = 4;
    std::vector<std::unique_ptr<Meeting>> meetings;
    std::size_t right = 0;
    for (std::size_t i = 0; i < texts.size() + sideBySide; ++i) {
        if (i < texts.size())
            meetings.push_back(std::make_unique<Meeting>(texts[i]));
        if (i >= sideBySide && i - sideBySide < texts.size())
            right += meetings[i - sideBySide]->Check() ? 1 : 0;
    }
    TellTally("wrong texts for " + engine, right, texts.size());
}

/// A listener on loopback that takes every connection and never says a word.
class SilentServer {
public:
    SilentServer();
    ~SilentServer();
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;

    std::string Port() const;

private:
    int listener;
};

}
