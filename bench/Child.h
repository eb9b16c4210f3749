#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace rovanta::bench {

/// A program running beside this one, with lines going in and lines coming out.
class Child {
public:
    /// Throws std::runtime_error when it cannot be started.
    explicit Child(const std::vector<std::string>& command);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    void WriteLine(const std::string& line);
    /// Throws std::runtime_error when the program ends before a line is whole.
    std::string ReadLine();
    /// The most memory that it has held so far, in MiB.
    double Peak() const;
    /// Closes its input and waits for its end. Throws std::runtime_error when it ended by a failure.
    void Finish();

private:
    std::string name;
    pid_t process = 0;
    int toChild = -1;
    int fromChild = -1;
};

}
