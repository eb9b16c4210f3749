#include "tests/desktop/Sight.h"

#include "desktop/binders/DateBox.h"

#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <QWidget>
#include <QtMath>

namespace rovanta {

static QString NameOf(const QWidget& widget)
{
    QString name = widget.objectName();
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        name += " \"" + label->text() + "\"";
    return name.isEmpty() ? QString(widget.metaObject()->className()) : name;
}

static bool IsPartOfAnother(const QWidget& widget)
{
    for (const QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(parent) || qobject_cast<const QComboBox*>(parent) ||
            qobject_cast<const QAbstractSpinBox*>(parent) || qobject_cast<const QTabBar*>(parent) ||
            qobject_cast<const QScrollBar*>(parent))
            return true;
    }
    return false;
}

static void LookForClipping(const QWidget& widget, QStringList& flaws)
{
    const QSize need = widget.sizeHint();
    const bool short_ = widget.height() < need.height();
    const auto tell = [&](const QString& what) {
        flaws +=
            QString("%1 is clipped: %2 (has %3x%4)").arg(NameOf(widget), what).arg(widget.width()).arg(widget.height());
    };
    if (widget.inherits("QLabel") || widget.inherits("QAbstractButton")) {
        if (widget.width() < need.width() || short_)
            tell(QString("needs %1x%2").arg(need.width()).arg(need.height()));
    } else if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
        const int text = edit->fontMetrics().horizontalAdvance(edit->displayText()) + 12;
        if (short_ || (edit->alignment() & Qt::AlignRight && edit->width() < text))
            tell(edit->displayText());
    } else if (widget.inherits("QComboBox") || widget.inherits("QAbstractSpinBox")) {
        if (short_)
            tell(QString("needs the height %1").arg(need.height()));
        const auto* date = dynamic_cast<const DateBox*>(&widget);
        if (date && date->width() < date->fontMetrics().horizontalAdvance("12/30/2026") + 32)
            tell("a date does not fit");
    } else if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) {
        for (int tab = 0; tab < bar->count(); ++tab) {
            if (bar->tabRect(tab).right() > bar->width())
                tell("tab " + bar->tabText(tab));
        }
    }
}

static void LookAtChildren(const QWidget& parent, QStringList& flaws)
{
    QList<const QWidget*> shown;
    for (const QObject* child : parent.children()) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        if (widget && widget->isVisible() && !widget->isWindow() && !widget->inherits("QRubberBand") &&
            !widget->inherits("QSizeGrip"))
            shown += widget;
    }
    for (qsizetype at = 0; at < shown.size(); ++at) {
        const QRect rect = shown[at]->geometry();
        if (!parent.rect().contains(rect))
            flaws += NameOf(*shown[at]) + " stands outside " + NameOf(parent);
        for (qsizetype other = at + 1; other < shown.size(); ++other) {
            if (rect.intersects(shown[other]->geometry()))
                flaws += QString("%1 overlaps %2 by %3")
                             .arg(NameOf(*shown[at]), NameOf(*shown[other]))
                             .arg(rect.intersected(shown[other]->geometry()).width());
        }
    }
    for (const QWidget* widget : shown) {
        if (!IsPartOfAnother(*widget))
            LookForClipping(*widget, flaws);
        const bool whole = widget->inherits("QAbstractScrollArea") || widget->inherits("QComboBox") ||
                           widget->inherits("QAbstractSpinBox") || widget->inherits("QTabBar") ||
                           widget->inherits("QLineEdit");
        if (!whole && !widget->inherits("QStackedWidget"))
            LookAtChildren(*widget, flaws);
        else if (widget->inherits("QStackedWidget"))
            LookAtChildren(*widget, flaws);
    }
}

QStringList Flaws(QWidget& window)
{
    QStringList flaws;
    LookAtChildren(window, flaws);
    for (auto* tabs : window.findChildren<QTabWidget*>()) {
        for (int page = 0; page < tabs->count(); ++page) {
            // The page that is in front was looked at above; the others in their turn, without the logic knowing.
            const QSignalBlocker quiet(tabs);
            const int front = tabs->currentIndex();
            tabs->setCurrentIndex(page);
            LookAtChildren(*tabs, flaws);
            tabs->setCurrentIndex(front);
        }
    }
    flaws.removeDuplicates();
    return flaws;
}

void SaveScreenshot(QWidget& window, const QString& name)
{
    QDir folder(QString(BINARY_FOLDER) + "/screenshots");
    folder.mkpath(".");
    const int percent = qRound(window.devicePixelRatioF() * 100);
    window.grab().save(folder.filePath(QString("%1-%2.png").arg(name).arg(percent)));
}

}
