#pragma once

#include "frame/Screen.h"

namespace rovanta {

/// The sign-in box: the one thing that works until a user has signed in.
class frmLogin : public Screen {
public:
    static constexpr const char* screenName = "frmLogin";
    explicit frmLogin(App& app);

    TextBox txtUsername{this, "txtUsername", "Username"};
    TextBox txtPassword{this, "txtPassword", "Password"};
    Button btnLogin{this, "btnLogin", "Login"};
    Button btnCancel{this, "btnCancel", "Close"};

private:
    void btnLogin_Click();
    Recordset FindUser();
};

}
