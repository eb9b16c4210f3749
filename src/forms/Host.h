#pragma once

#include <optional>
#include <string>

namespace rovanta {

class Form;
struct MenuItem;

enum class MessageIcon { None, Exclamation, Question, Information, Critical };
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

/// A message box as a screen asks for it.
struct Message {
    std::string text;
    std::string title;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
};

enum class FileDialogKind { Open, Save };

/// A file dialog; `filter` is written "Description|*.ext;*.ext2|Description|*.ext".
struct FileQuestion {
    FileDialogKind kind = FileDialogKind::Open;
    std::string title;
    std::string filter;
};

/// What a shell does for the screens. Both shells implement it once.
class Host {
public:
    virtual ~Host() = default;

    virtual MessageAnswer ShowMessage(const Message& message) = 0;
    /// The chosen file, nothing when the person cancels.
    virtual std::optional<std::string> ChooseFile(const FileQuestion& question) = 0;
    /// Brings up the entries of a menu at the mouse.
    virtual void ShowPopup(MenuItem& menu) = 0;
    /// The wait cursor goes on or off.
    virtual void ShowHourglass(bool on) = 0;
    /// A form has been loaded: the shell makes what it needs to show it whenever the form is visible.
    virtual void FormLoaded(Form& form) = 0;
    /// A form is about to be destroyed.
    virtual void FormUnloaded(Form& form) = 0;
    /// A visible form comes to the front.
    virtual void BringToFront(Form& form) = 0;
};

}
