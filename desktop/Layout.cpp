#include "desktop/Layout.h"

namespace rovanta {

static std::vector<Node> AsWords(std::initializer_list<const char*> texts)
{
    std::vector<Node> words;
    for (const char* text : texts)
        words.emplace_back(NodeKind::Words, text);
    return words;
}

Headings::Headings(std::initializer_list<const char*> texts) : Node(NodeKind::Headings, {}, AsWords(texts)) {}

Line::Line(std::initializer_list<Node> cells) : Node(NodeKind::Line, {}, cells)
{
    for (Node& cell : children)
        cell.bare = true;
}

Node Stretch()
{
    return {NodeKind::Stretch, {}};
}

Node Nothing()
{
    return {NodeKind::Nothing, {}};
}

Node Words(const char* text)
{
    return {NodeKind::Words, text};
}

Node CaptionOf(const char* control)
{
    return {NodeKind::Caption, control};
}

Node NoteOf(const char* control)
{
    return {NodeKind::Note, control};
}

Node Chars(const char* control, int digits)
{
    Node node = control;
    node.characters = digits;
    return node;
}

Node Number(const char* control, int digits)
{
    Node node = Chars(control, digits);
    node.number = true;
    return node;
}

Node Wide(const char* control, int digits)
{
    Node node = control;
    node.atLeast = digits;
    return node;
}

Node Lines(const char* control, int lines)
{
    Node node = control;
    node.lines = lines;
    return node;
}

Node Bare(Node control)
{
    control.bare = true;
    return control;
}

Node Display(const char* control)
{
    Node node = control;
    node.display = true;
    return node;
}

Node Weighted(int weight, Node node)
{
    node.weight = weight;
    return node;
}

void VisitControls(const Node& layout, const std::function<void(const Node&)>& visit)
{
    if (layout.kind == NodeKind::Control || layout.kind == NodeKind::Pages)
        visit(layout);
    for (const Node& child : layout.children)
        VisitControls(child, visit);
}

}
