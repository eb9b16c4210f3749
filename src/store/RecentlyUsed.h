#pragma once

#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace rovanta {

/// Keeps what was used last under its key, up to a number of them.
template <class Content>
class RecentlyUsed {
public:
    explicit RecentlyUsed(std::size_t most) : most(most) {}

    /// The content under that key, which is then the one used last; null when there is none. It stays where it is for
    /// as long as it is kept.
    Content* Find(std::string_view key)
    {
        const auto found = byKey.find(key);
        if (found == byKey.end())
            return nullptr;
        entries.splice(entries.begin(), entries, found->second);
        return &found->second->second;
    }

    /// Keeps the content under a new key, as the one used last. What goes for it comes back: the one not used longest.
    std::optional<Content> Add(std::string key, Content content)
    {
        entries.emplace_front(std::move(key), std::move(content));
        byKey.emplace(entries.front().first, entries.begin());
        if (entries.size() <= most)
            return std::nullopt;
        byKey.erase(entries.back().first);
        std::optional<Content> gone(std::move(entries.back().second));
        entries.pop_back();
        return gone;
    }

    void Remove(std::string_view key)
    {
        const auto found = byKey.find(key);
        if (found == byKey.end())
            return;
        const auto entry = found->second;
        byKey.erase(found);
        entries.erase(entry);
    }

private:
    using Entries = std::list<std::pair<const std::string, Content>>;

    std::size_t most;
    Entries entries;
    std::unordered_map<std::string_view, typename Entries::iterator> byKey;
};

}
