#include <doctest/doctest.h>

#include "store/RecentlyUsed.h"

using namespace rovanta;

TEST_CASE("What was used last is kept, and what goes is the one not used longest")
{
    RecentlyUsed<int> kept(2);
    CHECK_FALSE(kept.Add("one", 1));
    CHECK_FALSE(kept.Add("two", 2));
    REQUIRE(kept.Find("one") != nullptr);
    CHECK(kept.Add("three", 3) == 2);
    CHECK(kept.Find("two") == nullptr);
    CHECK(*kept.Find("one") == 1);
    CHECK(*kept.Find("three") == 3);
}

TEST_CASE("What is removed makes room and may come again")
{
    RecentlyUsed<int> kept(1);
    kept.Add("one", 1);
    kept.Remove("one");
    kept.Remove("never there");
    CHECK(kept.Find("one") == nullptr);
    CHECK_FALSE(kept.Add("one", 10));
    CHECK(*kept.Find("one") == 10);
}

TEST_CASE("A content stays where it is while others come and go")
{
    RecentlyUsed<int> kept(2);
    kept.Add("one", 1);
    const int* place = kept.Find("one");
    kept.Add("two", 2);
    kept.Remove("two");
    kept.Add("three", 3);
    CHECK(kept.Find("one") == place);
}
