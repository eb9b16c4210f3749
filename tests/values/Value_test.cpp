#include <doctest/doctest.h>

#include "values/Errors.h"
#include "values/Value.h"

using namespace rovanta;

TEST_CASE("NULL is refused where a text, a number, a flag or a date is needed")
{
    const Value null;
    CHECK(null.IsNull());
    CHECK(null == Value(Null{}));
    CHECK_FALSE(null == Value(""));
    CHECK_FALSE(null == Value(0));
    CHECK(null.TextOrEmpty().empty());
    CHECK_THROWS_WITH_AS(null.Text(), "Invalid use of Null", RunTimeError);
    CHECK_THROWS_WITH_AS(null.Number(), "Invalid use of Null", RunTimeError);
    CHECK_THROWS_WITH_AS(null.Flag(), "Invalid use of Null", RunTimeError);
    CHECK_THROWS_WITH_AS(null.Date(), "Invalid use of Null", RunTimeError);
}

TEST_CASE("Each kind of value as text")
{
    CHECK(Value("abc").Text() == "abc");
    CHECK(Value("").Text().empty());
    CHECK(Value(12).Text() == "12");
    CHECK(Value(1400.5).Text() == "1400.5");
    CHECK(Value(1400.0).Text() == "1400");
    CHECK(Value(true).Text() == "True");
    CHECK(Value(false).TextOrEmpty() == "False");
    CHECK(Value(DateTime::Of(2026, 1, 5, 15, 4, 5)).Text() == "1/5/2026 3:04:05 PM");
    CHECK(Value(DateTime::Of(2026, 1, 5)).TextOrEmpty() == "1/5/2026");
}

TEST_CASE("Each kind of value as a number")
{
    CHECK(Value(12).Number() == 12);
    CHECK(Value(12.5).Number() == 12.5);
    CHECK(Value("1,234.5").Number() == 1234.5);
    CHECK(Value(true).Number() == -1);
    CHECK(Value(false).Number() == 0);
    CHECK_THROWS_WITH_AS(Value("abc").Number(), "Type mismatch: 'abc'", RunTimeError);
    CHECK_THROWS_AS(Value("").Number(), RunTimeError);
    CHECK_THROWS_AS(Value(DateTime::Of(2026, 1, 5)).Number(), RunTimeError);
}

TEST_CASE("Each kind of value as a flag")
{
    CHECK(Value(true).Flag());
    CHECK_FALSE(Value(false).Flag());
    CHECK(Value(1).Flag());
    CHECK(Value(-1).Flag());
    CHECK_FALSE(Value(0).Flag());
    CHECK(Value(0.5).Flag());
    CHECK_FALSE(Value(0.0).Flag());
    CHECK(Value("true").Flag());
    CHECK_FALSE(Value("FALSE").Flag());
    CHECK(Value("1").Flag());
    CHECK_FALSE(Value("0").Flag());
    CHECK_THROWS_AS(Value("yes").Flag(), RunTimeError);
    CHECK_THROWS_AS(Value(DateTime::Of(2026, 1, 5)).Flag(), RunTimeError);
}

TEST_CASE("Each kind of value as a date")
{
    CHECK(Value(DateTime::Of(2026, 1, 5)).Date() == DateTime::Of(2026, 1, 5));
    CHECK(Value("1/5/2026").Date() == DateTime::Of(2026, 1, 5));
    CHECK_THROWS_WITH_AS(Value("").Date(), "Type mismatch", RunTimeError);
    CHECK_THROWS_AS(Value("2/30/2026").Date(), RunTimeError);
    CHECK_THROWS_AS(Value(12).Date(), RunTimeError);
    CHECK_THROWS_AS(Value(12.5).Date(), RunTimeError);
    CHECK_THROWS_AS(Value(true).Date(), RunTimeError);
}

TEST_CASE("A value knows its kind")
{
    CHECK(Value("x").IsText());
    CHECK(Value(std::string_view("x")).IsText());
    CHECK(Value(DateTime()).IsDate());
    CHECK_FALSE(Value(1).IsText());
    CHECK_FALSE(Value(1) == Value(1.0));
    CHECK(std::holds_alternative<bool>(Value(true).Get()));
    CHECK(std::holds_alternative<std::int64_t>(Value(7).Get()));
}

TEST_CASE("A failure names its place where there is one")
{
    CHECK(std::string(InvalidUseOfNull("KeyPressDelay").what()) == "Invalid use of Null: KeyPressDelay");
    CHECK(std::string(InvalidUseOfNull().what()) == "Invalid use of Null");
    CHECK(std::string(DivisionByZero().what()) == "Division by zero");
}
