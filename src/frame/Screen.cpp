#include "frame/Screen.h"

#include "frame/App.h"

#include <stdexcept>

namespace rovanta {

void Screen::OpenRecord(const std::string&)
{
    throw std::logic_error("Screen " + Name() + " opens no record");
}

void Screen::UseTypeAhead(ComboBox& combo)
{
    combo.KeyPress = [this, &combo](std::string& key) {
        ComboTypeAhead(combo, key, app.typeAhead, app.clock.Timer(), app.company.KeyPressDelay);
    };
}

Connection& Screen::Database()
{
    return app.AppConnection;
}

void Screen::Close()
{
    app.Unload(*this);
}

}
