#include <doctest/doctest.h>

#include "store/TextRules.h"

#include <string>
#include <vector>

using namespace rovanta;

TEST_CASE("Texts compare without regard to case and to trailing blanks")
{
    CHECK(CompareText("Bob", "bOB") == 0);
    CHECK(CompareText("Bob  ", "bob") == 0);
    CHECK(CompareText("", "   ") == 0);
    CHECK(CompareText(" bob", "bob") < 0);
    CHECK(CompareText("alice", "Bob") < 0);
    CHECK(CompareText("bob", "bobby") < 0);
    CHECK(CompareText("Zoe", "alice") > 0);
    CHECK(CompareText("a b", "ab") < 0);
    CHECK(CompareText("bob\t", "bob") > 0);
}

TEST_CASE("Accented letters have a case too, and are not the plain letters")
{
    CHECK(CompareText("ÉLOISE", "éloise") == 0);
    CHECK(CompareText("Ångström", "åNGSTRÖM") == 0);
    CHECK(CompareText("ŁÓDŹ", "łódź") == 0);
    CHECK(CompareText("Ÿ", "ÿ") == 0);
    CHECK(CompareText("é", "e") > 0);
    CHECK(CompareText("×", "÷") != 0);
}

TEST_CASE("Bytes that are no UTF-8 all count as one and the same character")
{
    CHECK(CompareText("\xFF\xFE", "\xFF\xFE") == 0);
    CHECK(CompareText("\xC3", "\xC4") == 0);
    CHECK(CompareText("\xC3", "C") != 0);
    CHECK(CompareText("a\xE2\x82", "a\xE2\x82") == 0);
}

TEST_CASE("Signs stand before digits before letters, and an accent behind its plain letter")
{
    const std::vector<const char*> ordered{"",   "a_b",    "a-b",    "a:b",    "a$b", "a1",
                                           "ab", "eloise", "Éloise", "eloisf", "Zoe"};
    for (std::size_t i = 1; i < ordered.size(); ++i) {
        CAPTURE(ordered[i]);
        CHECK(CompareText(ordered[i - 1], ordered[i]) < 0);
        CHECK(CompareText(ordered[i], ordered[i - 1]) > 0);
    }
}

TEST_CASE("An accent of its own belongs to the letter before it")
{
    CHECK(CompareText("E\xCC\x81loise", "éloise") == 0);
    CHECK(CompareText("Elo", "E\xCC\x81lo") < 0);
    // The accent counts less than any letter that differs behind it.
    CHECK(CompareText("E\xCC\x81la", "Elb") < 0);
    CHECK(CompareText("Re", "Re\xCC\x81") < 0);
}

TEST_CASE("LIKE finds runs, single characters and sets")
{
    struct Trial {
        const char* text;
        const char* pattern;
        bool found;
    };
    for (const Trial& trial : {Trial{"Gold Pine", "%PINE%", true},
                               {"Gold Pine", "pine", false},
                               {"Gold Pine", "gold_pine", true},
                               {"Gold Pine", "%", true},
                               {"", "%%", true},
                               {"", "_", false},
                               {"aXbXc", "a%b%c", true},
                               {"aab", "%ab", true},
                               {"abcab", "%ab", true},
                               {"abcabd", "%ab", false},
                               {"Bus 12", "bus [0-9][0-9]", true},
                               {"Bus x2", "bus [0-9][0-9]", false},
                               {"Bus x2", "bus [^0-9]2", true},
                               {"b-d", "b[-x]d", true},
                               {"50% off", "50[%] off", true},
                               {"50 off", "50[%] off", false},
                               {"a]b", "a[]]b", true},
                               {"a", "[a", false},
                               {"né", "n_", true},
                               {"NÉ", "%é", true},
                               {"trail   ", "trail", true},
                               {"trail", "trail ", false}}) {
        CAPTURE(trial.text);
        CAPTURE(trial.pattern);
        CHECK(IsLike(trial.text, trial.pattern) == trial.found);
    }
}

TEST_CASE("LIKE with many runs over a long text soon ends")
{
    CHECK_FALSE(IsLike(std::string(20'000, 'a'), "%a%a%a%a%a%a%a%a%a%a%a%a%b"));
}
