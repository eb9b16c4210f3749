#include "frame/Configuration.h"
#include "store/Connection.h"
#include "store/Recordset.h"

#include <QApplication>
#include <QMainWindow>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdio>
#include <unistd.h>

/// What any Qt program pays that opens this store: one window, one row read. It says when it stands and goes when its
/// input ends.
int main(int count, char** values)
{
    if (count != 2)
        return 2;
    QApplication application(count, values);
    rovanta::Connection connection;
    connection.Open(rovanta::ReadConfigFile(values[1]).ConnectionString);
    const rovanta::Recordset company("SELECT TOP 1 * FROM Company", connection);
    QMainWindow window;
    window.resize(1280, 800);
    window.show();
    QTimer::singleShot(0, [&] {
        window.grab();
        std::puts("ready");
        std::fflush(stdout);
    });
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, &QApplication::quit);
    return QApplication::exec();
}
