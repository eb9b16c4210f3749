#pragma once

#include "frame/Configuration.h"
#include "store/Connection.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace rovanta {

/// An office that is to be made.
struct OfficePlan {
    /// Where `config.txt` goes; made when it is not there.
    std::filesystem::path folder;
    /// The connection text for `config.txt`; empty for a database file in the folder.
    std::string connection;
    /// Name and password of the first user, of type "Admin".
    std::string user;
    std::string password;
    /// The date that the user is entered under; the machine's clock when there is none.
    std::optional<DateTime> today;
    /// What an office gets beyond the empty one: rows through the connection, within its transaction, and files in the
    /// folders of the configuration. When it throws, nothing stays.
    std::function<void(Connection&, const Configuration&)> furnish;
};

/// Makes an office: `config.txt`, the database with schema and look-up rows, one user, and the folders that
/// `config.txt` names. Paths in it are relative, so that the folder can be moved. Where it holds the password of a
/// server, only its owner and its group may read it. Throws RunTimeError naming what is in
/// the way where an office or its database exists already, where the user could not sign in, and where something cannot
/// be written; nothing half-made stays behind.
void CreateOffice(const OfficePlan& plan);

/// The statements that fill the look-up tables of a new database.
std::string_view LookupScript();

}
