#include "desktop/Screenshots.h"

#include "app/Screens.h"
#include "desktop/DesktopHost.h"
#include "desktop/FormWindow.h"
#include "frame/App.h"
#include "frame/MDI.h"
#include "values/Errors.h"

#include <QCoreApplication>
#include <QMdiSubWindow>
#include <QPixmap>

namespace rovanta {

static void SavePicture(QWidget& widget, const std::filesystem::path& folder, const std::string& name)
{
    widget.window()->activateWindow();
    QCoreApplication::processEvents();
    for (const int percent : {100, 150}) {
        const qreal scale = percent / 100.0;
        QPixmap picture(widget.size() * scale);
        picture.setDevicePixelRatio(scale);
        widget.render(&picture);
        const std::string file = (folder / (name + "-" + std::to_string(percent) + ".png")).string();
        if (!picture.save(QString::fromStdString(file)))
            throw RunTimeError("The picture cannot be written: " + file);
    }
}

/// The tour with the most invoices shows most of its screen.
static const Statement fullestTour{"SELECT TOP 1 TourID FROM Invoice GROUP BY TourID ORDER BY COUNT(*) DESC"};
static const Statement firstCustomer{"SELECT TOP 1 ID FROM Customer ORDER BY Name"};
static const Statement firstBus{"SELECT TOP 1 ID FROM Bus ORDER BY Name"};

static void OpenFirst(App& app, Screen& screen, const Statement& select)
{
    Recordset row(select, app.AppConnection);
    if (!row.Eof())
        screen.OpenRecord(row.FieldAt(0).Text());
}

/// Brings a screen to show something.
static void LoadRecord(App& app, Screen& screen)
{
    const std::string& name = screen.Name();
    if (name == "frmRentalEntry" || name == "frmCreateInvoices")
        OpenFirst(app, screen, fullestTour);
    else if (name == "frmBusEntry")
        OpenFirst(app, screen, firstBus);
    else if (name == "frmCustomerEntry" || name == "frmCustomerEntry2")
        OpenFirst(app, screen, firstCustomer);
    else if (name == "frmCustomerNavigator")
        screen.DefaultButton()->Click.Fire();
}

/// The first of a vehicle's pictures.
static void PickFirstPicture(Form& form)
{
    if (auto* images = dynamic_cast<ListBox*>(form.FindControl("lstImages")); images && images->ListCount() > 0)
        images->Pick(0);
}

static Tabs* TabsOf(const Form& form)
{
    for (Control* control : form.Controls()) {
        if (auto* tabs = dynamic_cast<Tabs*>(control))
            return tabs;
    }
    return nullptr;
}

static void SaveScreen(DesktopHost& host, Form& form, const std::filesystem::path& folder)
{
    QWidget& frame = *host.FrameOf(form);
    Tabs* tabs = TabsOf(form);
    const int pages = tabs ? static_cast<int>(tabs->Captions().size()) : 1;
    for (int page = 0; page < pages; ++page) {
        if (tabs)
            tabs->SetPage(page);
        host.FlushWindows();
        SavePicture(frame, folder, form.Name() + (pages > 1 ? "-" + std::to_string(page + 1) : ""));
    }
}

/// A tour screen with its first line on the panel.
static void PickFirstLine(Form& form)
{
    auto* items = dynamic_cast<Grid*>(form.FindControl("vsfgItems"));
    if (!items || items->Rows() <= items->FixedRows())
        return;
    items->SetMouse(items->FixedRows(), items->FixedCols());
    items->Select(items->FixedRows(), items->FixedCols());
    items->Click.Fire();
}

void SaveScreenshots(App& app, DesktopHost& host, const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    // The platform without a screen makes believe in a small one.
    host.Main().resize(1440, 900);
    host.Main().activateWindow();
    QCoreApplication::processEvents();
    host.Gate().Run([&] {
        host.FlushWindows();
        SaveScreen(host, *app.Find("frmLogin"), folder);
        // Whoever can read config.txt can read the database; the pictures ask for no sign-in beyond that.
        app.session.CurrentUserType = "Admin";
        app.session.CurrentUsername = "office";
        MDI& mdi = *app.Find<MDI>();
        mdi.menu.EnableAll(true);
        mdi.MenuChanged.Fire();
        app.Unload(*app.Find("frmLogin"));
        for (const auto& [name, factory] : AllScreens()) {
            if (name == "MDI" || name == "frmLogin")
                continue;
            Screen& screen = app.Open(name);
            host.FlushWindows();
            LoadRecord(app, screen);
            PickFirstLine(screen);
            PickFirstPicture(screen);
            if (name == "frmRentalEntry") {
                host.FlushWindows();
                SavePicture(host.Main(), folder, "MDI");
            }
            SaveScreen(host, screen, folder);
            app.Unload(screen);
        }
    });
}

}
