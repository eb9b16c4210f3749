#include "frame/frmLogin.h"

#include "frame/App.h"
#include "frame/MDI.h"
#include "values/Numbers.h"
#include "values/Text.h"

namespace rovanta {

frmLogin::frmLogin(App& app) : Screen(app, screenName, "Login")
{
    txtPassword.SetSecret();
    SetDefaultButton(btnLogin);
    SetCancelButton(btnCancel);
    btnLogin.Click = [this] { btnLogin_Click(); };
    btnCancel.Click = [this] { this->app.CloseAndExit(); };
    txtUsername.SetFocus();
}

void frmLogin::btnLogin_Click()
{
    if (txtUsername.IsEmpty()) {
        app.Say("You must enter a username", "Invalid Username", MessageIcon::Exclamation);
        txtUsername.SetFocus();
        return;
    }
    if (txtPassword.IsEmpty()) {
        app.Say("You must enter a password", "Invalid Password", MessageIcon::Exclamation);
        txtPassword.SetFocus();
        return;
    }
    Recordset user = FindUser();
    if (user.Eof()) {
        app.Say("Your username and/or password is invalid.", "Invalid Username/Password", MessageIcon::Exclamation);
        txtUsername = "";
        txtPassword = "";
        txtUsername.SetFocus();
        return;
    }
    app.session.CurrentUserID = CInt(user.Fields("ID").Number());
    app.session.CurrentUserType = user.Fields("Type").Text();
    app.session.CurrentUsername = user.Fields("Username").Text();
    MDI* main = app.Find<MDI>();
    main->menu.EnableAll(true);
    main->MenuChanged.Fire();
    Close();
}

Recordset frmLogin::FindUser()
{
    return Recordset(Statement{"SELECT ID,Type,Username,SalesOrderPrintQty,InvoicePrintQty,PackingSlipPrintQty,"
                               "PickTicketPrintQty FROM [User] WHERE Username = '"} +
                         Text(Trim(txtUsername.Text())) + "' AND Password = '" + Text(Trim(txtPassword.Text())) +
                         "' AND Inactive <> 1",
                     Database());
}

}
