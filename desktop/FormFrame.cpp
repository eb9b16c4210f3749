#include "desktop/FormFrame.h"

#include "desktop/FormWindow.h"

#include <QCloseEvent>
#include <QFrame>
#include <QIcon>
#include <QScrollArea>
#include <QStyle>

namespace rovanta {

static constexpr int leastWidth = 300;

FormFrame::FormFrame(FormWindow& window, std::function<void()> closeByHand)
    : window(window), scroll(new QScrollArea), closeByHand(std::move(closeByHand))
{
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(&window);
    setWidget(scroll);
    setWindowIcon(QIcon());
    setWindowTitle(QString::fromStdString(window.Shown().Caption()));
    Qt::WindowFlags parts = Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
    if (window.IsRoomy())
        parts |= Qt::WindowMinMaxButtonsHint;
    setWindowFlags(parts);
}

QSize FormFrame::sizeHint() const
{
    const QSize content = window.sizeHint().expandedTo(window.minimumSizeHint()).expandedTo({leastWidth, 0});
    const int frame = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, this);
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
    return content + QSize(2 * frame, title + frame + 1);
}

void FormFrame::closeEvent(QCloseEvent* event)
{
    // The logic closes the form, and that removes the window.
    event->ignore();
    closeByHand();
}

}
