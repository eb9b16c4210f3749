#pragma once

#include "app/OfficeMaker.h"
#include "app/Screens.h"
#include "forms/Host.h"
#include "forms/Menu.h"
#include "frame/App.h"
#include "frame/frmLogin.h"
#include "store/Recordset.h"
#include "store/Statement.h"

#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace rovanta::tests {

/// What a file holds.
inline std::string ContentOf(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void WriteContent(const std::string& path, const std::string& content)
{
    std::ofstream(path, std::ios::binary) << content;
}

/// A shell that shows nothing: it records what a person would see and answers from queues what a person would answer.
class SilentHost : public Host {
public:
    MessageAnswer ShowMessage(const Message& message) override
    {
        messages.push_back(message);
        if (message.buttons == MessageButtons::Ok)
            return MessageAnswer::Ok;
        if (answers.empty())
            return MessageAnswer::No;
        const MessageAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    std::optional<std::string> ChooseFile(const FileQuestion& question) override
    {
        fileQuestions.push_back(question);
        if (files.empty())
            return std::nullopt;
        std::string file = files.front();
        files.pop_front();
        return file;
    }

    void ShowPopup(MenuItem& menu) override { popups.push_back(menu.name); }
    void ShowHourglass(bool on) override
    {
        hourglass += on ? 1 : -1;
        hourglassShown += on ? 1 : 0;
    }
    void FormLoaded(Form&) override {}
    void FormUnloaded(Form&) override {}
    void BringToFront(Form&) override {}

    /// "title: text" of the boxes since the last time, one a line.
    std::string TakeMessages()
    {
        std::string taken;
        for (const Message& message : std::exchange(messages, {}))
            taken += (taken.empty() ? "" : "\n") + message.title + ": " + message.text;
        return taken;
    }

    std::vector<Message> messages;
    std::deque<MessageAnswer> answers;
    std::deque<std::string> files;
    std::vector<FileQuestion> fileQuestions;
    std::vector<std::string> popups;
    int hourglass = 0; ///< how many wait cursors stand
    int hourglassShown = 0;
};

/// A folder that goes with the object.
class TestFolder {
public:
    TestFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "office-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no folder for the office");
        path = pattern;
    }
    ~TestFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(path, error);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    std::string File(const std::string& name) const { return (path / name).string(); }

    std::filesystem::path path;
};

/// An office in a folder of its own, as every new office is, with two users: "admin" of type "Admin" and "clerk"
/// without a right, both with the password "word".
class TestOffice {
public:
    TestOffice()
    {
        // One office is made and each test gets a copy of it.
        static const TestFolder made;
        static const bool filled = Fill(made.path);
        std::filesystem::copy(made.path, folder.path, std::filesystem::copy_options::recursive);
        (void)filled;
    }

    std::string ConfigPath() const { return folder.File("config.txt"); }

    TestFolder folder;

private:
    static bool Fill(const std::filesystem::path& path)
    {
        OfficePlan plan;
        plan.folder = path;
        plan.user = "admin";
        plan.password = "word";
        plan.furnish = [](Connection& connection, const Configuration&) {
            connection.Execute("INSERT INTO [User] (Name,Username,Password,Type,Inactive) VALUES "
                               "('Carl Clerk','clerk','word','User',0)");
        };
        CreateOffice(plan);
        return true;
    }
};

/// A program that has started in an office; nobody has signed in. Several on one office are several desks.
class TestApp {
public:
    explicit TestApp(const TestOffice& office)
        : app(host, AllScreens(), {office.ConfigPath(), NextMachine(), DateTime::Of(2026, 3, 2, 9, 0, 0)})
    {
        app.Start();
    }

    void SignIn(const std::string& user = "admin")
    {
        auto& login = app.Open<frmLogin>();
        login.txtUsername = user;
        login.txtPassword = "word";
        login.btnLogin.Click.Fire();
        app.DropClosed();
    }

    void Execute(const std::string& sql) { app.AppConnection.Execute(Statement::Verbatim(sql)); }

    /// The rows of a SELECT: cells joined by "|", rows by a line feed; a NULL is "NULL".
    std::string Rows(const std::string& sql)
    {
        std::string text;
        for (Recordset row(Statement::Verbatim(sql), app.AppConnection); !row.Eof(); row.MoveNext()) {
            text += text.empty() ? "" : "\n";
            for (std::size_t column = 0; column < row.ColumnNames().size(); ++column) {
                const Field field = row.FieldAt(column);
                text += (column > 0 ? "|" : "") + (field.IsNull() ? std::string("NULL") : field.Text());
            }
        }
        return text;
    }

    /// Grants a user one right by name.
    void Grant(const std::string& user, const std::string& permission)
    {
        Execute(
            "INSERT INTO UserPermission (UserID,PermissionID) SELECT [User].ID,Permission.ID FROM [User],Permission "
            "WHERE [User].Username = '" +
            user + "' AND Permission.Name = '" + permission + "'");
    }

    SilentHost host;
    App app;

private:
    static std::string NextMachine()
    {
        static int count = 0;
        return "test-" + std::to_string(getpid()) + "-" + std::to_string(++count);
    }
};

}
