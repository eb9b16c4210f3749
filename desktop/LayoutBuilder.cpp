#include "desktop/LayoutBuilder.h"

#include "desktop/FormWindow.h"
#include "desktop/Look.h"
#include "desktop/binders/Binder.h"
#include "desktop/binders/ChoiceBinders.h"
#include "forms/TextControls.h"

#include <QBoxLayout>
#include <QFont>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLayoutItem>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QSizePolicy>
#include <QVBoxLayout>

#include <stdexcept>

namespace rovanta {

/// Buttons, check boxes, options and labels say what they are by themselves.
static bool BearsCaption(const Control& control)
{
    switch (control.Kind()) {
    case ControlKind::Button:
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
    case ControlKind::Label:
    case ControlKind::Tabs:
        return true;
    default:
        return false;
    }
}

static bool IsWide(const Control& control)
{
    return control.Kind() == ControlKind::Grid || control.Kind() == ControlKind::ListBox ||
           control.Kind() == ControlKind::Picture || control.Kind() == ControlKind::RichTextBox;
}

void LayoutBuilder::Build(const Node& layout)
{
    // A stranger is refused before anything is made.
    VisitControls(layout, [this](const Node& node) { ControlOf(node); });
    auto* box = new QVBoxLayout(&window);
    box->setContentsMargins(Look::margin, Look::margin - 4, Look::margin, Look::margin - 4);
    box->setSpacing(0);
    Place(layout, *box);
    AlignFields();
    OrderTabs();
}

Control& LayoutBuilder::ControlOf(const Node& node) const
{
    Control* control = window.Shown().FindControl(node.text);
    if (!control)
        throw std::logic_error("The layout of " + window.Shown().Name() + " names no control of it: " + node.text);
    return *control;
}

Binder& LayoutBuilder::Bind(const Node& node)
{
    auto binder = MakeBinder(window, ControlOf(node), node);
    Binder& bound = *binder;
    window.Add(std::move(binder));
    inOrder.push_back(&bound);
    return bound;
}

static QLabel* QuietLabel()
{
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    QPalette quiet = label->palette();
    quiet.setColor(QPalette::WindowText, Look::caption);
    label->setPalette(quiet);
    label->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
    return label;
}

QLabel* LayoutBuilder::CaptionLabel(Binder& binder) const
{
    QLabel* label = QuietLabel();
    binder.SetCaptionLabel(label, true);
    return label;
}

QWidget* LayoutBuilder::WithNote(Binder& binder, const Node& node) const
{
    if (binder.Bound().Note().empty() || node.bare || binder.Bound().Kind() == ControlKind::OptionButton)
        return &binder.Widget();
    auto* pair = new QWidget;
    auto* row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Look::halfGap + 2);
    QLabel* note = QuietLabel();
    binder.SetNoteLabel(note);
    // A remark goes behind its box, and before a text that is read.
    const bool before = binder.Bound().Kind() == ControlKind::Label;
    row->addWidget(before ? note : &binder.Widget());
    row->addWidget(before ? &binder.Widget() : note);
    row->addStretch();
    return pair;
}

bool LayoutBuilder::GrowsDown(const Node& node) const
{
    if (node.kind == NodeKind::Control) {
        const Control& control = ControlOf(node);
        const auto* text = dynamic_cast<const TextBox*>(&control);
        return IsWide(control) || (text && text->Lines() > 1 && node.lines == 0);
    }
    if (node.kind == NodeKind::Stretch)
        return true;
    return std::any_of(node.children.begin(), node.children.end(),
                       [this](const Node& child) { return child.kind != NodeKind::Stretch && GrowsDown(child); });
}

void LayoutBuilder::Place(const Node& node, QBoxLayout& into)
{
    switch (node.kind) {
    case NodeKind::Control:
        PlaceControl(node, into);
        return;
    case NodeKind::Stretch:
        into.addStretch(std::max(1, node.weight));
        return;
    case NodeKind::Nothing:
        into.addSpacing(Look::gap);
        return;
    case NodeKind::Caption: {
        QLabel* label = QuietLabel();
        label->setText(QString::fromStdString(PlainCaption(ControlOf(node).Caption())));
        into.addWidget(label);
        return;
    }
    case NodeKind::Note: {
        QLabel* label = QuietLabel();
        label->setText(QString::fromStdString(PlainCaption(ControlOf(node).Note())));
        into.addWidget(label);
        return;
    }
    case NodeKind::Words: {
        QLabel* label = QuietLabel();
        label->setText(QString::fromStdString(node.text));
        into.addWidget(label);
        return;
    }
    case NodeKind::Column:
    case NodeKind::Row:
    case NodeKind::Together:
        PlaceBox(node, into, true);
        return;
    case NodeKind::Fields:
        PlaceFields(node, into);
        return;
    case NodeKind::Group:
        PlaceGroup(node, into);
        return;
    case NodeKind::Pages:
        PlacePages(node, into);
        return;
    case NodeKind::Table:
        PlaceTable(node, into);
        return;
    case NodeKind::Page:
    case NodeKind::Headings:
    case NodeKind::Line:
        throw std::logic_error("The layout of " + window.Shown().Name() + " has a page or a line outside its place");
    }
}

void LayoutBuilder::PlaceControl(const Node& node, QBoxLayout& into)
{
    Binder& binder = Bind(node);
    const Control& control = binder.Bound();
    QWidget* box = WithNote(binder, node);
    const bool captioned = !node.bare && !BearsCaption(control) && !control.Caption().empty();
    const bool growing = GrowsDown(node);
    const bool above = growing || node.display || node.lines > 1;
    if (!captioned) {
        into.addWidget(box, node.weight ? node.weight : (growing ? 1 : 0));
        return;
    }
    // A figure has its caption above it, and so have lists; other boxes have it before them.
    auto* pair = new QBoxLayout(above ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    pair->setSpacing(node.display ? 0 : (above ? Look::halfGap : Look::gap));
    QLabel* label = CaptionLabel(binder);
    if (node.display) {
        // The caption ends where the figure below it does.
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setContentsMargins(0, 0, Look::halfGap + 1, 0);
        label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        label->setMinimumWidth(binder.Widget().minimumWidth());
    }
    pair->addWidget(label);
    pair->addWidget(box, growing ? 1 : 0);
    if (node.display)
        pair->addStretch();
    into.addLayout(pair, node.weight ? node.weight : (growing ? 1 : 0));
}

void LayoutBuilder::PlaceBox(const Node& node, QBoxLayout& into, bool withGrowth)
{
    const bool down = node.kind == NodeKind::Column;
    auto* box = new QBoxLayout(down ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    const bool cards = std::any_of(node.children.begin(), node.children.end(), [](const Node& child) {
        return child.kind == NodeKind::Group || child.kind == NodeKind::Pages;
    });
    const bool columns = !down && std::any_of(node.children.begin(), node.children.end(),
                                              [](const Node& child) { return child.kind == NodeKind::Fields; });
    box->setSpacing(columns ? Look::margin + Look::halfGap : (cards ? Look::gap + Look::halfGap : Look::gap));
    into.addLayout(box, node.weight ? node.weight : (withGrowth && GrowsDown(node) ? 1 : 0));
    bool grows = false;
    for (const Node& child : node.children) {
        // Beside one another stand columns of fields; each takes the width of its own captions.
        std::vector<QGridLayout*> outer;
        if (!down)
            outer = std::exchange(stacked, {});
        Place(child, *box);
        if (!down) {
            AlignFields();
            stacked = outer;
        }
        grows = grows || child.kind == NodeKind::Stretch || GrowsDown(child);
    }
    if (down && !grows)
        box->addStretch(1);
}

void LayoutBuilder::PlaceFields(const Node& node, QBoxLayout& into)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Look::gap + Look::halfGap);
    grid->setVerticalSpacing(Look::halfGap);
    grid->setColumnStretch(1, 1);
    into.addLayout(grid, node.weight ? node.weight : (GrowsDown(node) ? 1 : 0));
    int row = 0;
    bool grows = false;
    for (const Node& child : node.children) {
        PlaceField(child, *grid, row);
        if (GrowsDown(child)) {
            grid->setRowStretch(row, 1);
            grows = true;
        }
        ++row;
    }
    if (!grows)
        grid->setRowStretch(row, 1);
    stacked.push_back(grid);
}

void LayoutBuilder::PlaceField(const Node& node, QGridLayout& grid, int row)
{
    if (node.kind != NodeKind::Control && node.kind != NodeKind::Together) {
        auto* box = new QHBoxLayout;
        grid.addLayout(box, row, 0, 1, 2);
        Place(node, *box);
        return;
    }
    const bool together = node.kind == NodeKind::Together;
    const Node& first = together ? node.children.at(0) : node;
    Binder& binder = Bind(first);
    const bool tall = GrowsDown(first) || first.lines > 1;
    if (!BearsCaption(binder.Bound()) && !first.bare) {
        QLabel* label = CaptionLabel(binder);
        label->setMinimumHeight(Look::boxHeight);
        grid.addWidget(label, row, 0, tall ? Qt::AlignTop | Qt::AlignLeft : Qt::AlignVCenter | Qt::AlignLeft);
    }
    auto* line = new QHBoxLayout;
    line->setSpacing(Look::gap);
    line->addWidget(WithNote(binder, first));
    bool spreads = binder.Widget().sizePolicy().expandingDirections() & Qt::Horizontal;
    for (std::size_t at = 1; together && at < node.children.size(); ++at) {
        Place(node.children[at], *line);
        // A button beside a box is no taller than it.
        if (auto* push = qobject_cast<QPushButton*>(&inOrder.back()->Widget()))
            push->setFixedHeight(Look::boxHeight);
        spreads = spreads || node.children[at].kind == NodeKind::Stretch ||
                  (node.children[at].kind == NodeKind::Control && node.children[at].characters == 0 &&
                   inOrder.back()->Widget().sizePolicy().expandingDirections() & Qt::Horizontal);
    }
    if (!spreads)
        line->addStretch();
    grid.addLayout(line, row, 1);
}

void LayoutBuilder::PlaceTable(const Node& node, QBoxLayout& into)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Look::gap - 2);
    grid->setVerticalSpacing(Look::halfGap / 2);
    into.addLayout(grid, node.weight);
    int row = 0;
    for (const Node& line : node.children) {
        int col = 0;
        if (line.kind == NodeKind::Line)
            grid->setRowMinimumHeight(row, Look::boxHeight);
        for (const Node& cell : line.children)
            PlaceCell(cell, *grid, row, col++);
        ++row;
    }
    grid->setRowStretch(row, 1);
}

void LayoutBuilder::PlaceCell(const Node& node, QGridLayout& grid, int row, int col)
{
    const Qt::Alignment middle = Qt::AlignVCenter | Qt::AlignHCenter;
    if (node.kind == NodeKind::Nothing)
        return;
    if (node.kind == NodeKind::Control) {
        Binder& binder = Bind(node);
        const ControlKind kind = binder.Bound().Kind();
        const bool mark = kind == ControlKind::CheckBox || kind == ControlKind::OptionButton;
        if (mark)
            grid.addWidget(&binder.Widget(), row, col, middle);
        else
            grid.addWidget(&binder.Widget(), row, col);
        if (auto* heading = grid.itemAtPosition(0, col) ? grid.itemAtPosition(0, col)->widget() : nullptr) {
            const auto* edit = qobject_cast<QLineEdit*>(&binder.Widget());
            if (auto* label = qobject_cast<QLabel*>(heading);
                label && (mark || (edit && edit->alignment() & Qt::AlignRight)))
                label->setAlignment(Qt::AlignVCenter | (mark ? Qt::AlignHCenter : Qt::AlignRight));
        }
        return;
    }
    QLabel* label = QuietLabel();
    if (node.kind == NodeKind::Words)
        label->setText(QString::fromStdString(node.text));
    else if (node.kind == NodeKind::Caption)
        label->setText(QString::fromStdString(PlainCaption(ControlOf(node).Caption())));
    else
        label->setText(QString::fromStdString(PlainCaption(ControlOf(node).Note())));
    if (row == 0)
        label->setFont(Look::Font(8.5, QFont::Medium));
    grid.addWidget(label, row, col);
}

void LayoutBuilder::PlaceGroup(const Node& node, QBoxLayout& into)
{
    auto* card = new QGroupBox(QString::fromStdString(node.text));
    auto* box = new QVBoxLayout(card);
    box->setContentsMargins(Look::margin - 4, Look::halfGap + 2, Look::margin - 4, Look::margin - 4);
    box->setSpacing(Look::gap);
    into.addWidget(card, node.weight ? node.weight : (GrowsDown(node) ? 1 : 0));
    bool grows = false;
    for (const Node& child : node.children) {
        Place(child, *box);
        grows = grows || GrowsDown(child);
    }
    if (!grows)
        box->addStretch(1);
}

void LayoutBuilder::PlacePages(const Node& node, QBoxLayout& into)
{
    auto& tabs = static_cast<TabsBinder&>(Bind(node));
    into.addWidget(&tabs.Widget(), 1);
    for (const Node& page : node.children) {
        auto* sheet = new QWidget;
        auto* box = new QVBoxLayout(sheet);
        box->setContentsMargins(Look::margin - 4, Look::margin - 4, Look::margin - 4, Look::margin - 4);
        box->setSpacing(Look::gap);
        const std::vector<QGridLayout*> outer = std::exchange(stacked, {});
        bool grows = false;
        for (const Node& child : page.children) {
            Place(child, *box);
            grows = grows || GrowsDown(child);
        }
        if (!grows)
            box->addStretch(1);
        AlignFields();
        stacked = outer;
        tabs.AddPage(sheet);
    }
}

void LayoutBuilder::AlignFields()
{
    int widest = 0;
    for (const QGridLayout* grid : stacked) {
        for (int row = 0; row < grid->rowCount(); ++row) {
            const QLayoutItem* item = grid->itemAtPosition(row, 0);
            if (item && qobject_cast<QLabel*>(item->widget()))
                widest = std::max(widest, item->sizeHint().width());
        }
    }
    for (QGridLayout* grid : stacked)
        grid->setColumnMinimumWidth(0, widest);
    stacked.clear();
}

void LayoutBuilder::OrderTabs() const
{
    for (std::size_t at = 1; at < inOrder.size(); ++at)
        QWidget::setTabOrder(&inOrder[at - 1]->Widget(), &inOrder[at]->Widget());
}

}
