#include "tools/demo/Customers.h"

#include "tools/demo/Names.h"

namespace rovanta::demo {

namespace {

constexpr std::array blockFirms = {"Business Management", "Artist Management", "Touring", "Production Services"};
/// How many customers of a hundred have each block.
constexpr std::array blockShares = {60, 50, 65, 35};
/// The columns of the four blocks bear the numbers 3 to 6.
constexpr std::array<std::array<const char*, 11>, 4> blockColumns = {{
    {"Name3", "Contact3", "Address3", "City3", "State3", "Zip3", "Phone3", "Cell3", "Fax3", "Email3", "Website3"},
    {"Name4", "Contact4", "Address4", "City4", "State4", "Zip4", "Phone4", "Cell4", "Fax4", "Email4", "Website4"},
    {"Name5", "Contact5", "Address5", "City5", "State5", "Zip5", "Phone5", "Cell5", "Fax5", "Email5", "Website5"},
    {"Name6", "Contact6", "Address6", "City6", "State6", "Zip6", "Phone6", "Cell6", "Fax6", "Email6", "Website6"},
}};

ContactBlock MakeBlock(const char* kind, Dice& dice, Names& names)
{
    const Place& place = dice.Pick(AllPlaces());
    ContactBlock block;
    block.firm = names.Firm(kind);
    block.contact = names.Person();
    block.street = names.Street();
    block.city = place.city;
    block.state = place.state;
    block.zip = names.Zip(place);
    block.phone = names.Phone(place);
    block.cell = names.Phone(place);
    block.email = names.Email(block.contact, block.firm);
    block.site = names.Site(block.firm);
    return block;
}

Customer MakeCustomer(int id, Dice& dice, Names& names)
{
    const Place& place = dice.Pick(AllPlaces());
    Customer customer;
    customer.id = id;
    customer.name = names.Artist();
    customer.street = names.Street();
    customer.city = place.city;
    customer.state = place.state;
    customer.zip = names.Zip(place);
    customer.contact1 = names.Person();
    customer.phone1 = names.Phone(place);
    customer.email1 = names.Email(customer.contact1, customer.name);
    if (dice.Chance(55)) {
        customer.contact2 = names.Person();
        customer.phone2 = names.Phone(place);
        customer.email2 = names.Email(customer.contact2, customer.name);
    }
    for (std::size_t i = 0; i < customer.blocks.size(); ++i)
        if (dice.Chance(blockShares[i]))
            customer.blocks[i] = MakeBlock(blockFirms[i], dice, names);
    customer.coaches = 1 + static_cast<int>(dice.Weighted({60, 25, 10, 5}));
    return customer;
}

Row CustomerRow(const Customer& customer, const Plan& plan, Dice& dice, Names& names)
{
    const char* form = dice.Chance(60) ? " Touring, LLC" : " Road Company, Inc.";
    Row row = {{"Name", customer.name},
               {"LegalName", customer.name + form},
               {"Address1", customer.street},
               {"Address2", dice.Chance(25) ? "Suite " + std::to_string(dice.Between(100, 950)) : ""},
               {"City", customer.city},
               {"State", customer.state},
               {"Zip", customer.zip},
               {"Website", names.Site(customer.name)},
               {"Contact1", customer.contact1},
               {"Phone1", customer.phone1},
               {"Fax1", ""},
               {"Email1", customer.email1},
               {"Email1a", ""},
               {"Contact2", customer.contact2},
               {"Phone2", customer.phone2},
               {"Fax2", ""},
               {"Email2", customer.email2},
               {"Email2a", ""},
               {"DOT", dice.Chance(20) ? std::to_string(dice.Between(1000000, 3999999)) : ""},
               {"Notes", dice.Chance(20) ? "Pays by wire; the tour manager's word is final on bunks." : ""},
               {"Inactive", customer.id % 25 == 0}};
    for (std::size_t i = 0; i < customer.blocks.size(); ++i) {
        const ContactBlock& block = customer.blocks[i];
        const std::array<std::string, 11> values = {block.firm,  block.contact, block.street, block.city,
                                                    block.state, block.zip,     block.phone,  block.cell,
                                                    "",          block.email,   block.site};
        for (std::size_t column = 0; column < values.size(); ++column)
            row.emplace_back(blockColumns[i][column], values[column]);
    }
    row.emplace_back("DateEntered", AddDays(plan.FirstDay(), -dice.Between(0, 700)));
    row.emplace_back("EnteredBy", "office");
    return row;
}

}

Customers MakeCustomers(const Plan& plan)
{
    Customers customers;
    Dice dice(plan.seed, "customers");
    Names names(dice);
    for (int id = 1; id <= plan.Customers(); ++id) {
        Customer customer = MakeCustomer(id, dice, names);
        customers.rows.rows.push_back(CustomerRow(customer, plan, dice, names));
        customers.all.push_back(std::move(customer));
    }
    return customers;
}

}
