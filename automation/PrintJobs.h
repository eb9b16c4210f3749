#pragma once

#include <string>
#include <vector>

namespace rovanta {

class Form;
class Grid;
struct GridPrint;

/// One job as it would have gone to the printer.
struct PrintJob {
    /// The control whose content was printed.
    std::string what;
    std::string title;
    bool landscape = false;
    int pages = 0;
};

/// The print jobs since the start of the program.
class PrintJobs {
public:
    /// Listens to everything of a form that can be printed.
    void Connect(Form& form);
    const std::vector<PrintJob>& All() const { return jobs; }

private:
    void Add(const Grid& grid, const GridPrint& job);

    std::vector<PrintJob> jobs;
};

}
