#include "tools/Terminal.h"

#include "values/Errors.h"

#include <iostream>

#include <termios.h>
#include <unistd.h>

namespace rovanta {

namespace {

/// The terminal shows nothing that is typed as long as this lives.
class Silence {
public:
    Silence()
    {
        tcgetattr(STDIN_FILENO, &before);
        termios silent = before;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
    ~Silence() { tcsetattr(STDIN_FILENO, TCSAFLUSH, &before); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    termios before{};
};

}

bool HasTerminal()
{
    return isatty(STDIN_FILENO) == 1;
}

std::string ReadSecret()
{
    std::string line;
    if (!std::getline(std::cin, line))
        throw RunTimeError("The input ended before the password.");
    return line;
}

std::string AskSecret(const std::string& question)
{
    std::cerr << question << std::flush;
    const Silence silence;
    std::string answer = ReadSecret();
    std::cerr << "\n";
    return answer;
}

}
