#include "frame/PayerOptions.h"

namespace rovanta {

PayerOptions::PayerOptions(Form* form, const std::string& stem, const std::string& caption)
    : contract(form, group, "opt" + stem + "Contract", "Contract"),
      driver(form, group, "opt" + stem + "Driver", "Driver Collect"),
      client(form, group, "opt" + stem + "Client", "Client Resp.")
{
    contract.SetNote(caption);
}

void PayerOptions::Choose(const std::string& word)
{
    if (word == Payer::contract)
        contract = true;
    else if (word == Payer::driver)
        driver = true;
    else
        client = true;
}

const std::string& PayerOptions::Word() const
{
    if (contract.Value())
        return Payer::contract;
    return driver.Value() ? Payer::driver : Payer::client;
}

}
