#include "desktop/OfficeStyle.h"
#include "desktop/Look.h"

#include <QAbstractScrollArea>
#include <QFont>
#include <QFontMetrics>
#include <QStyle>
#include <QStyleHintReturn>

namespace rovanta {

static constexpr int arrowWidth = 20;
static constexpr int cardTitleTop = 10;
static constexpr int cardSide = 12;

static QRect ScrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part)
{
    const bool across = bar.orientation == Qt::Horizontal;
    const int length = across ? bar.rect.width() : bar.rect.height();
    const int range = bar.maximum - bar.minimum;
    int slider = length;
    if (range > 0)
        slider = std::clamp(static_cast<int>(std::int64_t{length} * bar.pageStep / (range + bar.pageStep)),
                            std::min(length, 28), length);
    const int start =
        QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, length - slider, bar.upsideDown);
    const auto span = [&](int from, int to) {
        const QRect along =
            across ? QRect(from, 0, to - from, bar.rect.height()) : QRect(0, from, bar.rect.width(), to - from);
        return along.translated(bar.rect.topLeft());
    };
    switch (part) {
    case QStyle::SC_ScrollBarGroove:
        return span(0, length);
    case QStyle::SC_ScrollBarSlider:
        return span(start, start + slider);
    case QStyle::SC_ScrollBarSubPage:
        return span(0, start);
    case QStyle::SC_ScrollBarAddPage:
        return span(start + slider, length);
    default:
        return {};
    }
}

QRect OfficeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                  const QWidget* widget) const
{
    const QRect& whole = option->rect;
    if (control == CC_ComboBox) {
        const QRect arrow(whole.right() - arrowWidth, whole.top(), arrowWidth, whole.height());
        if (part == SC_ComboBoxArrow)
            return visualRect(option->direction, whole, arrow);
        if (part == SC_ComboBoxEditField) {
            // The line within brings a margin of its own.
            const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
            const int left = combo && combo->editable ? 3 : 6;
            return visualRect(option->direction, whole, whole.adjusted(left, 1, -arrowWidth, -1));
        }
    }
    if (control == CC_GroupBox) {
        const int height = QFontMetrics(Look::Font(9, QFont::DemiBold)).height();
        if (part == SC_GroupBoxLabel)
            return {whole.left() + cardSide, whole.top() + cardTitleTop, whole.width() - 2 * cardSide, height};
        if (part == SC_GroupBoxContents)
            return whole.adjusted(1, cardTitleTop + height + 2, -1, -1);
    }
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && bar)
        return ScrollBarPart(*bar, part);
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QRect OfficeStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    // The text of a box begins where that of its neighbours does.
    if (element == SE_LineEditContents) {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        const bool own = frame && frame->lineWidth > 0;
        return own ? option->rect.adjusted(5, 1, -5, -1) : option->rect.adjusted(1, 0, -1, 0);
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QSize OfficeStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                    const QWidget* widget) const
{
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_PushButton:
        result.setWidth(std::max(size.width() + 24, 76));
        result.setHeight(std::max(size.height() + 8, Look::boxHeight + 2));
        break;
    case CT_LineEdit:
        result.setHeight(std::max(size.height() + 4, Look::boxHeight));
        break;
    case CT_ComboBox:
        result = {size.width() + arrowWidth + 12, std::max(size.height() + 4, Look::boxHeight)};
        break;
    case CT_SpinBox:
        result.setHeight(std::max(option->fontMetrics.height() + 4, Look::boxHeight));
        break;
    case CT_GroupBox:
        result = size + QSize(2 * cardSide, 0);
        break;
    case CT_TabBarTab:
        result.setHeight(std::max(result.height(), 32));
        break;
    case CT_MenuItem:
        result.setHeight(std::max(result.height(), 24));
        break;
    default:
        break;
    }
    return result;
}

int OfficeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_TabBarTabHSpace:
        return 28;
    case PM_TabBarTabVSpace:
        return 10;
    case PM_TabBarTabOverlap:
    case PM_TabBarBaseOverlap:
    case PM_TabBarTabShiftHorizontal:
    case PM_TabBarTabShiftVertical:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_ScrollBarExtent:
        return 14;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return 16;
    case PM_TitleBarHeight:
        return 28;
    case PM_MdiSubWindowFrameWidth:
        return 3;
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return Look::margin;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return Look::gap;
    case PM_DefaultFrameWidth:
        // Room for the rounded frame around what scrolls.
        return qobject_cast<const QAbstractScrollArea*>(widget) ? 2 : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_MenuBarVMargin:
        return 2;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int OfficeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* data) const
{
    switch (hint) {
    // A list that drops down below its box, however long it is.
    case SH_ComboBox_Popup:
        return 0;
    case SH_EtchDisabledText:
        return 0;
    case SH_ScrollBar_LeftClickAbsolutePosition:
        return 0;
    case SH_TitleBar_NoBorder:
        return 1;
    case SH_WindowFrame_Mask:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

}
