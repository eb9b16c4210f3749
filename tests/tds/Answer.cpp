#include "tests/tds/Answer.h"

#include "store/Conversion.h"
#include "store/Utf16.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace rovanta::tds {

namespace {

// American English, no case, and the code page that goes with it.
constexpr std::string_view collation{"\x09\x04\xD0\x00\x34", 5};
constexpr std::size_t mostBytes = 8000;

enum class Sort { Bit, Whole, Number, Money, Date, CodePageText, WideText };

/// A column as it travels.
struct WireColumn {
    Sort sort;
    /// Bytes: of a number its width, of a text the most that it takes; 0 for a text without such a bound.
    std::size_t size;
};

/// The text in the code page of the collation; nothing where that lacks one of the characters.
std::optional<std::string> InCodePage(const std::string& text)
{
    std::string result;
    for (const char16_t unit : ToUtf16(text)) {
        const bool common = unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF);
        if (!common)
            return std::nullopt;
        result += static_cast<char>(unit);
    }
    return result;
}

TypeKind KindOfColumn(const RowSet& rows, std::size_t column)
{
    const TypeKind declared = rows.shape->Columns()[column].type.kind;
    if (declared != TypeKind::Unknown)
        return declared;
    for (std::size_t row = 0; row < rows.rowCount; ++row)
        if (const Value& value = rows.cells[row * rows.ColumnCount() + column]; !value.IsNull())
            return KindOf(value);
    return TypeKind::Int;
}

WireColumn TextColumn(const RowSet& rows, std::size_t column)
{
    bool codePage = true;
    std::size_t longest = 1;
    for (std::size_t row = 0; row < rows.rowCount; ++row) {
        const std::string text = rows.cells[row * rows.ColumnCount() + column].TextOrEmpty();
        codePage = codePage && InCodePage(text).has_value();
        longest = std::max(longest, ToUtf16(text).size());
    }
    const auto declared = static_cast<std::size_t>(rows.shape->Columns()[column].type.length);
    const bool known = rows.shape->Columns()[column].type.kind == TypeKind::Varchar && declared == 0;
    const std::size_t bytes = std::max(longest, declared) * (codePage ? 1 : 2);
    return {codePage ? Sort::CodePageText : Sort::WideText, known || bytes > mostBytes ? 0 : bytes};
}

WireColumn ColumnOf(const RowSet& rows, std::size_t column)
{
    switch (KindOfColumn(rows, column)) {
    case TypeKind::Bit:
        return {Sort::Bit, 1};
    case TypeKind::Int:
        return {Sort::Whole, 4};
    case TypeKind::BigInt:
        return {Sort::Whole, 8};
    case TypeKind::Money:
        return {Sort::Money, 8};
    case TypeKind::Decimal:
    case TypeKind::Float:
        return {Sort::Number, 8};
    case TypeKind::DateTime:
        return {Sort::Date, 8};
    default:
        return TextColumn(rows, column);
    }
}

unsigned TypeByte(Sort sort)
{
    switch (sort) {
    case Sort::Bit:
        return 0x68;
    case Sort::Whole:
        return 0x26;
    case Sort::Number:
        return 0x6D;
    case Sort::Money:
        return 0x6E;
    case Sort::Date:
        return 0x6F;
    case Sort::CodePageText:
        return 0xA7;
    case Sort::WideText:
        return 0xE7;
    }
    return 0;
}

void DescribeColumn(Bytes& bytes, const WireColumn& column, const SourceColumn& source)
{
    constexpr unsigned nullable = 1;
    bytes.Number(0, 4).Number(nullable, 2).Byte(TypeByte(column.sort));
    if (column.sort == Sort::CodePageText || column.sort == Sort::WideText)
        bytes.Number(column.size == 0 ? 0xFFFF : column.size, 2).Raw(collation);
    else
        bytes.Byte(static_cast<unsigned>(column.size));
    bytes.ShortText(source.name);
}

void WriteText(Bytes& bytes, const WireColumn& column, const Value& value)
{
    constexpr std::uint64_t none = ~std::uint64_t{0};
    if (value.IsNull()) {
        bytes.Number(none, column.size == 0 ? 8 : 2);
        return;
    }
    Bytes text;
    if (column.sort == Sort::WideText)
        text.Wide(value.Text());
    else
        text.Raw(*InCodePage(value.Text()));
    const std::size_t length = text.Get().size();
    if (column.size > 0) {
        bytes.Number(length, 2).Raw(text.Get());
        return;
    }
    // A text without a bound comes in chunks, the last of them empty.
    bytes.Number(length, 8);
    if (length > 0)
        bytes.Number(length, 4).Raw(text.Get());
    bytes.Number(0, 4);
}

void WriteDate(Bytes& bytes, DateTime date)
{
    constexpr int ticksPerSecond = 300;
    const std::int64_t days = date.DayNumber() - DateTime::Of(1900, 1, 1).DayNumber();
    bytes.Number(static_cast<std::uint64_t>(days), 4);
    bytes.Number(static_cast<std::uint64_t>(date.SecondsOfDay()) * ticksPerSecond, 4);
}

double NumberIn(const Value& value)
{
    if (const auto* whole = std::get_if<std::int64_t>(&value.Get()))
        return static_cast<double>(*whole);
    return value.Number();
}

void WriteCell(Bytes& bytes, const WireColumn& column, const Value& value)
{
    if (column.sort == Sort::CodePageText || column.sort == Sort::WideText) {
        WriteText(bytes, column, value);
        return;
    }
    if (value.IsNull()) {
        bytes.Byte(0);
        return;
    }
    bytes.Byte(static_cast<unsigned>(column.size));
    switch (column.sort) {
    case Sort::Bit:
        bytes.Byte(value.Flag() ? 1 : 0);
        break;
    case Sort::Whole:
        bytes.Number(static_cast<std::uint64_t>(std::llround(NumberIn(value))), static_cast<int>(column.size));
        break;
    case Sort::Number:
        bytes.Number(std::bit_cast<std::uint64_t>(NumberIn(value)), 8);
        break;
    case Sort::Money: {
        const auto amount = static_cast<std::uint64_t>(std::llround(NumberIn(value) * 10000));
        bytes.Number(amount >> 32, 4).Number(amount & 0xFFFFFFFFU, 4);
        break;
    }
    default:
        WriteDate(bytes, value.Date());
    }
}

}

void Answer::Rows(const RowSet& rows)
{
    constexpr unsigned columnsToken = 0x81;
    constexpr unsigned rowToken = 0xD1;
    std::vector<WireColumn> columns;
    for (std::size_t i = 0; i < rows.ColumnCount(); ++i)
        columns.push_back(ColumnOf(rows, i));
    bytes.Byte(columnsToken).Number(columns.size(), 2);
    for (std::size_t i = 0; i < columns.size(); ++i)
        DescribeColumn(bytes, columns[i], rows.shape->Columns()[i]);
    for (std::size_t row = 0; row < rows.rowCount; ++row) {
        bytes.Byte(rowToken);
        for (std::size_t i = 0; i < columns.size(); ++i)
            WriteCell(bytes, columns[i], rows.cells[row * columns.size() + i]);
    }
}

void Answer::Done(unsigned status, std::int64_t rowCount)
{
    constexpr unsigned doneToken = 0xFD;
    bytes.Byte(doneToken).Number(status, 2).Number(0, 2).Number(static_cast<std::uint64_t>(rowCount), 8);
}

void Answer::Done(bool more, std::int64_t rowsChanged)
{
    constexpr unsigned moreFollows = 1;
    constexpr unsigned countHolds = 0x10;
    Done((more ? moreFollows : 0U) | (rowsChanged >= 0 ? countHolds : 0U), std::max<std::int64_t>(rowsChanged, 0));
}

void Answer::DoneWithError()
{
    constexpr unsigned failed = 2;
    Done(failed, 0);
}

void Answer::Cancelled()
{
    constexpr unsigned attention = 0x20;
    Done(attention, 0);
}

void Answer::Error(int number, int severity, const std::string& text)
{
    constexpr unsigned errorToken = 0xAA;
    Bytes body;
    body.Number(static_cast<std::uint64_t>(number), 4).Byte(1).Byte(static_cast<unsigned>(severity));
    body.LongText(text).ShortText("loopback").ShortText("").Number(1, 4);
    bytes.Byte(errorToken).Number(body.Get().size(), 2).Raw(body.Get());
}

void Answer::Changed(unsigned what, const std::string& to, const std::string& from)
{
    constexpr unsigned changedToken = 0xE3;
    Bytes body;
    body.Byte(what).ShortText(to).ShortText(from);
    bytes.Byte(changedToken).Number(body.Get().size(), 2).Raw(body.Get());
}

void Answer::SignedIn(const std::string& database)
{
    constexpr unsigned signedInToken = 0xAD;
    constexpr unsigned changedToken = 0xE3;
    constexpr unsigned databaseChange = 1;
    constexpr unsigned packetSizeChange = 4;
    constexpr unsigned collationChange = 7;
    Changed(databaseChange, database, "master");
    bytes.Byte(changedToken).Number(8, 2).Byte(collationChange).Byte(5).Raw(collation).Byte(0);
    Bytes body;
    body.Byte(1)
        .Raw(std::string_view("\x74\x00\x00\x04", 4))
        .ShortText("Loopback")
        .Raw(std::string_view("\x10\0\0\0", 4));
    bytes.Byte(signedInToken).Number(body.Get().size(), 2).Raw(body.Get());
    Changed(packetSizeChange, "4096", "4096");
    Done(false, -1);
}

}
