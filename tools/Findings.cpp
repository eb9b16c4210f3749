#include "tools/Findings.h"

#include "values/Format.h"

#include <cmath>
#include <cstdlib>
#include <map>

namespace rovanta {

namespace {

/// Money in ten-thousandths of a dollar, as the database keeps it, so that sums are exact.
using Units = std::int64_t;

Units UnitsOf(double money)
{
    return std::llround(money * 10'000);
}

std::string Shown(Units units)
{
    return Format(static_cast<double>(units) / 10'000, moneyPicture);
}

std::string Shown(const std::optional<double>& money)
{
    return money ? Shown(UnitsOf(*money)) : "NULL";
}

/// A head without a figure agrees with nothing: what the screens add to it stays NULL for good.
bool Differ(const std::optional<double>& told, Units sum)
{
    constexpr Units halfACent = 50;
    return !told || std::abs(UnitsOf(*told) - sum) >= halfACent;
}

std::map<std::int64_t, Units> SumsByInvoice(const std::vector<InvoiceAmount>& amounts)
{
    std::map<std::int64_t, Units> sums;
    for (const InvoiceAmount& amount : amounts)
        if (amount.invoice)
            sums[*amount.invoice] += UnitsOf(amount.amount);
    return sums;
}

Units SumOf(const std::map<std::int64_t, Units>& sums, std::int64_t invoice)
{
    const auto found = sums.find(invoice);
    return found == sums.end() ? 0 : found->second;
}

}

std::vector<std::string> RowsWithoutOwner(const std::vector<OwnedRow>& rows, const std::set<std::int64_t>& owners)
{
    std::vector<std::string> lines;
    for (const OwnedRow& row : rows)
        if (!row.owner || !owners.contains(*row.owner))
            lines.push_back(row.words);
    return lines;
}

std::vector<std::string> HeadsThatDiffer(const std::vector<InvoiceHead>& heads, const std::vector<InvoiceAmount>& lines)
{
    const auto sums = SumsByInvoice(lines);
    std::vector<std::string> found;
    for (const InvoiceHead& head : heads) {
        const Units sum = SumOf(sums, head.id);
        const Units sumWithTax = sum + UnitsOf(head.tax.value_or(0));
        const std::string invoice = "invoice " + std::to_string(head.id);
        if (Differ(head.subTotal, sum))
            found.push_back(invoice + ": SubTotal is " + Shown(head.subTotal) + ", its lines come to " + Shown(sum));
        if (!head.tax)
            found.push_back(invoice + ": Tax is NULL");
        if (Differ(head.total, sumWithTax))
            found.push_back(invoice + ": InvoiceTotal is " + Shown(head.total) + ", its lines and the tax come to " +
                            Shown(sumWithTax));
    }
    return found;
}

std::vector<std::string> PaidThatDiffers(const std::vector<InvoiceHead>& heads,
                                         const std::vector<InvoiceAmount>& payments)
{
    const auto sums = SumsByInvoice(payments);
    std::vector<std::string> found;
    for (const InvoiceHead& head : heads) {
        const Units sum = SumOf(sums, head.id);
        if (Differ(head.paid, sum))
            found.push_back("invoice " + std::to_string(head.id) + ": Paid is " + Shown(head.paid) +
                            ", its payments come to " + Shown(sum));
    }
    return found;
}

std::vector<std::string> MissingFiles(const std::vector<PromisedFile>& files,
                                      const std::function<bool(const std::string&)>& exists)
{
    std::vector<std::string> lines;
    for (const PromisedFile& file : files)
        if (!exists(file.path))
            lines.push_back(file.words + ": " + file.path);
    return lines;
}

std::string FindingsText(const std::vector<FindingGroup>& groups)
{
    std::string text;
    std::size_t count = 0;
    for (const FindingGroup& group : groups) {
        if (group.lines.empty())
            continue;
        count += group.lines.size();
        text += group.title + ": " + std::to_string(group.lines.size()) + "\n";
        for (const std::string& line : group.lines)
            text += "  " + line + "\n";
    }
    if (count == 0)
        return "Nothing found.\n";
    return text + "Found " + std::to_string(count) + (count == 1 ? " thing." : " things.") + " Nothing was changed.\n";
}

}
