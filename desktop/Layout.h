#pragma once

#include <concepts>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace rovanta {

enum class NodeKind {
    Control,  ///< a control with its caption and note
    Caption,  ///< the caption of a control, apart from it
    Note,     ///< the note of a control, apart from it
    Words,    ///< a fixed text, for headings
    Nothing,  ///< an empty cell
    Stretch,  ///< takes the room that is left
    Column,   ///< one below the other
    Row,      ///< side by side
    Fields,   ///< a caption and its box a line
    Together, ///< several boxes on one line of fields
    Group,    ///< a card with a title
    Pages,    ///< tabs
    Page,     ///< what one tab holds
    Table,    ///< repeated lines in columns under headings
    Headings, ///< the first line of a table
    Line      ///< one line of a table
};

/// One piece of a screen's layout: plain data that names controls and never touches them.
struct Node {
    Node(const char* control) : Node(NodeKind::Control, control) {}
    Node(NodeKind kind, std::string text, std::vector<Node> children = {})
        : kind(kind), text(std::move(text)), children(std::move(children))
    {
    }

    NodeKind kind;
    std::string text; ///< a control's name, a group's title or a fixed text
    std::vector<Node> children;
    int characters = 0;   ///< the width of a box in digits, 0 for the kind's own
    int atLeast = 0;      ///< the least width of a box that takes the room that is left, 0 for the kind's own
    int lines = 0;        ///< the height of a box in lines, 0 for the control's own
    int weight = 0;       ///< the share of the room that is left, 0 for the kind's own
    bool number = false;  ///< a box whose text is a number and stands at the right
    bool bare = false;    ///< without its caption and note
    bool display = false; ///< a box that is read more than written: large and quiet
};

struct Column : Node {
    Column(std::initializer_list<Node> nodes) : Node(NodeKind::Column, {}, nodes) {}
};

struct Row : Node {
    Row(std::initializer_list<Node> nodes) : Node(NodeKind::Row, {}, nodes) {}
};

struct Fields : Node {
    Fields(std::initializer_list<Node> nodes) : Node(NodeKind::Fields, {}, nodes) {}
};

struct Together : Node {
    Together(std::initializer_list<Node> nodes) : Node(NodeKind::Together, {}, nodes) {}
};

struct Group : Node {
    template <std::convertible_to<Node>... Nodes>
    Group(const char* title, Nodes... nodes) : Node(NodeKind::Group, title, {Node(nodes)...})
    {
    }
};

struct Page : Node {
    Page(std::initializer_list<Node> nodes) : Node(NodeKind::Page, {}, nodes) {}
};

struct Pages : Node {
    template <std::same_as<Page>... EachPage>
    Pages(const char* tabs, EachPage... pages) : Node(NodeKind::Pages, tabs, {Node(pages)...})
    {
    }
};

struct Table : Node {
    Table(std::initializer_list<Node> lines) : Node(NodeKind::Table, {}, lines) {}
};

struct Headings : Node {
    Headings(std::initializer_list<const char*> texts);
};

struct Line : Node {
    /// The cells are bare: the headings speak for them.
    Line(std::initializer_list<Node> cells);
};

/// Takes the room that is left.
Node Stretch();
/// An empty cell of a table or a line.
Node Nothing();
/// A fixed text before boxes that have no caption of their own.
Node Words(const char* text);
/// The caption or the note of a control that stands elsewhere without it.
Node CaptionOf(const char* control);
Node NoteOf(const char* control);
/// A box as wide as that many digits.
Node Chars(const char* control, int digits);
/// The same for a number, which stands at the right of its box.
Node Number(const char* control, int digits);
/// A box that takes the room that is left, and that many digits at least.
Node Wide(const char* control, int digits);
/// A box of that many lines, or a list that would like to show so many.
Node Lines(const char* control, int lines);
/// A control without its caption and note.
Node Bare(Node control);
/// A box that is read more than it is written: its text stands large, and its frame shows when somebody turns to it.
Node Display(const char* control);
/// A piece with its share of the room that is left beside its neighbours.
Node Weighted(int weight, Node node);

/// Calls `visit` for every control that stands in the layout, in reading order; the tabs before their pages.
void VisitControls(const Node& layout, const std::function<void(const Node&)>& visit);

}
