#pragma once

#include <filesystem>
#include <string>

namespace rovanta::tds {

/// What the server knows, and what is to go wrong.
struct ServerPlan {
    std::filesystem::path folder;
    std::string user;
    std::string password;
    /// Never answers anything.
    bool silent = false;
    /// Never answers a batch that holds this text.
    std::string hangsAt;
    /// Cuts the line, without running it, at the batch that holds this text for the `cutsAtCount`th time since the
    /// server started.
    std::string cutsAt;
    int cutsAtCount = 1;
};

/// Serves one client until it goes. `cutsSeen` counts over all clients.
void Serve(int socket, const ServerPlan& plan, int& cutsSeen);

}
