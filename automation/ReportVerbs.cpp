#include "automation/Desk.h"
#include "automation/RpcError.h"
#include "automation/Verbs.h"

#include <nlohmann/json.hpp>

namespace rovanta {

static Json ShownReport(Desk&, const Parameters&)
{
    return nullptr;
}

static Json ExportReport(Desk&, const Parameters& parameters)
{
    const std::string path = parameters.Text("path");
    throw BadParameters("Viewer shows nothing that could be exported to \"" + path + "\".");
}

static Json ListPrintJobs(Desk& desk, const Parameters&)
{
    Json jobs = Json::array();
    for (const PrintJob& job : desk.host.Jobs().All())
        jobs.push_back({{"what", job.what},
                        {"title", job.title},
                        {"orientation", job.landscape ? "landscape" : "portrait"},
                        {"pages", job.pages}});
    return {{"jobs", std::move(jobs)}};
}

void AddReportVerbs(VerbTable& table)
{
    table["report.shown"] = ShownReport;
    table["report.export"] = ExportReport;
    table["print.jobs"] = ListPrintJobs;
}

}
