#include "desktop/Look.h"

#include "desktop/OfficeStyle.h"

#include <QApplication>
#include <QLocale>
#include <QPalette>

namespace rovanta::Look {

QFont Font(double points, QFont::Weight weight)
{
    QFont font;
    font.setFamilies({"Inter", "Noto Sans", "DejaVu Sans", "Sans Serif"});
    font.setPointSizeF(points);
    font.setWeight(weight);
    return font;
}

static QPalette Palette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, readOnly);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, card);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, text);
    palette.setColor(QPalette::ToolTipBase, text);
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::Light, card);
    palette.setColor(QPalette::Midlight, heading);
    palette.setColor(QPalette::Mid, frame);
    palette.setColor(QPalette::Dark, frameHover);
    palette.setColor(QPalette::Shadow, frameHover);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText})
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::Disabled, QPalette::Base, readOnly);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, frame);
    // A window in the back keeps its selection readable.
    palette.setColor(QPalette::Inactive, QPalette::Highlight, accentTint);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
    return palette;
}

void Apply(QApplication& application)
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    application.setStyle(new OfficeStyle);
    application.setPalette(Palette());
    application.setFont(Font());
}

}
