#include "automation/Stories.h"

#include "automation/StoryPlayer.h"
#include "automation/StoryTelling.h"

#include <ostream>

namespace rovanta {

/// Plays one story; writes what differs and returns whether nothing did.
static bool PlayStory(const std::string& path, const StoryOptions& options, std::ostream& out)
{
    int line = 0;
    try {
        const std::vector<StoryStep> steps = ReadStory(path);
        StoryPlayer player(path, options);
        for (const StoryStep& step : steps) {
            line = step.line;
            const std::string words = options.tell ? Tell(step, player) : std::string{};
            player.Play(step);
            if (!words.empty())
                out << (step.verb == "say" ? "\n" : "    ") << words << std::endl;
        }
        player.Finish();
        return true;
    } catch (const StoryDifference& difference) {
        out << path << ":" << line << ": differs\n" << difference.what() << std::endl;
    } catch (const std::exception& failure) {
        out << path << ":" << line << ": " << failure.what() << std::endl;
    }
    return false;
}

int PlayStories(const std::vector<std::string>& paths, const StoryOptions& options, std::ostream& out)
{
    int differing = 0;
    for (const std::string& path : paths)
        differing += PlayStory(path, options, out) ? 0 : 1;
    out << paths.size() << (paths.size() == 1 ? " story, " : " stories, ");
    if (differing == 0)
        out << "all as written\n";
    else
        out << differing << (differing == 1 ? " differs\n" : " differ\n");
    return differing;
}

}
