#pragma once

#include "desktop/Layout.h"

#include <vector>

class QBoxLayout;
class QGridLayout;
class QLabel;
class QWidget;

namespace rovanta {

class Binder;
class Control;
class FormWindow;

/// Turns a layout into the widgets of a window.
class LayoutBuilder {
public:
    explicit LayoutBuilder(FormWindow& window) : window(window) {}

    /// Fills the window. Throws std::logic_error when the layout names a control that the form does not have.
    void Build(const Node& layout);
    /// Whether a piece makes use of more height than it needs.
    bool GrowsDown(const Node& node) const;

private:
    void Place(const Node& node, QBoxLayout& into);
    void PlaceControl(const Node& node, QBoxLayout& into);
    void PlaceBox(const Node& node, QBoxLayout& into, bool withGrowth);
    void PlaceFields(const Node& node, QBoxLayout& into);
    void PlaceField(const Node& node, QGridLayout& grid, int row);
    void PlaceTable(const Node& node, QBoxLayout& into);
    void PlaceCell(const Node& node, QGridLayout& grid, int row, int col);
    void PlaceGroup(const Node& node, QBoxLayout& into);
    void PlacePages(const Node& node, QBoxLayout& into);

    Control& ControlOf(const Node& node) const;
    Binder& Bind(const Node& node);
    QLabel* CaptionLabel(Binder& binder) const;
    /// The box with its note behind it.
    QWidget* WithNote(Binder& binder, const Node& node) const;
    void AlignFields();
    void OrderTabs() const;

    FormWindow& window;
    std::vector<Binder*> inOrder;
    /// The fields that stand below one another: their captions take the same width.
    std::vector<QGridLayout*> stacked;
};

}
