#include "tests/tds/Session.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace rovanta;

namespace {

const char* const usage =
    R"(Usage: tds_server --user NAME --password TEXT [OPTION ...] [-- COMMAND ARGUMENT ...]

A server on loopback that speaks TDS 7.4. Each database is a file NAME.db in DIR, or in a folder that goes with the
server. Prints its port and serves until its standard input ends; with a command, runs that with the server's
connection text in ROVANTA_TEST_SERVER, and ends with it.

  --folder DIR        where the databases lie
  --silent            never answers anything
  --hang TEXT         never answers a batch that holds TEXT
  --cut TEXT COUNT    cuts the line at the batch that holds TEXT for the COUNTth time

With TDS_RECORD=FILE each batch that went well is noted in FILE, with a line GO behind it.
)";

struct Options {
    tds::ServerPlan plan;
    std::vector<std::string> command;
};

Options ReadOptions(const std::vector<std::string>& arguments)
{
    Options options;
    std::size_t at = 0;
    const auto next = [&] {
        if (++at >= arguments.size())
            throw std::runtime_error(usage);
        return arguments[at];
    };
    for (; at < arguments.size(); ++at) {
        const std::string& option = arguments[at];
        if (option == "--folder")
            options.plan.folder = next();
        else if (option == "--user")
            options.plan.user = next();
        else if (option == "--password")
            options.plan.password = next();
        else if (option == "--silent")
            options.plan.silent = true;
        else if (option == "--hang")
            options.plan.hangsAt = next();
        else if (option == "--cut") {
            options.plan.cutsAt = next();
            options.plan.cutsAtCount = std::stoi(next());
        } else if (option == "--") {
            options.command.assign(arguments.begin() + static_cast<std::ptrdiff_t>(at) + 1, arguments.end());
            break;
        } else
            throw std::runtime_error(usage);
    }
    return options;
}

struct Listener {
    int socket = -1;
    int port = 0;
};

Listener Listen()
{
    Listener listener;
    listener.socket = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (bind(listener.socket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener.socket, 64) != 0 ||
        getsockname(listener.socket, reinterpret_cast<sockaddr*>(&address), &length) != 0)
        throw std::runtime_error("cannot listen on loopback");
    listener.port = ntohs(address.sin_port);
    return listener;
}

/// Each client is served by a process of its own, so that one that hangs or ends holds up no other.
[[noreturn]] void ServeClients(const Listener& listener, const tds::ServerPlan& plan)
{
    // They count together how often they have met the text that the line is to be cut at.
    auto* cutsSeen =
        static_cast<int*>(mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    std::signal(SIGCHLD, SIG_IGN);
    for (;;) {
        const int client = accept(listener.socket, nullptr, nullptr);
        if (client < 0)
            continue;
        if (fork() == 0) {
            close(listener.socket);
            const int atOnce = 1;
            setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof atOnce);
            try {
                tds::Serve(client, plan, *cutsSeen);
            } catch (const std::exception& error) {
                std::cerr << "tds_server: " << error.what() << '\n';
            }
            _exit(0);
        }
        close(client);
    }
}

/// A folder that goes with the object; the process that made it alone removes it.
class PassingFolder {
public:
    PassingFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "tds-server-XXXXXX").string();
        path = mkdtemp(name.data());
    }
    ~PassingFolder()
    {
        std::error_code ignored;
        if (getpid() == maker)
            std::filesystem::remove_all(path, ignored);
    }
    PassingFolder(const PassingFolder&) = delete;
    PassingFolder& operator=(const PassingFolder&) = delete;

    std::filesystem::path path;

private:
    pid_t maker = getpid();
};

int RunCommand(const Options& options, int port)
{
    const std::string server = "Driver={FreeTDS};Server=127.0.0.1;Port=" + std::to_string(port) +
                               ";UID=" + options.plan.user + ";PWD=" + options.plan.password +
                               ";TDS_Version=7.4;ClientCharset=UTF-8";
    setenv("ROVANTA_TEST_SERVER", server.c_str(), 1);
    std::vector<std::string> command = options.command;
    std::vector<char*> arguments;
    for (std::string& word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        execvp(arguments[0], arguments.data());
        std::perror(arguments[0]);
        _exit(127);
    }
    int status = 1;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

}

int main(int count, char** words)
{
    try {
        Options options = ReadOptions({words + 1, words + count});
        std::optional<PassingFolder> passing;
        if (options.plan.folder.empty())
            options.plan.folder = passing.emplace().path;
        const Listener listener = Listen();
        const pid_t server = fork();
        if (server == 0) {
            setpgid(0, 0);
            ServeClients(listener, options.plan);
        }
        setpgid(server, server);
        close(listener.socket);
        int result = 0;
        if (options.command.empty()) {
            std::cout << listener.port << std::endl;
            while (std::cin.get() != EOF) {
            }
        } else {
            result = RunCommand(options, listener.port);
        }
        kill(-server, SIGTERM);
        waitpid(server, nullptr, 0);
        return result;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}
