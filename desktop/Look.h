#pragma once

#include <QColor>
#include <QFont>

class QApplication;
class QStyle;

namespace rovanta {

/// The colours of the program: light and calm, with one accent.
namespace Look {

inline const QColor window{0xF3, 0xF5, 0xF7};
inline const QColor card{0xFF, 0xFF, 0xFF};
inline const QColor base{0xFF, 0xFF, 0xFF};
inline const QColor heading{0xEC, 0xEF, 0xF3};
inline const QColor line{0xDD, 0xE2, 0xE8};
inline const QColor frame{0xC3, 0xCB, 0xD4};
inline const QColor frameHover{0x9A, 0xA7, 0xB5};
inline const QColor text{0x1D, 0x28, 0x33};
inline const QColor caption{0x4C, 0x5A, 0x68};
inline const QColor faint{0x8A, 0x96, 0xA3};
inline const QColor accent{0x1F, 0x6F, 0x8B};
inline const QColor accentDark{0x17, 0x58, 0x70};
inline const QColor accentTint{0xDC, 0xEC, 0xF2};
inline const QColor hoverTint{0xEE, 0xF4, 0xF7};
inline const QColor readOnly{0xF7, 0xF8, 0xFA};
inline const QColor desk{0xD9, 0xDF, 0xE6};

/// Distances in logical pixels.
inline constexpr int gap = 8;
inline constexpr int halfGap = 4;
inline constexpr int margin = 16;
inline constexpr int radius = 4;
inline constexpr int boxHeight = 24;

/// The face of the program, with another weight or size where asked.
QFont Font(double points = 9, QFont::Weight weight = QFont::Normal);

/// Puts style, palette, font and locale upon the program.
void Apply(QApplication& application);

}

}
