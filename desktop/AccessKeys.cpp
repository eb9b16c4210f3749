#include "desktop/AccessKeys.h"

#include "desktop/Layout.h"
#include "forms/ChoiceControls.h"
#include "forms/Form.h"

#include <cctype>

namespace rovanta {

static constexpr const char* allLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

static char Upper(char letter)
{
    return static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
}

static bool IsWordStart(std::string_view text, std::size_t at)
{
    return at == 0 || !std::isalnum(static_cast<unsigned char>(text[at - 1]));
}

/// The best letter of `caption` among `free`: the first that begins a word, else the first at all.
static std::optional<AccessKey> Choose(std::string_view caption, std::string_view free)
{
    std::optional<AccessKey> any;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        const char letter = Upper(caption[at]);
        if (free.find(letter) == std::string_view::npos)
            continue;
        if (IsWordStart(caption, at))
            return AccessKey{at, letter};
        if (!any)
            any = AccessKey{at, letter};
    }
    return any;
}

AccessKeys::AccessKeys(const Form& form, const Node& layout) : free(allLetters)
{
    std::erase_if(free, [](char letter) { return menuLetters.find(letter) != std::string_view::npos; });
    Bearers bearers;
    Gather(form, layout, false, bearers);
    for (const Control* button : bearers.buttons)
        Assign(*button, 0, button->Caption());
    for (const Tabs* tabs : bearers.tabs) {
        for (std::size_t page = 0; page < tabs->Captions().size(); ++page)
            Assign(*tabs, page, tabs->Captions()[page]);
    }
    for (const auto* group : {&bearers.pageButtons, &bearers.choices, &bearers.boxes}) {
        for (const Control* control : *group)
            Assign(*control, 0, control->Caption());
    }
}

void AccessKeys::Gather(const Form& form, const Node& node, bool onPage, Bearers& bearers)
{
    const bool named = node.kind == NodeKind::Control || node.kind == NodeKind::Pages;
    const Control* control = named ? form.FindControl(node.text) : nullptr;
    if (control) {
        switch (control->Kind()) {
        case ControlKind::Button:
            (onPage ? bearers.pageButtons : bearers.buttons).push_back(control);
            break;
        case ControlKind::Tabs:
            bearers.tabs.push_back(static_cast<const Tabs*>(control));
            break;
        case ControlKind::Label:
            break;
        case ControlKind::CheckBox:
        case ControlKind::OptionButton:
            if (!node.bare)
                bearers.choices.push_back(control);
            break;
        default:
            if (!node.bare)
                bearers.boxes.push_back(control);
        }
    }
    for (const Node& child : node.children)
        Gather(form, child, onPage || node.kind == NodeKind::Page, bearers);
}

void AccessKeys::Assign(const Control& control, std::size_t page, std::string_view caption)
{
    const auto key = Choose(PlainCaption(caption), free);
    if (!key)
        return;
    std::erase(free, key->letter);
    keys[{&control, page}] = *key;
}

const AccessKey* AccessKeys::Find(const Control& control) const
{
    return FindPage(control, 0);
}

const AccessKey* AccessKeys::FindPage(const Control& tabs, std::size_t index) const
{
    const auto found = keys.find({&tabs, index});
    return found == keys.end() ? nullptr : &found->second;
}

std::vector<std::optional<AccessKey>> KeysOfMenu(const std::vector<std::string>& captions)
{
    std::string free = allLetters;
    std::vector<std::optional<AccessKey>> keys;
    for (const std::string& caption : captions) {
        keys.push_back(Choose(caption, free));
        if (keys.back())
            std::erase(free, keys.back()->letter);
    }
    return keys;
}

std::string PlainCaption(std::string_view caption)
{
    std::string plain;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        plain += caption[at];
        if (caption[at] == '&' && at + 1 < caption.size() && caption[at + 1] == '&')
            ++at;
    }
    return plain;
}

}
