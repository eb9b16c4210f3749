#pragma once

#include <filesystem>
#include <string>

namespace rovanta::bench {

/// An office as large as a busy one gets: 20,000 customers and 20,000 tours.
class BenchOffice {
public:
    /// Makes it in a new folder below `parent`; it goes with the object.
    explicit BenchOffice(const std::filesystem::path& parent);
    ~BenchOffice();
    BenchOffice(const BenchOffice&) = delete;
    BenchOffice& operator=(const BenchOffice&) = delete;

    std::string Folder() const { return folder.string(); }
    std::string ConfigPath() const { return (folder / "config.txt").string(); }
    std::string DatabasePath() const { return (folder / "rovanta.db").string(); }

    static constexpr int customers = 20000;
    static constexpr int tours = 20000;
    /// The tour of 40 lines.
    static constexpr int largeTour = 10000;
    /// The tour of 10 lines over 52 weeks.
    static constexpr int longTour = 10001;
    static constexpr int largeTourLines = 40;
    static constexpr int longTourLines = 10;
    static constexpr int longTourDays = 52 * 7;

private:
    std::filesystem::path folder;
};

}
