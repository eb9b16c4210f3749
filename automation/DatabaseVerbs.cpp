#include "automation/ControlJson.h"
#include "automation/Desk.h"
#include "automation/RpcError.h"
#include "automation/Verbs.h"
#include "store/Recordset.h"

#include <nlohmann/json.hpp>

namespace rovanta {

static Json ReadRows(Recordset& recordset)
{
    Json rows = Json::array();
    for (; !recordset.Eof(); recordset.MoveNext()) {
        Json cells = Json::array();
        for (std::size_t column = 0; column < recordset.ColumnNames().size(); ++column)
            cells.push_back(ToJson(recordset.FieldAt(column).Value()));
        rows.push_back(std::move(cells));
    }
    return rows;
}

/// A statement of the script's own that the database refuses is the script's mistake and does not end the program.
static Json Query(Desk& desk, const Parameters& parameters)
{
    const std::string sql = parameters.Text("sql");
    try {
        Recordset recordset(Statement::Verbatim(sql), desk.Program().AppConnection);
        return {{"columns", recordset.ColumnNames()}, {"rows", ReadRows(recordset)}};
    } catch (const RunTimeError& failure) {
        throw BadParameters(std::string("The parameter \"sql\" failed: ") + failure.what());
    }
}

static Json Execute(Desk& desk, const Parameters& parameters)
{
    const std::string sql = parameters.Text("sql");
    try {
        desk.Program().AppConnection.Execute(Statement::Verbatim(sql));
    } catch (const RunTimeError& failure) {
        throw BadParameters(std::string("The parameter \"sql\" failed: ") + failure.what());
    }
    return Json::object();
}

void AddDatabaseVerbs(VerbTable& table)
{
    table["db.query"] = Query;
    table["db.execute"] = Execute;
}

}
