#pragma once

#include <string>
#include <vector>

namespace rovanta {

class App;

/// The door to the reports. Until a report of that caption is part of the program it says so in a message box.
void RunReport(App& app, const std::string& caption, const std::vector<std::string>& keys);

}
