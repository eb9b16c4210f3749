#pragma once

#include "store/Connection.h"

#include <csignal>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace rovanta::tests {

/// Another process that books two tours in each transaction, over and over until it is ended.
class BusyDesk {
public:
    /// After each of the first bookings it runs one of these statements.
    explicit BusyDesk(const std::string& text, const std::vector<std::string>& between = {}) : process(fork())
    {
        if (process == 0)
            Work(text, between);
    }
    ~BusyDesk()
    {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0);
    }
    BusyDesk(const BusyDesk&) = delete;
    BusyDesk& operator=(const BusyDesk&) = delete;

private:
    [[noreturn]] static void Work(const std::string& text, const std::vector<std::string>& between)
    {
        try {
            Connection connection;
            connection.Open(text);
            for (std::size_t round = 0;; ++round) {
                connection.Execute("BEGIN TRANSACTION");
                connection.Execute("INSERT INTO Tour (TourName) VALUES ('Left')");
                connection.Execute("INSERT INTO Tour (TourName) VALUES ('Right')");
                connection.Execute("COMMIT TRANSACTION");
                if (round < between.size())
                    connection.Execute(Statement::Verbatim(between[round]));
            }
        } catch (const std::exception&) {
            _exit(1);
        }
    }

    pid_t process;
};

}
