#pragma once

#include "store/NewSqliteFile.h"

#include <functional>
#include <string>

namespace rovanta {

/// Copies the SQLite database in the file `path`, as it stands at one moment and whoever works in it, to the new file
/// `copy`, and reads the copy whole to prove it sound. Throws DatabaseError.
void CopySqliteFile(const std::string& path, const NewSqliteFile& copy);

/// Does the work while no program has the SQLite database in the file `path` open and all of it lies in that one file.
/// A damaged file is let through as it lies. Throws DatabaseError when a program has it open.
void WithSqliteFileAlone(const std::string& path, const std::function<void()>& work);

/// Throws DatabaseError when there is no file of that path.
void RefuseWhatIsNoFile(const std::string& path);
/// Throws DatabaseError when this user may not read and write the file.
void RefuseWhatCannotBeWritten(const std::string& path);

}
