#include "frame/RecordLoading.h"

#include "frame/App.h"

namespace rovanta {

void ShowText(TextControl& box, const Field& column)
{
    box.SetText(column.TextOrEmpty());
}

void ShowChoice(ComboBox& combo, const Field& column)
{
    const std::string text = column.TextOrEmpty();
    if (text.empty())
        combo.SetListIndex(-1);
    else
        combo.SetText(text);
}

void ShowFlag(CheckBox& box, const Field& column)
{
    box = column.IsTrue();
}

void ShowNumber(MaskedBox& box, const Field& column)
{
    box = column.Number();
}

void ShowTexts(Recordset& row, std::span<const TextColumn> columns)
{
    for (const TextColumn& each : columns)
        ShowText(each.box, row.Fields(each.column));
}

void ShowChoices(Recordset& row, std::span<const ChoiceColumn> columns)
{
    for (const ChoiceColumn& each : columns)
        ShowChoice(each.combo, row.Fields(each.column));
}

void WriteTexts(Recordset& row, std::span<const TextColumn> columns)
{
    for (const TextColumn& each : columns)
        row.Fields(each.column) = each.box.Text();
}

void WriteChoices(Recordset& row, std::span<const ChoiceColumn> columns)
{
    for (const ChoiceColumn& each : columns)
        row.Fields(each.column) = each.combo.Text();
}

void ClearTexts(std::span<const TextColumn> columns)
{
    for (const TextColumn& each : columns)
        each.box.SetText("");
}

void ClearChoices(std::span<const ChoiceColumn> columns)
{
    for (const ChoiceColumn& each : columns)
        each.combo.SetListIndex(-1);
}

void FillCombo(ComboBox& combo, const Statement& select, Connection& connection, std::string_view column)
{
    combo.Clear();
    Recordset row(select, connection);
    const std::string shown = column.empty() ? row.ColumnNames().front() : std::string(column);
    for (; !row.Eof(); row.MoveNext())
        combo.AddItem(row.Fields(shown).TextOrEmpty());
}

void AddPairs(ComboPair& pair, const Statement& select, Connection& connection, std::string_view nameColumn,
              std::string_view keyColumn)
{
    for (Recordset row(select, connection); !row.Eof(); row.MoveNext())
        pair.AddPair(row.Fields(nameColumn).TextOrEmpty(), row.Fields(keyColumn).Text());
}

void FillPair(ComboPair& pair, const Statement& select, Connection& connection, std::string_view nameColumn,
              std::string_view keyColumn)
{
    pair.ClearPair();
    AddPairs(pair, select, connection, nameColumn, keyColumn);
}

void FillStates(ComboBox& combo, Connection& connection)
{
    FillCombo(combo, "SELECT State FROM State ORDER BY State", connection);
}

bool MaySave(App& app, std::string_view permission)
{
    return app.Permit(permission, Denial::saveRecord);
}

bool HasRequired(App& app, bool complete, const std::string& message)
{
    if (!complete)
        app.Say(message, "Required Fields");
    return complete;
}

Recordset FindRecord(const Statement& table, const std::string& key, Connection& connection)
{
    return Recordset(Statement{"SELECT * FROM "} + table + " WHERE ID = " + Key(key), connection);
}

Recordset RecordToSave(App& app, const Statement& table, const std::string& key, Tracking tracking)
{
    if (!key.empty())
        return FindRecord(table, key, app.AppConnection);
    Recordset row(Statement{"SELECT TOP 1 * FROM "} + table, app.AppConnection);
    row.AddNew();
    if (tracking != Tracking::None) {
        row.Fields(tracking == Tracking::DateEntered ? "DateEntered" : "EnteredDate") = app.clock.Now();
        row.Fields("EnteredBy") = app.session.CurrentUsername;
    }
    return row;
}

}
