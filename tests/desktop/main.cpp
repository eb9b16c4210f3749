#define DOCTEST_CONFIG_IMPLEMENT
#include "desktop/Look.h"

#include <QApplication>
#include <QMessageLogContext>
#include <doctest/doctest.h>

#include <cstdio>

/// The platform without a screen complains of what it cannot do in words that nobody needs.
static void TellUnlessTrivial(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.contains("propagateSizeHints"))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

int main(int argc, char** argv)
{
    qInstallMessageHandler(TellUnlessTrivial);
    QApplication application(argc, argv);
    rovanta::Look::Apply(application);
    application.setQuitOnLastWindowClosed(false);
    doctest::Context context(argc, argv);
    return context.run();
}
