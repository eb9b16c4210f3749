#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

class Control;
class Form;
class Tabs;
struct Node;

/// The letters that open the menus of the main window, in the order of the bar; no form may take them.
inline constexpr std::string_view menuLetters = "FDKTEAMRH";

/// Who bears an access key: which letter of the caption, and the letter itself in upper case.
struct AccessKey {
    std::size_t position = 0;
    char letter = 0;
};

/// The access keys of a form, no letter twice: first the buttons that are always seen, then the tabs, the buttons on
/// pages, check boxes and options, and the boxes in reading order, as long as letters last. The first letter of a word
/// is preferred.
class AccessKeys {
public:
    AccessKeys(const Form& form, const Node& layout);

    /// The key of a control, or nullptr.
    const AccessKey* Find(const Control& control) const;
    /// The key of the page `index` of a tab control, or nullptr.
    const AccessKey* FindPage(const Control& tabs, std::size_t index) const;
    std::size_t Count() const { return keys.size(); }

private:
    using Place = std::pair<const Control*, std::size_t>;
    /// The controls of a layout that may bear a key, by who comes first.
    struct Bearers {
        std::vector<const Control*> buttons;
        std::vector<const Tabs*> tabs;
        std::vector<const Control*> pageButtons;
        std::vector<const Control*> choices;
        std::vector<const Control*> boxes;
    };

    static void Gather(const Form& form, const Node& node, bool onPage, Bearers& bearers);
    void Assign(const Control& control, std::size_t page, std::string_view caption);

    std::string free;
    std::map<Place, AccessKey> keys;
};

/// A key for each of the captions of one menu, nothing where no letter is left.
std::vector<std::optional<AccessKey>> KeysOfMenu(const std::vector<std::string>& captions);

/// A caption as people read it: a doubled ampersand stands for one.
std::string PlainCaption(std::string_view caption);

}
