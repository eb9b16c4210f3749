#define DOCTEST_CONFIG_IMPLEMENT
#include "desktop/Look.h"

#include <QApplication>
#include <QDir>
#include <doctest/doctest.h>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    rovanta::Look::Apply(application);
    doctest::Context context(argc, argv);
    return context.run();
}
