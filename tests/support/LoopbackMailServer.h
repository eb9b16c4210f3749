#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace rovanta::tests {

/// A mail server on loopback in a process of its own; what it takes lies in a folder that goes with it.
class LoopbackMailServer {
public:
    /// `options` are those of tests/fixtures/smtp_server.py, for example {"--login", "user:word"}.
    explicit LoopbackMailServer(std::vector<std::string> options = {})
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "mail-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no folder for the mails");
        folder = pattern;
        int input[2];
        int output[2];
        if (pipe(input) != 0 || pipe(output) != 0)
            throw std::runtime_error("no pipes to the mail server");
        process = fork();
        if (process == 0)
            Become(std::move(options), input, output);
        close(input[0]);
        close(output[1]);
        endOfInput = input[1];
        FILE* answers = fdopen(output[0], "r");
        const bool started = answers != nullptr && std::fscanf(answers, "%d", &port) == 1;
        std::fclose(answers);
        if (!started)
            throw std::runtime_error("the mail server did not start");
    }

    ~LoopbackMailServer()
    {
        Stop();
        std::filesystem::remove_all(folder);
    }

    LoopbackMailServer(const LoopbackMailServer&) = delete;
    LoopbackMailServer& operator=(const LoopbackMailServer&) = delete;

    /// Ends the server; its address stays.
    void Stop()
    {
        if (process <= 0)
            return;
        close(endOfInput);
        waitpid(process, nullptr, 0);
        process = 0;
    }

    std::string Address() const { return "127.0.0.1:" + std::to_string(port); }

    /// How many mails it took.
    int Count() const
    {
        int count = 0;
        while (std::filesystem::exists(folder / (std::to_string(count + 1) + ".eml")))
            ++count;
        return count;
    }

    /// The bytes of the mail of that number, 1 for the first.
    std::string Mail(int number) const { return Read(std::to_string(number) + ".eml"); }
    /// Its envelope as JSON: {"from": ..., "to": [...], "login": ...}.
    std::string Envelope(int number) const { return Read(std::to_string(number) + ".json"); }

private:
    std::string Read(const std::string& name) const
    {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    [[noreturn]] void Become(std::vector<std::string> options, const int* input, const int* output) const
    {
        dup2(input[0], STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        close(input[1]);
        close(output[0]);
        // Debian's own Python, which has the module.
        std::vector<std::string> words{"/usr/bin/python3", SOURCE_FOLDER "/tests/fixtures/smtp_server.py", "--folder",
                                       folder.string()};
        words.insert(words.end(), options.begin(), options.end());
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        execv(arguments[0], arguments.data());
        _exit(127);
    }

    std::filesystem::path folder;
    pid_t process = 0;
    int endOfInput = -1;
    int port = 0;
};

}
