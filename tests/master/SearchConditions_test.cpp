#include "master/SearchConditions.h"

#include "store/DatabaseError.h"

#include <doctest/doctest.h>

using namespace rovanta;

TEST_CASE("A search without a filled field has no condition")
{
    SearchConditions conditions;
    conditions.AddLike(" Tour.TourName", "");
    conditions.AddLikeAny({"Customer.Name", "Customer.Name3"}, "");
    CHECK(conditions.Get().Get().empty());
}

TEST_CASE("The first condition is joined with WHERE and each further one with AND")
{
    SearchConditions conditions;
    conditions.Add(Statement{" Tour.CustomerID = "} + Key("7"));
    conditions.AddLike(" Tour.TourName", "Fall");
    conditions.AddLike(" Customer.Notes", "vip");
    CHECK(conditions.Get().Get() ==
          " WHERE  Tour.CustomerID = 7 AND  Tour.TourName LIKE '%Fall%' AND  Customer.Notes LIKE '%vip%'");
}

TEST_CASE("A condition over several columns is a bracketed choice")
{
    SearchConditions conditions;
    conditions.AddLikeAny({"Customer.Name", "Customer.Name3", "Customer.Name4"}, "Blue");
    CHECK(conditions.Get().Get() == " WHERE  (Customer.Name LIKE '%Blue%' OR Customer.Name3 LIKE '%Blue%' OR "
                                    "Customer.Name4 LIKE '%Blue%')");
}

TEST_CASE("An apostrophe in a searched text is a syntax error of the database")
{
    SearchConditions conditions;
    CHECK_THROWS_AS(conditions.AddLike(" Tour.TourName", "O'Hara"), DatabaseError);
    CHECK_THROWS_AS(conditions.AddLikeAny({"Customer.Name"}, "x' OR 'a'='a"), DatabaseError);
    CHECK(conditions.Get().Get().empty());
}
