#pragma once

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

    void Check()
    {
        CAPTURE(wrong.text);
        Ending deskEnd = desk.get();
        const Ending toolEnd = tool.get();
        // It speaks JSON.
        deskEnd.output = Replace(deskEnd.output, "\\\"", "\"");
        CHECK(toolEnd.output.starts_with("rovanta-db: "));
        for (const Ending& ending : {deskEnd, toolEnd}) {
            CAPTURE(ending.output);
            CHECK(ending.code == 1);
            for (const std::string& told : wrong.told)
                CHECK(ending.output.find(told) != std::string::npos);
            CHECK(ending.output.find("sesame") == std::string::npos);
            CHECK(std::count(ending.output.begin(), ending.output.end(), '\n') == 1);
            CHECK(ending.seconds < 10.5);
        }
    }

private:
    WrongText wrong;
    TestOffice office;
    std::future<Ending> desk;
    std::future<Ending> tool;
};

/// Has both programs meet each of the texts. Those that take their time do so side by side.
inline void CheckRefusals(const std::vector<WrongText>& texts)
{
    constexpr std::size_t sideBySide = 4;
    std::vector<std::unique_ptr<Meeting>> meetings;
    for (const WrongText& wrong : texts) {
        meetings.push_back(std::make_unique<Meeting>(wrong));
        if (meetings.size() >= sideBySide)
            meetings[meetings.size() - sideBySide]->Check();
    }
    for (std::size_t i = meetings.size() - std::min(meetings.size(), sideBySide - 1); i < meetings.size(); ++i)
        meetings[i]->Check();
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
