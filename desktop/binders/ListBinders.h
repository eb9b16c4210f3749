#pragma once

#include "desktop/binders/Binder.h"
#include "forms/ListControls.h"

#include <QAbstractListModel>
#include <vector>

class QComboBox;
class QKeyEvent;
class QListView;

namespace rovanta {

/// The entries of a combo or a list as a shell's list shows them. A change of many entries is one reset.
class EntryModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// Takes the entries over; false when they were the same.
    bool Show(const std::vector<std::string>& entries);

private:
    std::vector<std::string> shown;
};

/// A combo. Where the screen takes the keys itself, every character goes to it and nothing can be typed; otherwise the
/// text can be written.
class ComboBinder : public Binder {
public:
    ComboBinder(FormWindow& window, ComboBox& combo, const Node& node);

protected:
    void Refresh() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool TakesKeys() const { return combo.KeyPress.IsWired(); }
    bool TakeKey(const QKeyEvent& key);

    ComboBox& combo;
    QComboBox* box;
    EntryModel* model;
};

class ListBinder : public Binder {
public:
    ListBinder(FormWindow& window, ListBox& list, const Node& node);

protected:
    void Refresh() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void TakeSelection();

    ListBox& list;
    QListView* view;
    EntryModel* model;
    bool mouseIsDown = false;
};

}
