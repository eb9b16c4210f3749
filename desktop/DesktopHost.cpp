#include "desktop/DesktopHost.h"

#include "desktop/FormFrame.h"
#include "desktop/FormWindow.h"
#include "desktop/layouts/Layouts.h"
#include "frame/App.h"
#include "frame/MDI.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDate>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <cstdio>

namespace rovanta {

DesktopHost::DesktopHost() : main(gate)
{
    gate.settle = [this] { Settle(); };
    gate.tellFailure = [this](const std::string& text) { TellFailure(text); };
    gate.exit = [this](int code) {
        exitCode = code;
        QCoreApplication::exit(code);
    };
    main.roomChanged = [this] {
        for (auto& [form, each] : open) {
            if (!each.window->IsRoomy() && each.frame->isVisible() && each.frame->pos() == each.middle)
                MoveToMiddle(each);
        }
    };
    QObject::connect(&main.Area(), &QMdiArea::subWindowActivated, &main, [this](QMdiSubWindow* frame) {
        const auto found =
            std::find_if(open.begin(), open.end(), [&](const auto& each) { return each.second.frame == frame; });
        if (found != open.end())
            found->second.window->TakeFocus();
        main.RefreshStrip();
    });
}

DesktopHost::~DesktopHost()
{
    // The area tells of windows that lose their place while it goes itself.
    main.Area().disconnect(&main);
    while (!open.empty())
        FormUnloaded(const_cast<Form&>(*open.begin()->first));
}

FormWindow* DesktopHost::WindowOf(const Form& form) const
{
    const auto found = open.find(&form);
    return found == open.end() ? nullptr : found->second.window;
}

QMdiSubWindow* DesktopHost::FrameOf(const Form& form) const
{
    const auto found = open.find(&form);
    return found == open.end() ? nullptr : found->second.frame;
}

void DesktopHost::Settle()
{
    waiting = 0;
    while (QGuiApplication::overrideCursor())
        QGuiApplication::restoreOverrideCursor();
    if (app)
        app->DropClosed();
    FlushWindows();
}

void DesktopHost::FlushForms()
{
    // A window that takes the keyboard may run routines, and these may close forms.
    std::vector<const Form*> forms;
    for (const auto& [form, each] : open)
        forms.push_back(form);
    for (const Form* form : forms) {
        const auto found = open.find(form);
        if (found != open.end())
            found->second.window->Flush();
    }
}

void DesktopHost::FlushWindows()
{
    FlushForms();
    if (Form* form = std::exchange(toFront, nullptr)) {
        const auto found = open.find(form);
        if (found != open.end() && form->Visible()) {
            ShowForm(*form, found->second);
            main.Area().setActiveSubWindow(found->second.frame);
            found->second.window->TakeFocus();
            FlushForms();
        }
    }
    main.RefreshStrip();
    ShowStanding();
}

void DesktopHost::ShowStanding()
{
    if (!app)
        return;
    const DateTime today = app->clock.Today();
    main.ShowStanding({QString::fromStdString(app->session.CurrentUsername),
                       QString::fromStdString(app->company.CompanyName),
                       QLocale().toString(QDate(today.Year(), today.Month(), today.Day()), "dddd, MMMM d, yyyy")});
}

static QMessageBox::Icon IconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

MessageAnswer DesktopHost::ShowMessage(const Message& message)
{
    const bool asks = message.buttons == MessageButtons::YesNo;
    if (alone || gate.HasEnded())
        return asks ? MessageAnswer::No : MessageAnswer::Ok;
    // A list that has dropped down would keep the mouse from the box.
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    FlushWindows();
    if (waiting > 0)
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    QMessageBox box(IconOf(message.icon), QString::fromStdString(message.title), QString::fromStdString(message.text),
                    asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, main.isVisible() ? &main : nullptr);
    box.setTextFormat(Qt::PlainText);
    const int answer = box.exec();
    if (waiting > 0)
        QGuiApplication::restoreOverrideCursor();
    if (!asks)
        return MessageAnswer::Ok;
    return answer == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No;
}

void DesktopHost::TellFailure(const std::string& text)
{
    std::fprintf(stderr, "%s\n", text.c_str());
    while (QGuiApplication::overrideCursor())
        QGuiApplication::restoreOverrideCursor();
    if (alone)
        return;
    QMessageBox box(QMessageBox::Critical, "Rovanta", QString::fromStdString(text), QMessageBox::Ok,
                    main.isVisible() ? &main : nullptr);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

/// "Bitmap Files (*.bmp)|*.bmp|..." in the toolkit's words: "Bitmap Files (*.bmp);;...".
static QString FilterOf(const std::string& filter)
{
    const QStringList pieces = QString::fromStdString(filter).split('|');
    QStringList kinds;
    for (qsizetype at = 0; at + 1 < pieces.size(); at += 2) {
        const QString words = pieces[at].section(" (", 0, 0);
        kinds += words + " (" + QString(pieces[at + 1]).replace(';', ' ') + ")";
    }
    return kinds.join(";;");
}

std::optional<std::string> DesktopHost::ChooseFile(const FileQuestion& question)
{
    if (alone || gate.HasEnded())
        return std::nullopt;
    FlushWindows();
    const QString title = QString::fromStdString(question.title);
    const QString filter = FilterOf(question.filter);
    const QString file = question.kind == FileDialogKind::Open ? QFileDialog::getOpenFileName(&main, title, {}, filter)
                                                               : QFileDialog::getSaveFileName(&main, title, {}, filter);
    if (file.isEmpty())
        return std::nullopt;
    return file.toStdString();
}

void DesktopHost::ShowPopup(MenuItem& menu)
{
    if (alone || gate.HasEnded())
        return;
    FlushWindows();
    main.ShowPopup(menu);
}

void DesktopHost::ShowHourglass(bool on)
{
    waiting = std::max(0, waiting + (on ? 1 : -1));
    if (on && waiting == 1)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else if (waiting == 0 && QGuiApplication::overrideCursor())
        QGuiApplication::restoreOverrideCursor();
}

void DesktopHost::FormLoaded(Form& form)
{
    if (auto* mdi = dynamic_cast<MDI*>(&form)) {
        main.setWindowTitle(QString::fromStdString(form.Caption()));
        main.BuildMenus(mdi->menu);
        mdi->MenuChanged = [this] { main.RefreshMenus(); };
        return;
    }
    auto* window = new FormWindow(form, LayoutOf(form.Name()), gate);
    auto* frame = new FormFrame(*window, [this, &form] { CloseByHand(form); });
    main.Area().addSubWindow(frame);
    frame->hide();
    OpenForm& entry = open[&form] = {window, frame, {}};
    window->isInFront = [this, frame] { return main.Area().activeSubWindow() == frame; };
    window->formChanged = [this, &form, &entry] { ShowForm(form, entry); };
}

void DesktopHost::FormUnloaded(Form& form)
{
    const auto found = open.find(&form);
    if (found == open.end())
        return;
    const OpenForm gone = found->second;
    open.erase(found);
    if (toFront == &form)
        toFront = nullptr;
    gone.window->Detach();
    gone.frame->hide();
    // Its own signal may be under way.
    gone.frame->deleteLater();
}

void DesktopHost::ShowForm(Form& form, OpenForm& entry)
{
    entry.frame->setWindowTitle(QString::fromStdString(form.Caption()));
    if (entry.frame->isHidden() == !form.Visible())
        return;
    if (form.Visible()) {
        Place(entry);
        entry.frame->show();
    } else {
        entry.frame->hide();
    }
}

void DesktopHost::Place(OpenForm& entry) const
{
    const QSize room = main.Area().viewport()->size();
    QSize wanted = entry.frame->sizeHint().expandedTo(entry.frame->minimumSizeHint());
    // What makes use of more room gets some.
    if (entry.window->IsRoomy())
        wanted = {wanted.width() * 11 / 10, wanted.height() * 21 / 20};
    entry.frame->resize(wanted.boundedTo(room));
    entry.frame->move(0, 0);
    if (!entry.window->IsRoomy())
        MoveToMiddle(entry);
}

void DesktopHost::MoveToMiddle(OpenForm& entry) const
{
    // A small box stands a little above the middle.
    constexpr int lift = 40;
    const QSize room = main.Area().viewport()->size();
    const QSize size = entry.frame->size();
    entry.middle = {std::max(0, (room.width() - size.width()) / 2),
                    std::max(0, (room.height() - lift - size.height()) / 2)};
    entry.frame->move(entry.middle);
}

void DesktopHost::CloseByHand(Form& form)
{
    if (!form.Enabled() || !app)
        return;
    gate.Run([&] { app->Unload(form); });
}

void DesktopHost::BringToFront(Form& form)
{
    if (dynamic_cast<MDI*>(&form)) {
        main.show();
        return;
    }
    toFront = &form;
}

}
