#include "frame/Reports.h"

#include "frame/App.h"

namespace rovanta {

void RunReport(App& app, const std::string& caption, const std::vector<std::string>& keys)
{
    if (keys.empty())
        return;
    app.Say("The report \"" + caption + "\" is not part of this version yet.", "Not Available",
            MessageIcon::Information);
}

}
