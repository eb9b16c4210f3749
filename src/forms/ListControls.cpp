#include "forms/ListControls.h"

#include "values/Text.h"

#include <algorithm>

namespace rovanta {

static std::string EntryAt(const std::vector<std::string>& entries, int index)
{
    const bool inside = index >= 0 && index < static_cast<int>(entries.size());
    return inside ? entries[static_cast<std::size_t>(index)] : std::string{};
}

ComboBox::ComboBox(Form* form, std::string name, std::string caption, Visibility visibility)
    : Control(form, std::move(name), std::move(caption), visibility)
{
}

ComboBox::ComboBox(Form* form, std::string name, Visibility visibility)
    : ComboBox(form, std::move(name), {}, visibility)
{
}

void ComboBox::Clear()
{
    entries.clear();
    listIndex = -1;
    text.clear();
    Changed();
}

void ComboBox::AddItem(const std::string& entry)
{
    entries.push_back(entry);
    Changed();
}

std::string ComboBox::List(int index) const
{
    return EntryAt(entries, index);
}

void ComboBox::SetText(const std::string& newText)
{
    if (text == newText)
        return;
    const int index = IndexOf(newText);
    if (index >= 0) {
        SetListIndex(index);
        return;
    }
    listIndex = -1;
    text = newText;
    Changed();
    Change.Fire();
}

void ComboBox::SetListIndex(int index)
{
    const int wanted = index >= 0 && index < ListCount() ? index : -1;
    if (wanted == listIndex && List(wanted) == text)
        return;
    listIndex = wanted;
    text = List(wanted);
    Changed();
    Click.Fire();
}

int ComboBox::IndexOf(std::string_view entry) const
{
    auto found = std::find(entries.begin(), entries.end(), entry);
    if (found == entries.end())
        found = std::find_if(entries.begin(), entries.end(),
                             [&](const std::string& each) { return EqualNoCase(each, entry); });
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

void ComboBox::Pick(int index)
{
    if (index == listIndex && List(index) == text)
        Click.Fire();
    else
        SetListIndex(index);
}

void ComboBox::PressKey(std::string key)
{
    KeyPress.Fire(key);
    if (!key.empty())
        SetText(text + key);
}

ComboPair::ComboPair(Form* form, std::string name, std::string caption, Visibility visibility)
    : ComboBox(form, name, std::move(caption), visibility), id(form, name + "ID", Visibility::Hidden)
{
}

ComboPair::ComboPair(Form* form, std::string name, std::string twinName, std::string caption)
    : ComboBox(form, std::move(name), std::move(caption)), id(form, std::move(twinName), Visibility::Hidden)
{
}

void ComboPair::ClearPair()
{
    Clear();
    id.Clear();
}

void ComboPair::AddPair(const std::string& entry, const std::string& key)
{
    AddItem(entry);
    id.AddItem(key);
}

void ComboPair::SelectKey(std::string_view key)
{
    SetListIndex(id.IndexOf(key));
}

ListBox::ListBox(Form* form, std::string name, std::string caption, Visibility visibility, Choosing choosing)
    : Control(form, std::move(name), std::move(caption), visibility), choosing(choosing)
{
}

void ListBox::Clear()
{
    entries.clear();
    selected.clear();
    listIndex = -1;
    Changed();
}

void ListBox::AddItem(const std::string& entry)
{
    entries.push_back(entry);
    selected.push_back(false);
    Changed();
}

void ListBox::RemoveItem(int index)
{
    if (index < 0 || index >= ListCount())
        return;
    entries.erase(entries.begin() + index);
    selected.erase(selected.begin() + index);
    if (index == listIndex)
        listIndex = -1;
    else if (index < listIndex)
        --listIndex;
    Changed();
}

std::string ListBox::List(int index) const
{
    return EntryAt(entries, index);
}

void ListBox::SetListIndex(int index)
{
    const int wanted = index >= 0 && index < ListCount() ? index : -1;
    if (wanted == listIndex)
        return;
    listIndex = wanted;
    if (!TakesSeveral())
        std::fill(selected.begin(), selected.end(), false);
    if (!TakesSeveral() && wanted >= 0)
        selected[static_cast<std::size_t>(wanted)] = true;
    Changed();
    Click.Fire();
}

bool ListBox::Selected(int index) const
{
    return index >= 0 && index < ListCount() && selected[static_cast<std::size_t>(index)];
}

void ListBox::SetSelected(int index, bool value)
{
    if (index < 0 || index >= ListCount() || Selected(index) == value)
        return;
    if (!TakesSeveral()) {
        SetListIndex(value ? index : -1);
        return;
    }
    selected[static_cast<std::size_t>(index)] = value;
    listIndex = index;
    Changed();
    Click.Fire();
}

void ListBox::Pick(int index)
{
    if (index == listIndex)
        Click.Fire();
    else
        SetListIndex(index);
}

}
