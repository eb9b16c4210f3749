#pragma once

#include "forms/ChoiceControls.h"

#include <string>

namespace rovanta {

/// The words for who pays a charge.
namespace Payer {
inline const std::string contract = "Contract";
inline const std::string driver = "Driver Collect";
inline const std::string client = "Client Resp";
}

/// The three option buttons of one charge: `opt<Stem>Contract`, `opt<Stem>Driver`, `opt<Stem>Client`.
class PayerOptions {
public:
    PayerOptions(Form* form, const std::string& stem, const std::string& caption = {});

    /// Turns on the button of a payer word; any other word than the first two chooses the client.
    void Choose(const std::string& word);
    /// The word of the button that is on; the client's when none is.
    const std::string& Word() const;

    OptionGroup group;
    OptionButton contract;
    OptionButton driver;
    OptionButton client;
};

}
