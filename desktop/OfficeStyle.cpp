#include "desktop/OfficeStyle.h"

#include "desktop/Look.h"

#include <QAbstractScrollArea>
#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPolygonF>
#include <QStyle>

namespace rovanta {

static bool Has(const QStyleOption& option, QStyle::StateFlag flag)
{
    return option.state.testFlag(flag);
}

/// A rounded frame of one pixel, or the accent's two where the focus is.
static void DrawBoxFrame(const QStyleOption& option, QPainter& painter, const QColor& fill)
{
    const bool focused = Has(option, QStyle::State_HasFocus) && Has(option, QStyle::State_Enabled);
    const bool hovered = Has(option, QStyle::State_MouseOver) && Has(option, QStyle::State_Enabled);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill);
    QColor frame = hovered ? Look::frameHover : Look::frame;
    if (!Has(option, QStyle::State_Enabled))
        frame = Look::line;
    const qreal width = focused ? 1.6 : 1;
    painter.setPen(QPen(focused ? Look::accent : frame, width));
    const qreal inset = width / 2;
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), Look::radius, Look::radius);
    painter.restore();
}

static QColor BoxFill(const QStyleOption& option)
{
    const bool written = Has(option, QStyle::State_Enabled) && !Has(option, QStyle::State_ReadOnly);
    return written ? Look::base : Look::readOnly;
}

static void DrawChevron(QPainter& painter, QPointF center, const QColor& color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(
        QPolygonF({center + QPointF(-3.5, -1.75), center + QPointF(0, 1.75), center + QPointF(3.5, -1.75)}));
    painter.restore();
}

void OfficeStyle::DrawButtonPanel(const QStyleOption& option, QPainter& painter) const
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    const bool primary = button && button->features.testFlag(QStyleOptionButton::DefaultButton);
    const bool enabled = Has(option, State_Enabled);
    const bool pressed = Has(option, State_Sunken) || Has(option, State_On);
    QColor fill = Look::card;
    QColor frame = Look::frame;
    if (!enabled) {
        fill = Look::readOnly;
        frame = Look::line;
    } else if (primary) {
        fill = pressed || Has(option, State_MouseOver) ? Look::accentDark : Look::accent;
        frame = fill;
    } else if (pressed) {
        fill = Look::accentTint;
        frame = Look::accent;
    } else if (Has(option, State_MouseOver)) {
        fill = Look::hoverTint;
        frame = Look::frameHover;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill);
    painter.setPen(frame);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), Look::radius, Look::radius);
    if (enabled && Has(option, State_HasFocus)) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(primary ? QColor(Qt::white) : Look::accent, 1.2));
        painter.drawRoundedRect(QRectF(option.rect).adjusted(2.5, 2.5, -2.5, -2.5), Look::radius - 1, Look::radius - 1);
    }
    painter.restore();
}

void OfficeStyle::DrawMark(PrimitiveElement element, const QStyleOption& option, QPainter& painter) const
{
    const bool round = element == PE_IndicatorRadioButton;
    const bool on = Has(option, State_On);
    const bool enabled = Has(option, State_Enabled);
    const QColor full = enabled ? Look::accent : Look::frame;
    QColor frame = Has(option, State_MouseOver) && enabled ? Look::accent : Look::frameHover;
    if (on)
        frame = full;
    else if (!enabled)
        frame = Look::line;
    const QRectF box = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(frame, 1.2));
    painter.setBrush(on && !round ? full : Look::base);
    if (!round) {
        painter.drawRoundedRect(box, 3, 3);
        if (on) {
            painter.setPen(QPen(Qt::white, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            const qreal unit = box.width() / 12;
            const QPointF at = box.topLeft();
            painter.drawPolyline(QPolygonF(
                {at + QPointF(2.8, 6.2) * unit, at + QPointF(5.2, 8.6) * unit, at + QPointF(9.4, 3.6) * unit}));
        }
    } else {
        painter.drawEllipse(box);
        if (on) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(full);
            const qreal inner = box.width() * 0.26;
            painter.drawEllipse(box.adjusted(inner, inner, -inner, -inner));
        }
    }
    painter.restore();
}

void OfficeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    switch (element) {
    case PE_PanelLineEdit:
        // A figure that is read more than it is written shows its frame when somebody turns to it.
        if (widget && widget->property("display").toBool() && !(option->state & (State_HasFocus | State_MouseOver)))
            return;
        // The line inside a combo or a date box is drawn by its owner.
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option); frame && frame->lineWidth > 0)
            DrawBoxFrame(*option, *painter, BoxFill(*option));
        return;
    case PE_FrameLineEdit:
        return;
    case PE_Frame:
        if (qobject_cast<const QAbstractScrollArea*>(widget)) {
            QStyleOption frame(*option);
            frame.state.setFlag(State_HasFocus, widget->hasFocus());
            DrawBoxFrame(frame, *painter, Qt::transparent);
            return;
        }
        break;
    case PE_PanelButtonCommand:
        DrawButtonPanel(*option, *painter);
        return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorRadioButton:
        DrawMark(element, *option, *painter);
        return;
    case PE_FrameFocusRect:
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(Look::accent, 1));
        painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
        painter->restore();
        return;
    case PE_FrameTabWidget:
        painter->fillRect(option->rect, Look::card);
        painter->setPen(Look::line);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        return;
    case PE_FrameTabBarBase:
        return;
    case PE_PanelScrollAreaCorner:
        painter->fillRect(option->rect, Look::readOnly);
        return;
    case PE_FrameWindow:
        painter->setPen(Has(*option, State_Active) ? Look::accentDark : Look::frameHover);
        painter->setBrush(Look::window);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        return;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void OfficeStyle::DrawTab(const QStyleOptionTab& tab, QPainter& painter) const
{
    const bool selected = Has(tab, State_Selected);
    if (!selected && Has(tab, State_MouseOver) && Has(tab, State_Enabled))
        painter.fillRect(tab.rect.adjusted(0, 2, 0, -2), Look::heading);
    if (selected)
        painter.fillRect(QRect(tab.rect.left(), tab.rect.bottom() - 2, tab.rect.width(), 3), Look::accent);
}

void OfficeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    if (element == CE_TabBarTabShape) {
        if (const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option)) {
            DrawTab(*tab, *painter);
            return;
        }
    }
    if (element == CE_TabBarTabLabel) {
        if (const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option)) {
            QStyleOptionTab copy(*tab);
            const bool selected = Has(*tab, State_Selected);
            copy.palette.setColor(QPalette::WindowText, selected ? Look::accentDark : Look::caption);
            QProxyStyle::drawControl(element, &copy, painter, widget);
            return;
        }
    }
    if (element == CE_PushButtonLabel) {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (button && button->features.testFlag(QStyleOptionButton::DefaultButton) && Has(*button, State_Enabled)) {
            QStyleOptionButton copy(*button);
            copy.palette.setColor(QPalette::ButtonText, Qt::white);
            QProxyStyle::drawControl(element, &copy, painter, widget);
            return;
        }
    }
    // The panel shows the focus; a second frame inside it would be one too many.
    if (element == CE_PushButton) {
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            proxy()->drawControl(CE_PushButtonBevel, button, painter, widget);
            QStyleOptionButton label(*button);
            label.rect = subElementRect(SE_PushButtonContents, button, widget);
            proxy()->drawControl(CE_PushButtonLabel, &label, painter, widget);
            return;
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void OfficeStyle::DrawCombo(const QStyleOptionComboBox& combo, QPainter& painter) const
{
    DrawBoxFrame(combo, painter, BoxFill(combo));
    const QRect arrow = subControlRect(CC_ComboBox, &combo, SC_ComboBoxArrow, nullptr);
    const bool enabled = Has(combo, State_Enabled);
    DrawChevron(painter, QRectF(arrow).center(), enabled ? Look::caption : Look::frame);
}

void OfficeStyle::DrawCard(const QStyleOptionGroupBox& group, QPainter& painter) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Look::line);
    painter.setBrush(Look::card);
    painter.drawRoundedRect(QRectF(group.rect).adjusted(0.5, 0.5, -0.5, -0.5), Look::radius + 2, Look::radius + 2);
    painter.setPen(Look::accentDark);
    painter.setFont(Look::Font(9, QFont::DemiBold));
    painter.drawText(subControlRect(CC_GroupBox, &group, SC_GroupBoxLabel, nullptr), Qt::AlignLeft | Qt::AlignVCenter,
                     group.text);
    painter.restore();
}

void OfficeStyle::DrawTitleBar(const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) const
{
    const bool active = bar.titleBarState & State_Active;
    painter.save();
    painter.fillRect(bar.rect, active ? Look::accent : Look::frame);
    const QColor ink = active ? QColor(Qt::white) : Look::caption;
    painter.setPen(ink);
    painter.setFont(Look::Font(9, QFont::DemiBold));
    QRect label = proxy()->subControlRect(CC_TitleBar, &bar, SC_TitleBarLabel, widget);
    label.setLeft(bar.rect.left() + Look::margin);
    const QString text = painter.fontMetrics().elidedText(bar.text, Qt::ElideRight, label.width());
    painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeft, text);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto part = [&](SubControl control, auto&& draw) {
        if (!(bar.subControls & control))
            return;
        const QRect box = proxy()->subControlRect(CC_TitleBar, &bar, control, widget);
        if (!box.isValid())
            return;
        if (bar.activeSubControls == control && Has(bar, State_MouseOver))
            painter.fillRect(box, active ? Look::accentDark : Look::frameHover);
        painter.setPen(QPen(ink, 1.3));
        const QPointF at = QRectF(box).center();
        draw(QRectF(at.x() - 4, at.y() - 4, 8, 8));
    };
    part(SC_TitleBarCloseButton, [&](QRectF box) {
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.topRight(), box.bottomLeft());
    });
    part(SC_TitleBarMaxButton, [&](QRectF box) { painter.drawRect(box); });
    part(SC_TitleBarMinButton, [&](QRectF box) { painter.drawLine(box.bottomLeft(), box.bottomRight()); });
    part(SC_TitleBarNormalButton, [&](QRectF box) {
        painter.drawRect(box.adjusted(0, 2, -2, 0));
        painter.drawPolyline(
            QPolygonF({box.topLeft() + QPointF(2, 0), box.topRight(), box.bottomRight() - QPointF(0, 2)}));
    });
    painter.restore();
}

void OfficeStyle::DrawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const
{
    painter.save();
    painter.fillRect(bar.rect, Look::readOnly);
    if (bar.maximum > bar.minimum) {
        const QRect slider = proxy()->subControlRect(CC_ScrollBar, &bar, SC_ScrollBarSlider, widget);
        const bool held = bar.activeSubControls & SC_ScrollBarSlider && bar.state & (State_Sunken | State_MouseOver);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(held ? Look::frameHover : Look::frame);
        painter.drawRoundedRect(QRectF(slider).adjusted(2.5, 2.5, -2.5, -2.5), 3.5, 3.5);
    }
    painter.restore();
}

void OfficeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                     const QWidget* widget) const
{
    if (const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option); control == CC_ComboBox && combo) {
        DrawCombo(*combo, *painter);
        return;
    }
    if (const auto* group = qstyleoption_cast<const QStyleOptionGroupBox*>(option); control == CC_GroupBox && group) {
        DrawCard(*group, *painter);
        return;
    }
    if (const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option); control == CC_TitleBar && bar) {
        DrawTitleBar(*bar, *painter, widget);
        return;
    }
    if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option); control == CC_ScrollBar && bar) {
        DrawScrollBar(*bar, *painter, widget);
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

}
