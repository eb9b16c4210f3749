#include "automation/RpcError.h"
#include "automation/Verbs.h"

#include <nlohmann/json.hpp>

namespace rovanta {

static Json ListDocuments(Desk&, const Parameters&)
{
    const Json none = Json::array();
    return {
        {"customers", none}, {"invoices", none}, {"creditMemos", none}, {"journalEntries", none}, {"payments", none}};
}

static Json FailNext(Desk&, const Parameters& parameters)
{
    const std::string component = parameters.Text("component");
    parameters.Text("operation");
    parameters.Number("number");
    parameters.Text("description");
    throw BadParameters("There is no accounting component \"" + component + "\".");
}

void AddAccountingVerbs(VerbTable& table)
{
    table["accounting.documents"] = ListDocuments;
    table["accounting.fail"] = FailNext;
}

}
