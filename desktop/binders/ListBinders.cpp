#include "desktop/binders/ListBinders.h"

#include "desktop/FormWindow.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QItemSelection>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QModelIndex>
#include <QSignalBlocker>
#include <QSizePolicy>
#include <QWheelEvent>

namespace rovanta {

int EntryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(shown.size());
}

QVariant EntryModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    return QString::fromStdString(shown[static_cast<std::size_t>(index.row())]);
}

bool EntryModel::Show(const std::vector<std::string>& entries)
{
    if (shown == entries)
        return false;
    beginResetModel();
    shown = entries;
    endResetModel();
    return true;
}

/// Turns of the wheel scroll the form; they never choose another entry by accident.
class CalmComboBox : public QComboBox {
protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

ComboBinder::ComboBinder(FormWindow& window, ComboBox& combo, const Node& node)
    : Binder(window, combo), combo(combo), box(new CalmComboBox), model(new EntryModel(box))
{
    SetWidget(box);
    box->setEditable(!TakesKeys());
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(4);
    box->setMaxVisibleItems(16);
    box->setModel(model);
    if (auto* view = qobject_cast<QListView*>(box->view()))
        view->setUniformItemSizes(true);
    if (node.characters > 0)
        box->setFixedWidth(BoxWidth(*box, node.characters) + 18);
    else
        box->setMinimumWidth(BoxWidth(*box, node.atLeast > 0 ? node.atLeast : 14) + 18);
    box->setSizePolicy(node.characters > 0 ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
    if (box->isEditable()) {
        // A completion would write letters that nobody has typed into the control.
        box->setCompleter(nullptr);
        connect(box->lineEdit(), &QLineEdit::textEdited, this,
                [this](const QString& text) { Act([&] { this->combo.SetText(text.toStdString()); }); });
    }
    connect(box, &QComboBox::activated, this, [this](int index) { Act([&] { this->combo.Pick(index); }); });
}

void ComboBinder::Refresh()
{
    const QSignalBlocker quiet(box);
    model->Show(combo.Entries());
    box->setCurrentIndex(combo.ListIndex());
    const QString text = QString::fromStdString(combo.Text());
    // Without any placeholder the toolkit would choose the first entry by itself.
    if (!box->isEditable())
        box->setPlaceholderText(text.isEmpty() ? QString(" ") : text);
    else if (box->lineEdit()->text() != text)
        box->lineEdit()->setText(text);
}

bool ComboBinder::TakeKey(const QKeyEvent& key)
{
    const bool command = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (window.IsDetached() || command || !TakesKeys() || combo.ReadOnly())
        return false;
    if (key.key() == Qt::Key_Delete) {
        Act([this] { combo.SetText(""); });
        return true;
    }
    const QString text = key.text();
    const bool character = !text.isEmpty() && (text.at(0).isPrint() || key.key() == Qt::Key_Backspace);
    if (character)
        Act([&] { combo.PressKey(text.toStdString()); });
    return character;
}

bool ComboBinder::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && TakeKey(*static_cast<QKeyEvent*>(event)))
        return true;
    return Binder::eventFilter(watched, event);
}

ListBinder::ListBinder(FormWindow& window, ListBox& list, const Node& node)
    : Binder(window, list), list(list), view(new QListView), model(new EntryModel(view))
{
    SetWidget(view);
    view->setModel(model);
    view->setUniformItemSizes(true);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setSelectionMode(list.TakesSeveral() ? QAbstractItemView::MultiSelection
                                               : QAbstractItemView::SingleSelection);
    view->setMinimumHeight(view->fontMetrics().lineSpacing() * std::max(4, node.lines) + 8);
    view->setMinimumWidth(BoxWidth(*view, node.characters > 0 ? node.characters : 18));
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { TakeSelection(); });
    view->viewport()->installEventFilter(this);
    // A click picks its entry, also the one that is chosen already; keys pick what they move to.
    connect(view, &QListView::clicked, this, [this](const QModelIndex& index) {
        if (!this->list.TakesSeveral())
            Act([&] {
                this->list.SetFocus();
                this->list.Pick(index.row());
            });
    });
    connect(view, &QListView::doubleClicked, this, [this] { Act([this] { this->list.DoubleClick.Fire(); }); });
}

bool ListBinder::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != view->viewport())
        return Binder::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonPress)
        mouseIsDown = true;
    else if (event->type() == QEvent::MouseButtonRelease)
        mouseIsDown = false;
    return false;
}

void ListBinder::TakeSelection()
{
    if (IsRefreshing())
        return;
    std::vector<bool> selected;
    for (int index = 0; index < list.ListCount(); ++index)
        selected.push_back(view->selectionModel()->isSelected(model->index(index)));
    if (list.TakesSeveral()) {
        Act([&] {
            list.SetFocus();
            for (std::size_t index = 0; index < selected.size(); ++index)
                list.SetSelected(static_cast<int>(index), selected[index]);
        });
    } else if (!mouseIsDown) {
        const auto chosen = std::find(selected.begin(), selected.end(), true);
        Act([&] { list.Pick(chosen == selected.end() ? -1 : static_cast<int>(chosen - selected.begin())); });
    }
}

void ListBinder::Refresh()
{
    const QSignalBlocker quiet(view->selectionModel());
    model->Show(list.Entries());
    QItemSelection chosen;
    for (int index = 0; index < list.ListCount(); ++index) {
        if (list.Selected(index))
            chosen.select(model->index(index), model->index(index));
    }
    view->selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
    if (list.ListIndex() >= 0)
        view->selectionModel()->setCurrentIndex(model->index(list.ListIndex()), QItemSelectionModel::NoUpdate);
    view->viewport()->update();
}

}
