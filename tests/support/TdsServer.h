#pragma once

#include "store/Connection.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace rovanta {

/// The suite's own TDS server on loopback, with a folder of databases; both go with the object.
class TdsServer {
public:
    explicit TdsServer(std::vector<std::string> options = {}, std::string program = BINARY_FOLDER "/bin/tds_server")
    {
        std::string name = (std::filesystem::temp_directory_path() / "rovanta-tds-XXXXXX").string();
        folder = mkdtemp(name.data());
        std::vector<std::string> words{program, "--folder", folder.string(), "--user", "office", "--password", "coach"};
        words.insert(words.end(), options.begin(), options.end());
        Start(words);
    }
    ~TdsServer()
    {
        // The server goes when its input ends.
        close(input);
        waitpid(process, nullptr, 0);
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    TdsServer(const TdsServer&) = delete;
    TdsServer& operator=(const TdsServer&) = delete;

    std::string Text(const std::string& database, const std::string& more = "",
                     const std::string& password = "coach") const
    {
        return "Driver={FreeTDS};Server=127.0.0.1;Port=" + std::to_string(port) + ";Database=" + database +
               ";UID=office;PWD=" + password + ";TDS_Version=7.4;ClientCharset=UTF-8;" + more;
    }

    void MakeDatabase(const std::string& name) const
    {
        Connection connection;
        connection.Open(Text("master"));
        connection.Execute(Statement::Verbatim("CREATE DATABASE " + name));
    }

    int Port() const { return port; }

private:
    void Start(std::vector<std::string>& words)
    {
        std::array<int, 2> in{};
        std::array<int, 2> out{};
        if (pipe(in.data()) != 0 || pipe(out.data()) != 0)
            throw std::runtime_error("no pipe for the server");
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        process = fork();
        if (process == 0) {
            dup2(in[0], STDIN_FILENO);
            dup2(out[1], STDOUT_FILENO);
            for (const int end : {in[0], in[1], out[0], out[1]})
                close(end);
            execv(arguments[0], arguments.data());
            _exit(127);
        }
        close(in[0]);
        close(out[1]);
        input = in[1];
        FILE* told = fdopen(out[0], "r");
        const bool read = std::fscanf(told, "%d", &port) == 1;
        std::fclose(told);
        if (!read)
            throw std::runtime_error("the server told no port");
    }

    std::filesystem::path folder;
    pid_t process = -1;
    int input = -1;
    int port = 0;
};

}
