#include "frame/SecondCopyGuard.h"

#include "values/Errors.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace rovanta {

static std::string LockFilePath(std::string machine)
{
    std::replace_if(
        machine.begin(), machine.end(), [](unsigned char c) { return !std::isalnum(c) && c != '-' && c != '_'; }, '_');
    const std::string name = machine.empty() ? "rovanta.lock" : "rovanta-" + machine + ".lock";
    return (std::filesystem::temp_directory_path() / name).string();
}

SecondCopyGuard::SecondCopyGuard(const std::string& machine)
{
    const std::string path = LockFilePath(machine);
    // A mark that another user has made is only opened: the system may forbid to ask for its making.
    file = open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (file < 0)
        file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (file < 0)
        throw RunTimeError("The mark of a running copy cannot be made: " + path);
    // Every user of the machine must be able to see the mark, whatever the mask of the one who made it.
    fchmod(file, 0666);
    first = flock(file, LOCK_EX | LOCK_NB) == 0;
}

SecondCopyGuard::~SecondCopyGuard()
{
    close(file);
}

}
