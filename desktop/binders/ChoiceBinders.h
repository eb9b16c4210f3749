#pragma once

#include "desktop/binders/Binder.h"
#include "forms/ChoiceControls.h"

class QCheckBox;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace rovanta {

class DateBox;

class ButtonBinder : public Binder {
public:
    ButtonBinder(FormWindow& window, Button& button);

protected:
    void Refresh() override;
    bool EntersOnRelease() const override { return true; }

private:
    Button& button;
    QPushButton* push;
};

class CheckBinder : public Binder {
public:
    CheckBinder(FormWindow& window, CheckBox& box, const Node& node);

protected:
    void Refresh() override;
    bool EntersOnRelease() const override { return true; }

private:
    CheckBox& box;
    QCheckBox* check;
    bool bare;
};

class OptionBinder : public Binder {
public:
    OptionBinder(FormWindow& window, OptionButton& option, const Node& node);

protected:
    void Refresh() override;
    bool EntersOnRelease() const override { return true; }

private:
    OptionButton& option;
    QRadioButton* radio;
    bool bare;
};

class DateBinder : public Binder {
public:
    DateBinder(FormWindow& window, DatePicker& picker, const Node& node);

protected:
    void Refresh() override;
    void FocusChanged(bool entered) override;

private:
    DatePicker& picker;
    DateBox* box;
};

/// Tabs; the layout fills the pages.
class TabsBinder : public Binder {
public:
    TabsBinder(FormWindow& window, Tabs& tabs);
    QTabWidget& TabWidget() const { return *pages; }
    void AddPage(QWidget* page);

protected:
    void Refresh() override;

private:
    Tabs& tabs;
    QTabWidget* pages;
};

}
