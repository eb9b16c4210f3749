#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace rovanta {

/// How stories are played.
struct StoryOptions {
    /// The office to play in; empty for the one that the story names.
    std::string configPath;
    /// The folder that the story's office is made in and stays in; empty for one that goes.
    std::string keep;
    /// Tell each step in plain words.
    bool tell = false;
};

/// Plays stories one after the other and writes to `out` what differs. Returns how many of them differ.
int PlayStories(const std::vector<std::string>& paths, const StoryOptions& options, std::ostream& out);

}
