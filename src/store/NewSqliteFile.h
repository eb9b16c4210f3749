#pragma once

#include <string>

namespace rovanta {

/// A file for an SQLite database that a run makes: gone again, with what SQLite put beside it, unless it is kept.
class NewSqliteFile {
public:
    /// Makes it, empty as a database without tables is. Throws DatabaseError where it exists already, or one beside it
    /// that SQLite would take for a part of it.
    explicit NewSqliteFile(std::string path);
    ~NewSqliteFile();
    NewSqliteFile(const NewSqliteFile&) = delete;
    NewSqliteFile& operator=(const NewSqliteFile&) = delete;

    const std::string& Path() const { return path; }

    void Keep() { kept = true; }
    /// Gives it another name. Throws DatabaseError as the constructor does, and where it cannot be moved.
    void MoveTo(const std::string& place);
    /// Puts it in the place of a file that nobody has open.
    void Replace(const std::string& place);

private:
    const std::string path;
    bool kept = false;
};

/// That path, or with a number behind it the first that neither a file bears nor one that belongs to a database of it.
std::string FreeSqliteName(const std::string& path);

/// Gives the files that SQLite put beside a database their names beside another one.
void MoveSqliteCompanions(const std::string& database, const std::string& other);

}
