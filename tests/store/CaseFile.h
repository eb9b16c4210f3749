#pragma once

#include "tests/store/TestOffice.h"

#include <string>
#include <vector>

namespace rovanta {

/// What one line of a case asks for.
enum class StepKind { Run, Ask, Fail };

/// A statement with what must come of it.
struct CaseStep {
    StepKind kind;
    std::string statement;
    /// Ask: the names of the columns and the rows. Fail: the text of the error.
    std::vector<std::string> expected;
    int line = 0;
    /// Ask: whether the names are those of chosen columns, each the first of its name, and not of all in their order.
    bool chosenColumns = false;
};

/// Statements that belong together. Each case starts from the data of the whole file.
struct StatementCase {
    std::string title;
    std::vector<CaseStep> steps;
};

/// A file of statements with what must come of them, the same for every engine:
///
///     case: A number is a true bit unless it is 0
///     run: INSERT INTO Flags (Value) VALUES (-1)
///     ask: SELECT Value FROM Flags
///     columns: Value
///     | true
///
/// "only:" in place of "columns:" compares the columns that it lists and no others. "data:" lines before the first case
/// make what all of them start from. A line that begins with blanks goes on with the one before. A "fail:" ends its
/// case and is followed by "says:" with the error's text. Lines with # are comments.
struct CaseFile {
    std::string path;
    std::vector<std::string> data;
    std::vector<StatementCase> cases;
};

CaseFile ReadCaseFile(const std::string& path);

/// Runs every case on the office, which is left as it was, tells how many passed, and returns what went otherwise than
/// told, one text a difference.
std::vector<std::string> RunCases(const CaseFile& file, TestOffice& office);

}
