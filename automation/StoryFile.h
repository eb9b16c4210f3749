#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

/// A word of a step. A quoted one is a text whatever it says.
struct StoryWord {
    std::string text;
    bool quoted = false;

    /// Whether it is that word, without quotes.
    bool Is(std::string_view word) const { return !quoted && text == word; }
    /// The whole number that it is without quotes; nothing when it is none or begins with needless zeros.
    std::optional<int> Number() const;
};

using StoryRows = std::vector<std::vector<StoryWord>>;

/// One step: its first word, what stands behind it, and the indented rows below it.
struct StoryStep {
    int line = 0;
    std::string verb;
    std::string rest;
    StoryRows rows;

    std::string Text() const { return rest.empty() ? verb : verb + " " + rest; }
    /// The step that stands behind a first word such as "refused".
    StoryStep Behind() const;
};

/// What a story says and what was found instead.
class StoryDifference : public std::runtime_error {
public:
    StoryDifference(const std::string& expected, const std::string& found)
        : std::runtime_error("  expected: " + expected + "\n  found:    " + found)
    {
    }
};

/// The steps of a story's file. Throws RunTimeError when there is no such file.
std::vector<StoryStep> ReadStory(const std::string& path);
/// The steps in a story's text. Throws StoryDifference for an indented row with no step above it.
std::vector<StoryStep> ParseStory(std::string_view text);

/// The words of a text: blanks part them, but not within double quotes, where \" \\ \t and \n (a line break) are known.
/// Throws StoryDifference when a quote is not closed.
std::vector<StoryWord> Words(std::string_view text);

std::string InQuotes(std::string_view text);

}
