#include "tests/connection/Refusals.h"

#include <stdexcept>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace rovanta::tests {

SilentServer::SilentServer() : listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || listen(listener, 8) != 0)
        throw std::runtime_error("cannot listen on loopback");
}

SilentServer::~SilentServer()
{
    close(listener);
}

std::string SilentServer::Port() const
{
    sockaddr_in address{};
    socklen_t length = sizeof address;
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
    return std::to_string(ntohs(address.sin_port));
}

}
