#include "automation/PrintJobs.h"

#include "forms/Form.h"
#include "forms/Grid.h"

#include <algorithm>

namespace rovanta {

/// How many sheets of letter paper the rows take, the headings repeated on each.
static int CountPages(const Grid& grid, const GridPrint& job)
{
    constexpr int rowTwips = 270;
    constexpr int shortSideTwips = 12240;
    constexpr int longSideTwips = 15840;
    const int height = (job.landscape ? shortSideTwips : longSideTwips) - 2 * job.marginTwips;
    const int rowsOnPage = std::max(1, height / rowTwips - grid.FixedRows());
    int shown = 0;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
        shown += grid.IsRowShown(row) ? 1 : 0;
    return std::max(1, (shown + rowsOnPage - 1) / rowsOnPage);
}

void PrintJobs::Connect(Form& form)
{
    for (Control* control : form.Controls()) {
        if (auto* grid = dynamic_cast<Grid*>(control))
            grid->Print = [this, grid](const GridPrint& job) { Add(*grid, job); };
    }
}

void PrintJobs::Add(const Grid& grid, const GridPrint& job)
{
    jobs.push_back({grid.Name(), job.title, job.landscape, CountPages(grid, job)});
}

}
