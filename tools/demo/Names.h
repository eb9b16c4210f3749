#pragma once

#include "tools/demo/Dice.h"
#include "tools/demo/Places.h"

#include <set>
#include <string>

namespace rovanta::demo {

/// Invented names. None bears an apostrophe: most of them go into statements, where it would end the program.
class Names {
public:
    explicit Names(Dice& dice) : dice(dice) {}

    /// An artist, a band or one person, never the same twice.
    std::string Artist();
    /// A person, with first and last name.
    std::string Person();
    /// A firm of one kind: "Marlstone Artist Management".
    std::string Firm(std::string_view kind);
    /// A hall in no town in particular.
    std::string Venue();
    /// "1184 Tanner Mill Road".
    std::string Street();
    /// Ten digits, of the numbers that belong to nobody.
    std::string Phone(const Place& place);
    std::string Zip(const Place& place);
    /// "first.last@firm.example".
    std::string Email(const std::string& person, const std::string& firm);
    /// A tour: "Paper Weather Tour 2025".
    std::string Tour(int year);
    std::string Site(const std::string& firm);

private:
    std::string Band();

    Dice& dice;
    std::set<std::string> artists;
};

}
