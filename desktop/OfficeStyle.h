#pragma once

#include <QProxyStyle>
#include <QStyleOption>

namespace rovanta {

/// Fusion with flat boxes, buttons, tabs, cards and title bars, so that every control shows the same frame and focus.
class OfficeStyle : public QProxyStyle {
public:
    OfficeStyle() : QProxyStyle("Fusion") {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;

private:
    void DrawButtonPanel(const QStyleOption& option, QPainter& painter) const;
    void DrawMark(PrimitiveElement element, const QStyleOption& option, QPainter& painter) const;
    void DrawTab(const QStyleOptionTab& tab, QPainter& painter) const;
    void DrawCombo(const QStyleOptionComboBox& combo, QPainter& painter) const;
    void DrawCard(const QStyleOptionGroupBox& group, QPainter& painter) const;
    void DrawTitleBar(const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget) const;
    void DrawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const;
};

}
