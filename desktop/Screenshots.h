#pragma once

#include <filesystem>

namespace rovanta {

class App;
class DesktopHost;

/// Opens every screen, with a record where it has some, and saves a picture of each in `folder`, at scale 1 and 1.5.
/// Throws RunTimeError naming a file that cannot be written.
void SaveScreenshots(App& app, DesktopHost& host, const std::filesystem::path& folder);

}
