#include <doctest/doctest.h>

#include "store/Conversion.h"
#include "store/DatabaseError.h"

using namespace rovanta;

static Value FromText(const char* text, TypeKind to)
{
    return Convert(Value(text), TypeKind::Varchar, {to});
}

TEST_CASE("Texts convert to numbers with blanks around them, and an empty text is 0")
{
    CHECK(FromText(" 12 ", TypeKind::Int) == Value(12));
    CHECK(FromText("-3", TypeKind::Int) == Value(-3));
    CHECK(FromText("+3", TypeKind::Int) == Value(3));
    CHECK(FromText("", TypeKind::Int) == Value(0));
    CHECK(FromText("  ", TypeKind::Float) == Value(0.0));
    CHECK(FromText("1e3", TypeKind::Float) == Value(1000.0));
    CHECK(FromText("$1,234.56789", TypeKind::Money) == Value(1234.5679));
    CHECK(FromText("-$5", TypeKind::Money) == Value(-5.0));
    CHECK(FromText("5000000000", TypeKind::BigInt) == Value(std::int64_t{5'000'000'000}));
}

TEST_CASE("Texts that are no number of the type do not convert")
{
    for (const char* text : {"abc", "12.5", "1 2", "+-3", "12a", "$5"})
        CHECK_THROWS_AS(FromText(text, TypeKind::Int), DatabaseError);
    for (const char* text : {"abc", "1,234", "$5", "inf", "nan", "0x10", "1e999", "--1"})
        CHECK_THROWS_WITH_AS(FromText(text, TypeKind::Float), "Error converting data type varchar to float.",
                             DatabaseError);
    CHECK_THROWS_AS(FromText("5000000000", TypeKind::Int), DatabaseError);
    CHECK_THROWS_AS(FromText("", TypeKind::Decimal), DatabaseError);
    CHECK_THROWS_WITH_AS(FromText("five", TypeKind::Money),
                         "Cannot convert a char value to money. The char value has incorrect syntax.", DatabaseError);
}

TEST_CASE("Any number but 0 is a true bit, and the two words are")
{
    CHECK(FromText("TRUE", TypeKind::Bit) == Value(true));
    CHECK(FromText("false", TypeKind::Bit) == Value(false));
    CHECK(FromText("", TypeKind::Bit) == Value(false));
    CHECK(FromText("-1", TypeKind::Bit) == Value(true));
    CHECK(Convert(Value(0.25), TypeKind::Float, {TypeKind::Bit}) == Value(true));
    CHECK_THROWS_AS(FromText("yes", TypeKind::Bit), DatabaseError);
}

TEST_CASE("A fraction is cut off, but of money rounded")
{
    CHECK(Convert(Value(2.9), TypeKind::Float, {TypeKind::Int}) == Value(2));
    CHECK(Convert(Value(-2.9), TypeKind::Decimal, {TypeKind::Int}) == Value(-2));
    CHECK(Convert(Value(2.5), TypeKind::Money, {TypeKind::Int}) == Value(3));
    CHECK_THROWS_AS(Convert(Value(1e12), TypeKind::Float, {TypeKind::Int}), DatabaseError);
    CHECK_THROWS_AS(Convert(Value(1e30), TypeKind::Float, {TypeKind::BigInt}), DatabaseError);
}

TEST_CASE("Money keeps four decimals")
{
    CHECK(RoundMoney(0.1 + 0.2) == 0.3);
    CHECK(RoundMoney(1.00005) == 1.0001);
    CHECK(RoundMoney(-1.00005) == -1.0001);
    CHECK(RoundMoney(922337203685000) == 922337203685000);
    CHECK_THROWS_AS(RoundMoney(922337203685478), DatabaseError);
    CHECK_THROWS_AS(RoundMoney(-1e300), DatabaseError);
}

TEST_CASE("Texts convert to dates, and an empty one to the first day of 1900")
{
    CHECK(FromText("3/2/2026", TypeKind::DateTime) == Value(DateTime::Of(2026, 3, 2)));
    CHECK(FromText("03/02/2026 3:04:05 PM", TypeKind::DateTime) == Value(DateTime::Of(2026, 3, 2, 15, 4, 5)));
    CHECK(FromText("2026-03-02 15:04:05", TypeKind::DateTime) == Value(DateTime::Of(2026, 3, 2, 15, 4, 5)));
    CHECK(FromText(" ", TypeKind::DateTime) == Value(DateTime::Of(1900, 1, 1)));
    CHECK(Convert(Value(2.5), TypeKind::Float, {TypeKind::DateTime}) == Value(DateTime::Of(1900, 1, 3, 12)));
    for (const char* text : {"2/30/2026", "13/1/2026", "soon", "1/1/1700", "3/2/2026 25:00"})
        CHECK_THROWS_WITH_AS(FromText(text, TypeKind::DateTime),
                             "Conversion failed when converting date and/or time from character string.",
                             DatabaseError);
    CHECK_THROWS_AS(Convert(Value(1e9), TypeKind::Float, {TypeKind::DateTime}), DatabaseError);
    CHECK_THROWS_AS(Convert(Value(DateTime()), TypeKind::DateTime, {TypeKind::Float}), DatabaseError);
}

TEST_CASE("Values convert to texts as the database writes them")
{
    const auto text = [](const Value& value, TypeKind from, int length = 0) {
        return Convert(value, from, {TypeKind::Varchar, length}).Text();
    };
    CHECK(text(Value(12), TypeKind::Int) == "12");
    CHECK(text(Value(1234567), TypeKind::Int, 6) == "*");
    CHECK(text(Value(1234.5), TypeKind::Money) == "1234.50");
    CHECK(text(Value(0.25), TypeKind::Float) == "0.25");
    CHECK(text(Value(true), TypeKind::Bit) == "1");
    CHECK(text(Value(DateTime::Of(2026, 3, 2, 0, 5)), TypeKind::DateTime) == "Mar  2 2026 12:05AM");
    CHECK(text(Value("Éloise"), TypeKind::Varchar, 3) == "Élo");
    CHECK(Convert(Value(), TypeKind::Int, {TypeKind::Varchar}).IsNull());
}

TEST_CASE("A text fits its column by characters, blanks at the end aside")
{
    CHECK(FittedText("abc", 3, "x") == "abc");
    CHECK(FittedText("ééé", 3, "x") == "ééé");
    CHECK(FittedText("abc   ", 3, "x") == "abc");
    CHECK(FittedText("anything", 0, "x") == "anything");
    CHECK_THROWS_WITH_AS(FittedText("abcd", 3, ColumnPlace("Tour", "TourName")),
                         "String or binary data would be truncated in table 'Tour', column 'TourName'.", DatabaseError);
    CHECK_THROWS_AS(FittedText("abc  d", 3, "x"), DatabaseError);
}

TEST_CASE("A declaration of a type is read as it is written")
{
    for (const char* declaration :
         {"varchar(100)", "varchar(max)", "bit", "int", "bigint", "money", "float", "datetime"})
        CHECK(TypeDeclaration(ReadTypeDeclaration(declaration).value()) == declaration);
    CHECK(ReadTypeDeclaration("INTEGER")->kind == TypeKind::Int);
    CHECK_FALSE(ReadTypeDeclaration("timestamp").has_value());
    CHECK_FALSE(ReadTypeDeclaration("").has_value());
}
