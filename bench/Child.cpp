#include "bench/Child.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <spawn.h>
#include <stdexcept>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace rovanta::bench {

Child::Child(const std::vector<std::string>& command) : name(command.front())
{
    // A child that is gone is told by the read that follows.
    std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("No pipe for " + name);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const int failure = posix_spawn(&process, name.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(in[0]);
    close(out[1]);
    toChild = in[1];
    fromChild = out[0];
    if (failure != 0)
        throw std::runtime_error("Cannot start " + name);
}

Child::~Child()
{
    if (toChild >= 0)
        close(toChild);
    if (fromChild >= 0)
        close(fromChild);
    if (process > 0)
        waitpid(process, nullptr, 0);
}

void Child::WriteLine(const std::string& line)
{
    const std::string whole = line + "\n";
    if (write(toChild, whole.data(), whole.size()) != static_cast<ssize_t>(whole.size()))
        throw std::runtime_error(name + " takes no input");
}

std::string Child::ReadLine()
{
    std::string line;
    char letter = 0;
    while (read(fromChild, &letter, 1) == 1) {
        if (letter == '\n')
            return line;
        line += letter;
    }
    throw std::runtime_error(name + " ended before it answered");
}

double Child::Peak() const
{
    // The kernel's own account of an ended child would count what its parent held at the start, too.
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    constexpr std::string_view label = "VmHWM:";
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(label))
            return std::stod(line.substr(label.size())) / 1024;
    throw std::runtime_error(name + " tells no memory");
}

void Child::Finish()
{
    close(toChild);
    toChild = -1;
    int status = 0;
    waitpid(process, &status, 0);
    process = 0;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(name + " ended by a failure");
}

}
