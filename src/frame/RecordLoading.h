#pragma once

#include "forms/ChoiceControls.h"
#include "forms/ListControls.h"
#include "forms/TextControls.h"
#include "store/Recordset.h"
#include "store/Statement.h"

#include <span>
#include <string>
#include <string_view>

namespace rovanta {

class App;
class Connection;

// What the record screens share: how a column reaches its control, how lists are filled, how a save begins.

/// A text box and the column of its record.
struct TextColumn {
    std::string column;
    TextControl& box;
};

/// A combo that shows a text column by one of its entries, and that column.
struct ChoiceColumn {
    std::string column;
    ComboBox& combo;
};

/// An optional text column into its box: a NULL gives the empty box.
void ShowText(TextControl& box, const Field& column);
/// A text column into a combo with a list: the text when there is one, else no entry.
void ShowChoice(ComboBox& combo, const Field& column);
/// A flag into a check box: ticked when the column is true.
void ShowFlag(CheckBox& box, const Field& column);
/// A number into its mask box. Throws RunTimeError naming the column when it is NULL.
void ShowNumber(MaskedBox& box, const Field& column);

void ShowTexts(Recordset& row, std::span<const TextColumn> columns);
void ShowChoices(Recordset& row, std::span<const ChoiceColumn> columns);
/// The texts of the controls as they stand into the row's buffer.
void WriteTexts(Recordset& row, std::span<const TextColumn> columns);
void WriteChoices(Recordset& row, std::span<const ChoiceColumn> columns);
void ClearTexts(std::span<const TextColumn> columns);
void ClearChoices(std::span<const ChoiceColumn> columns);

/// Clears the list and adds one column of each row: the first, unless another is named.
void FillCombo(ComboBox& combo, const Statement& select, Connection& connection, std::string_view column = {});
/// Adds a name and its key for each row, behind what the pair holds already ("N/A", "**All Customers**").
void AddPairs(ComboPair& pair, const Statement& select, Connection& connection, std::string_view nameColumn = "Name",
              std::string_view keyColumn = "ID");
/// Clears the pair and adds a name and its key for each row.
void FillPair(ComboPair& pair, const Statement& select, Connection& connection, std::string_view nameColumn = "Name",
              std::string_view keyColumn = "ID");
/// Fills a combo with the codes of all states.
void FillStates(ComboBox& combo, Connection& connection);

/// Whether a save may begin: the permission test with its refusal.
bool MaySave(App& app, std::string_view permission);
/// Whether the required fields are there; the box "Required Fields" with `message` when they are not.
bool HasRequired(App& app, bool complete, const std::string& message);

/// The columns that tell who made a record, and when.
enum class Tracking { None, DateEntered, EnteredDate };

/// The record of that key in `table`, a literal of the screen.
Recordset FindRecord(const Statement& table, const std::string& key, Connection& connection);
/// The row that a save writes: with a key the record that is there, with none a new row that bears who and when.
Recordset RecordToSave(App& app, const Statement& table, const std::string& key, Tracking tracking);

}
