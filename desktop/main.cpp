#include "app/Screens.h"
#include "desktop/CommandLine.h"
#include "desktop/DesktopHost.h"
#include "desktop/Look.h"
#include "desktop/Screenshots.h"
#include "frame/App.h"

#include <QApplication>
#include <QMessageLogContext>

#include <cstdlib>
#include <filesystem>
#include <iostream>

using namespace rovanta;

static bool HasDisplay()
{
    const auto isSet = [](const char* name) {
        const char* value = std::getenv(name);
        return value && *value;
    };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

static std::string ConfigPath(const DesktopOptions& options)
{
    if (!options.configPath.empty())
        return options.configPath;
    std::error_code error;
    return (std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / "config.txt").string();
}

/// Some platforms complain of what they cannot do in words that nobody needs.
static void TellUnlessTrivial(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.contains("propagateSizeHints"))
        std::cerr << text.toStdString() << '\n';
}

static int RunOffice(QApplication& application, const DesktopOptions& options)
{
    DesktopHost host;
    const bool drawing = !options.screenshotFolder.empty();
    if (drawing)
        host.AnswerAlone();
    App app(host, AllScreens(), {ConfigPath(options), options.machine, options.clock});
    host.Serve(app);
    host.Gate().Run([&] { app.Start(); });
    if (drawing && !host.Gate().HasEnded()) {
        SaveScreenshots(app, host, options.screenshotFolder);
        host.Gate().End(0);
    }
    const int code = host.Gate().HasEnded() ? host.ExitCode() : application.exec();
    host.Dismiss();
    return code;
}

int main(int count, char** arguments)
{
    DesktopOptions options;
    try {
        options = ReadDesktopOptions({arguments + 1, arguments + count});
    } catch (const DesktopUsageError& error) {
        std::cerr << error.what() << "\nrovanta --help tells the options.\n";
        return 2;
    }
    if (options.help) {
        std::cout << desktopUsage;
        return 0;
    }
    if (!options.screenshotFolder.empty())
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    if (!HasDisplay()) {
        std::cerr << "There is no display here (neither DISPLAY nor WAYLAND_DISPLAY is set), so no window can open.\n"
                     "rovanta --screenshots FOLDER draws the screens without one; rovanta-automation needs none.\n";
        return 1;
    }
    qInstallMessageHandler(TellUnlessTrivial);
    QApplication application(count, arguments);
    Look::Apply(application);
    return RunOffice(application, options);
}
