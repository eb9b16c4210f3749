#pragma once

#include <filesystem>
#include <string>

namespace rovanta::bench {

/// An office as large as a busy one gets: 20,000 customers and 20,000 tours.
class BenchOffice {
public:
    /// Makes it in a new folder below `parent`, which goes with the object. The database is an empty one on a server
    /// that `connection` names, or without it a file in the folder.
    explicit BenchOffice(const std::filesystem::path& parent, const std::string& connection = "");
    ~BenchOffice();
    BenchOffice(const BenchOffice&) = delete;
    BenchOffice& operator=(const BenchOffice&) = delete;

    std::string Folder() const { return folder.string(); }
    std::string ConfigPath() const { return (folder / "config.txt").string(); }
    /// The connection text of its database.
    std::string ConnectionText() const;

    static constexpr int customers = 20000;
    static constexpr int tours = 20000;
    /// The tour of 40 lines.
    static constexpr int largeTour = 10000;
    /// The tour of 10 lines over 52 weeks.
    static constexpr int longTour = 10001;
    /// The tour of 40 lines of three days each, one behind the other.
    static constexpr int yearTour = 10002;
    static constexpr int largeTourLines = 40;
    static constexpr int longTourLines = 10;
    static constexpr int longTourDays = 52 * 7;
    static constexpr int yearTourLines = 40;
    /// From one line's first day to the next one's, so that some lines fall into two weeks.
    static constexpr int yearTourStep = 8;

private:
    std::filesystem::path folder;
};

}
