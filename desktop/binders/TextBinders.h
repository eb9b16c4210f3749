#pragma once

#include "desktop/binders/Binder.h"
#include "forms/TextControls.h"

class QLineEdit;
class QPlainTextEdit;

namespace rovanta {

/// A box of one line. A masked box shows its picture while the keyboard is elsewhere.
class LineBinder : public Binder {
public:
    LineBinder(FormWindow& window, TextControl& box, const Node& node);

protected:
    void Refresh() override;
    void FocusChanged(bool entered) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString Shown() const;

    TextControl& box;
    const MaskedBox* masked;
    QLineEdit* edit;
    bool enteredByMouse = false;
};

/// A box of several lines.
class MemoBinder : public Binder {
public:
    MemoBinder(FormWindow& window, TextControl& box, const Node& node);

protected:
    void Refresh() override;

private:
    TextControl& box;
    QPlainTextEdit* edit;
};

/// A text to read.
class LabelBinder : public Binder {
public:
    LabelBinder(FormWindow& window, Label& label, const Node& node);

protected:
    void Refresh() override;

private:
    Label& label;
    QLabel* shown;
};

}
