#pragma once

#include <string>

namespace rovanta {

/// The mark that a copy of the program runs on this machine: a locked file, freed by the system when the process ends.
class SecondCopyGuard {
public:
    /// `machine` is the machine that this copy stands for; empty for the computer itself.
    explicit SecondCopyGuard(const std::string& machine);
    ~SecondCopyGuard();
    SecondCopyGuard(const SecondCopyGuard&) = delete;
    SecondCopyGuard& operator=(const SecondCopyGuard&) = delete;

    /// Whether no other copy holds the mark.
    bool IsFirst() const { return first; }

private:
    int file = -1;
    bool first = false;
};

}
