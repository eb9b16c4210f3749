#pragma once

#include "forms/Control.h"

#include <string>
#include <string_view>
#include <vector>

namespace rovanta {

/// A list of entries with a chosen one (-1 for none) and a text of its own.
class ComboBox : public Control {
public:
    ComboBox(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    ComboBox(Form* form, std::string name, Visibility visibility);

    ControlKind Kind() const override { return ControlKind::ComboBox; }

    void Clear();
    void AddItem(const std::string& entry);
    int ListCount() const { return static_cast<int>(entries.size()); }
    const std::vector<std::string>& Entries() const { return entries; }
    /// The entry at `index`; the empty text for -1 or any place beyond the list.
    std::string List(int index) const;

    const std::string& Text() const { return text; }
    bool IsEmpty() const { return text.empty(); }
    void SetText(const std::string& newText);
    void operator=(const std::string& newText) { SetText(newText); }

    int ListIndex() const { return listIndex; }
    /// Chooses the entry at `index`, none for -1 or a place beyond the list.
    void SetListIndex(int index);

    /// The place of an entry that equals `entry`, -1 when there is none.
    int IndexOf(std::string_view entry) const;

    /// A person picks the entry: fires Click also on the entry that stands already.
    void Pick(int index);
    /// A person presses a key of one character (UTF-8). A routine may set the key to the empty text to swallow it;
    /// what it leaves is typed at the end of the text.
    void PressKey(std::string key);

    Event Click;
    Event Change;
    EventOf<std::string&> KeyPress;

private:
    std::vector<std::string> entries;
    std::string text;
    int listIndex = -1;
};

/// A combo of names with a hidden twin of keys, linked by position alone.
class ComboPair : public ComboBox {
public:
    ComboPair(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown);
    /// With a twin of another name than the combo's with "ID" behind it.
    ComboPair(Form* form, std::string name, std::string twinName, std::string caption);
    using ComboBox::operator=;

    void ClearPair();
    void AddPair(const std::string& entry, const std::string& key);
    /// The twin's entry at the chosen position; the empty text when none is chosen.
    std::string Key() const { return id.List(ListIndex()); }
    /// Chooses the first entry with that key, none when no entry has it.
    void SelectKey(std::string_view key);

    ComboBox id;
};

enum class Choosing { One, Several };

/// A list box; one entry or several can be chosen.
class ListBox : public Control {
public:
    ListBox(Form* form, std::string name, std::string caption = {}, Visibility visibility = Visibility::Shown,
            Choosing choosing = Choosing::One);

    ControlKind Kind() const override { return ControlKind::ListBox; }
    bool TakesSeveral() const { return choosing == Choosing::Several; }

    void Clear();
    void AddItem(const std::string& entry);
    void RemoveItem(int index);
    int ListCount() const { return static_cast<int>(entries.size()); }
    const std::vector<std::string>& Entries() const { return entries; }
    std::string List(int index) const;

    int ListIndex() const { return listIndex; }
    void SetListIndex(int index);
    bool Selected(int index) const;
    void SetSelected(int index, bool value);
    /// A person picks the entry: fires Click also on the entry that stands already.
    void Pick(int index);

    Event Click;
    Event DoubleClick;

private:
    std::vector<std::string> entries;
    std::vector<bool> selected;
    Choosing choosing;
    int listIndex = -1;
};

}
