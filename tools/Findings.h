#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace rovanta {

/// Things of one kind that are wrong with an office, one a line, with keys and figures.
struct FindingGroup {
    std::string title;
    std::vector<std::string> lines;
};

/// A row that belongs to another one by its number.
struct OwnedRow {
    std::optional<std::int64_t> owner;
    std::string words; ///< what a person finds it by
};

/// An invoice as its head tells it, in dollars; nothing where the column is NULL.
struct InvoiceHead {
    std::int64_t id = 0;
    std::optional<double> subTotal;
    std::optional<double> tax;
    std::optional<double> total;
    std::optional<double> paid;
};

/// What a line or a payment adds to an invoice, in dollars.
struct InvoiceAmount {
    std::optional<std::int64_t> invoice;
    double amount = 0;
};

/// A file that a row of the database promises.
struct PromisedFile {
    std::string words;
    std::string path;
};

/// The rows whose owner is missing or is not named.
std::vector<std::string> RowsWithoutOwner(const std::vector<OwnedRow>& rows, const std::set<std::int64_t>& owners);

/// The heads whose `SubTotal` is another than the sum of the lines, or whose `InvoiceTotal` is another than that sum
/// and the tax: by half a cent or more. A NULL is another one than any sum, and so is a NULL tax.
std::vector<std::string> HeadsThatDiffer(const std::vector<InvoiceHead>& heads,
                                         const std::vector<InvoiceAmount>& lines);

/// The heads whose `Paid` is another than the sum of their payments, by half a cent or more, or NULL.
std::vector<std::string> PaidThatDiffers(const std::vector<InvoiceHead>& heads,
                                         const std::vector<InvoiceAmount>& payments);

/// The files that are not there.
std::vector<std::string> MissingFiles(const std::vector<PromisedFile>& files,
                                      const std::function<bool(const std::string&)>& exists);

/// The findings as the tool prints them: a head a group, a line a finding, and how many there are.
std::string FindingsText(const std::vector<FindingGroup>& groups);

}
