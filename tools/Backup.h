#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace rovanta {

/// Saves the database file of the office in `folder` to the new file `backup`, while desks may be working in it, and
/// proves the backup sound. Gives its size in bytes. Throws RunTimeError when `backup` is there already, when the
/// database is damaged, and for an office on a server, with the server's own command; nothing half-made stays.
std::uintmax_t BackUpOffice(const std::filesystem::path& folder, const std::string& backup);

/// Puts a backup in the place of the office's database file. Gives the file under which the replaced one is kept; an
/// empty text when there was none. Throws RunTimeError when the backup is no sound office, when a desk has the office
/// open, and for an office on a server, with the server's own command; the office then stands as before.
std::string RestoreOffice(const std::filesystem::path& folder, const std::string& backup);

/// How the server's own tool saves the database that a connection text names; no password in it.
std::string ServerBackupAdvice(const std::string& connectionText, const std::string& file);
/// How it puts that file back.
std::string ServerRestoreAdvice(const std::string& connectionText, const std::string& file);

}
