#pragma once

#include <QStringList>

class QWidget;

namespace rovanta {

/// What a person could not read or reach in a window: texts that do not fit, widgets that overlap or stand outside
/// their parent. Every page of every tab is looked at.
QStringList Flaws(QWidget& window);

/// Saves what the window shows as a PNG beside the build, under the name with the scale behind it.
void SaveScreenshot(QWidget& window, const QString& name);

}
