#include "automation/StoryFile.h"

#include "values/Errors.h"
#include "values/Text.h"

#include <charconv>
#include <fstream>
#include <iterator>

namespace rovanta {

static constexpr const char* blanks = " \t\r";

static std::string Trimmed(std::string_view text)
{
    const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
    return std::string(text.substr(first, text.find_last_not_of(blanks) + 1 - first));
}

static void SplitOff(StoryStep& step, const std::string& text)
{
    const std::size_t end = std::min(text.find_first_of(blanks), text.size());
    step.verb = text.substr(0, end);
    step.rest = Trimmed(text.substr(end));
}

std::optional<int> StoryWord::Number() const
{
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return !quoted && std::to_string(number) == text ? std::optional(number) : std::nullopt;
}

StoryStep StoryStep::Behind() const
{
    StoryStep behind = *this;
    SplitOff(behind, rest);
    return behind;
}

/// Reads a quoted word whose first quote stands at `at`, and leaves `at` behind its last one.
static StoryWord QuotedWord(std::string_view text, std::size_t& at)
{
    StoryWord word{{}, true};
    for (++at; at < text.size() && text[at] != '"'; ++at) {
        const bool escaped = text[at] == '\\' && at + 1 < text.size();
        if (escaped && text[at + 1] == 'n')
            word.text += lineBreak;
        else
            word.text += escaped && text[at + 1] == 't' ? '\t' : text[at + (escaped ? 1 : 0)];
        at += escaped ? 1 : 0;
    }
    if (at >= text.size())
        throw StoryDifference("a closing quote", std::string(text));
    ++at;
    return word;
}

std::vector<StoryWord> Words(std::string_view text)
{
    std::vector<StoryWord> words;
    std::size_t at = 0;
    while ((at = text.find_first_not_of(blanks, at)) != std::string_view::npos) {
        if (text[at] == '"') {
            words.push_back(QuotedWord(text, at));
            continue;
        }
        const std::size_t end = std::min(text.find_first_of(blanks, at), text.size());
        words.push_back({std::string(text.substr(at, end - at)), false});
        at = end;
    }
    return words;
}

/// The cells of an indented row: what stands between the bars, a quoted cell as one text.
static std::vector<StoryWord> Cells(const std::string& row)
{
    std::vector<StoryWord> cells;
    for (std::size_t at = 0;; ++at) {
        at = std::min(row.find_first_not_of(blanks, at), row.size());
        if (at < row.size() && row[at] == '"') {
            cells.push_back(QuotedWord(row, at));
            at = std::min(row.find('|', at), row.size());
        } else {
            const std::size_t end = std::min(row.find('|', at), row.size());
            cells.push_back({Trimmed(row.substr(at, end - at)), false});
            at = end;
        }
        if (at == row.size())
            return cells;
    }
}

std::vector<StoryStep> ParseStory(std::string_view text)
{
    std::vector<StoryStep> steps;
    int number = 0;
    for (const std::string& line : Split(text, '\n')) {
        ++number;
        const std::string content = Trimmed(line);
        const bool indented = line.starts_with(" ") || line.starts_with("\t");
        if (content.empty() || content.starts_with("#"))
            continue;
        if (indented && steps.empty())
            throw StoryDifference("a step", "an indented row: " + content);
        if (indented) {
            steps.back().rows.push_back(Cells(content));
            continue;
        }
        steps.push_back({number, {}, {}, {}});
        SplitOff(steps.back(), content);
    }
    return steps;
}

std::vector<StoryStep> ReadStory(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        throw RunTimeError("File not found: " + path);
    return ParseStory(std::string{std::istreambuf_iterator<char>(stream), {}});
}

std::string InQuotes(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

}
