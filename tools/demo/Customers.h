#pragma once

#include "tools/demo/Plan.h"
#include "tools/demo/Rows.h"

#include <array>
#include <string>
#include <vector>

namespace rovanta::demo {

/// One of the four blocks of a customer's people: business, personal, tour and production manager.
struct ContactBlock {
    std::string firm;
    std::string contact;
    std::string street;
    std::string city;
    std::string state;
    std::string zip;
    std::string phone;
    std::string cell;
    std::string email;
    std::string site;
};

/// What a booking takes over from its customer.
struct Customer {
    int id = 0;
    std::string name;
    std::string street;
    std::string city;
    std::string state;
    std::string zip;
    std::string contact1;
    std::string phone1;
    std::string email1;
    std::string contact2;
    std::string phone2;
    std::string email2;
    std::array<ContactBlock, 4> blocks;
    /// How many coaches the act travels in when it is at its largest.
    int coaches = 1;
};

struct Customers {
    std::vector<Customer> all;
    TableRows rows{"Customer", {}};
};

Customers MakeCustomers(const Plan& plan);

}
