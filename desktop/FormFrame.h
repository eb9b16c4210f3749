#pragma once

#include <QMdiSubWindow>
#include <functional>

class QScrollArea;

namespace rovanta {

class FormWindow;

/// The movable frame of a form inside the main window. A form that is larger than the room there scrolls.
class FormFrame : public QMdiSubWindow {
public:
    FormFrame(FormWindow& window, std::function<void()> closeByHand);

    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    FormWindow& window;
    QScrollArea* scroll;
    std::function<void()> closeByHand;
};

}
