#include "tools/demo/Names.h"

#include "values/Text.h"

#include <array>

namespace rovanta::demo {

namespace {

constexpr std::array firstNames = {
    "Adele",    "Amara",   "Anton",  "Arlo",    "Bea",     "Bram",   "Calla",    "Cass",    "Cedric", "Corin",
    "Dahlia",   "Darnell", "Delia",  "Desmond", "Edie",    "Eamon",  "Estela",   "Farrah",  "Felix",  "Gideon",
    "Greta",    "Hanna",   "Hollis", "Imani",   "Ines",    "Ivor",   "Jarek",    "Joss",    "Juno",   "Kellan",
    "Keziah",   "Lars",    "Leona",  "Linus",   "Lucinda", "Mabel",  "Magnus",   "Marisol", "Milo",   "Nadine",
    "Nestor",   "Odette",  "Omar",   "Oswin",   "Paloma",  "Piers",  "Quentin",  "Ramona",  "Reese",  "Roscoe",
    "Rosalind", "Selma",   "Silas",  "Sunniva", "Tadeo",   "Tamsin", "Thaddeus", "Ursula",  "Vance",  "Viola",
    "Wendell",  "Willa",   "Xenia",  "Yusuf",   "Zelda",
};

constexpr std::array lastNames = {
    "Abberley",   "Ashgrove",  "Barrowell",   "Bellamonte", "Brackley",  "Calloren",   "Castellow", "Cranmoor",
    "Dacreman",   "Dellaport", "Drummow",     "Ellingford", "Emberley",  "Fairlong",   "Farrowick", "Fenwater",
    "Garrowby",   "Gildersea", "Halvestone",  "Harkwell",   "Hollowane", "Ibarrola",   "Jesperley", "Kestermann",
    "Kilbarrow",  "Lanzetta",  "Larkmead",    "Lindqvall",  "Mallowes",  "Marrowby",   "Merriton",  "Montaldo",
    "Nakashiro",  "Netherby",  "Okonjide",    "Osterhall",  "Paxmoor",   "Pellington", "Quarrey",   "Ravenscar",
    "Redmayne",   "Rosendahl", "Sallowfield", "Santolaya",  "Silverdew", "Stanbrook",  "Tarrowick", "Thistleton",
    "Tremblay",   "Underhay",  "Valderosa",   "Vasquine",   "Wardlaw",   "Wexcombe",   "Whitlorne", "Wolstane",
    "Yarrowdale", "Zeller",
};

constexpr std::array bandRoots = {
    "Ambercrest",  "Ashwillow",   "Bellhaven",  "Blackmere",    "Brackwater",  "Brindlewood", "Cinderfield",
    "Copperhythe", "Coldharrow",  "Dovetarn",   "Driftmark",    "Emberlow",    "Fernhollow",  "Foxglade",
    "Galehaven",   "Glasswarren", "Gravelmoor", "Halewind",     "Hazelbrink",  "Hesperly",    "Inkmarsh",
    "Ironquill",   "Juniperton",  "Kindlewick", "Lanternhythe", "Larksend",    "Marlstone",   "Mistlethwaite",
    "Moonquarry",  "Nettlebank",  "Oakenvale",  "Palewater",    "Pinecastor",  "Quillmere",   "Ravenstow",
    "Rookhurst",   "Saltmarrow",  "Sedgewater", "Sparrowgate",  "Stillharbor", "Tamberline",  "Thornaby",
    "Tidewarren",  "Umberglen",   "Velvetarn",  "Wickersham",   "Windlefar",   "Wrenhollow",
};

constexpr std::array bandKinds = {"Parade",  "Union",    "Choir",     "Company", "Assembly", "Brothers", "Sisters",
                                  "Theory",  "Carousel", "Telegraph", "Orchard", "Radio",    "Weather",  "Society",
                                  "Holiday", "Ensemble", "Signal",    "Revival", "Motel",    "Almanac"};

constexpr std::array tourAdjectives = {"Paper",   "Golden",   "Midnight", "Long Road", "Open Sky", "Wild Honey",
                                       "Slow",    "Electric", "Second",   "Bright",    "Borrowed", "Hometown",
                                       "Distant", "Northern", "Silver",   "Last Train"};
constexpr std::array tourNouns = {"Weather", "Letters", "Summer", "Hearts", "Nights",  "Horizons", "Postcards",
                                  "Thunder", "Rivers",  "Lights", "Winter", "Stories", "Roads",    "Echoes"};
constexpr std::array tourKinds = {"Tour", "Tour", "Tour", "Theatre Run", "Festival Run", "Arena Tour", "Club Dates"};

constexpr std::array venueKinds = {"Theatre",    "Ballroom", "Arena",       "Amphitheater",
                                   "Music Hall", "Pavilion", "Opera House", "Fairgrounds"};
constexpr std::array streetRoots = {"Tanner Mill", "Cedar Ridge", "Old Depot", "Harding", "Millbrook", "Granite",
                                    "Fourth",      "Commerce",    "Lakeshore", "Hickory", "Foundry",   "Prospect",
                                    "Mercer",      "Franklin",    "Sycamore",  "Juniper", "Quarry",    "Elmwood"};
constexpr std::array streetKinds = {"Road", "Street", "Avenue", "Lane", "Boulevard", "Drive"};

/// The pieces behind one another. A list in braces is worked out from left to right on every compiler, a sum is not.
std::string Joined(std::initializer_list<std::string_view> pieces)
{
    std::string text;
    for (const std::string_view piece : pieces)
        text += piece;
    return text;
}

std::string AddressWord(const std::string& name)
{
    std::string word;
    for (const char letter : LowerCase(name))
        if ((letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9'))
            word += letter;
    return word;
}

}

std::string Names::Band()
{
    const std::string root = dice.Pick(bandRoots);
    switch (dice.Weighted({55, 20, 25})) {
    case 0:
        return root + " " + dice.Pick(bandKinds);
    case 1:
        return root;
    default:
        return "The " + root + " " + dice.Pick(bandKinds);
    }
}

std::string Names::Artist()
{
    constexpr int tries = 20;
    for (int i = 0;; ++i) {
        std::string name = dice.Chance(60) ? Band() : Person();
        // A large demo uses the words up; then the artists are numbered.
        if (i >= tries)
            name += " " + std::to_string(artists.size());
        if (artists.insert(name).second)
            return name;
    }
}

std::string Names::Person()
{
    return Joined({dice.Pick(firstNames), " ", dice.Pick(lastNames)});
}

std::string Names::Firm(std::string_view kind)
{
    return Joined({dice.Chance(50) ? dice.Pick(bandRoots) : dice.Pick(lastNames), " ", kind});
}

std::string Names::Venue()
{
    return Joined({dice.Pick(bandRoots), " ", dice.Pick(venueKinds)});
}

std::string Names::Street()
{
    return Joined({std::to_string(dice.Between(11, 4890)), " ", dice.Pick(streetRoots), " ", dice.Pick(streetKinds)});
}

std::string Names::Phone(const Place& place)
{
    return std::string(place.areaCode) + "55501" + std::to_string(dice.Between(10, 99));
}

std::string Names::Zip(const Place& place)
{
    if (place.zip.front() > '9')
        return Joined({place.zip, " ", std::to_string(dice.Between(1, 9)), "K", std::to_string(dice.Between(1, 9))});
    return std::string(place.zip) + std::to_string(dice.Between(10, 99));
}

std::string Names::Email(const std::string& person, const std::string& firm)
{
    return Replace(LowerCase(person), " ", ".") + "@" + AddressWord(firm) + ".example";
}

std::string Names::Tour(int year)
{
    return Joined(
        {dice.Pick(tourAdjectives), " ", dice.Pick(tourNouns), " ", dice.Pick(tourKinds), " ", std::to_string(year)});
}

std::string Names::Site(const std::string& firm)
{
    return "www." + AddressWord(firm) + ".example";
}

}
