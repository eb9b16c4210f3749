#define DOCTEST_CONFIG_IMPLEMENT_WITH_MAIN
#include "tests/support/Tally.h"

#include <doctest/doctest.h>

#include <map>
#include <string>

namespace {

/// Tells at the end how many cases of each file passed.
class FileTally : public doctest::IReporter {
public:
    explicit FileTally(const doctest::ContextOptions&) {}

    void test_case_start(const doctest::TestCaseData& started) override
    {
        const std::string path = started.m_file.c_str();
        file = path.substr(path.rfind('/') + 1);
    }
    void test_case_end(const doctest::CurrentTestCaseStats& ended) override
    {
        ++cases[file].run;
        cases[file].passed += ended.failure_flags == 0 ? 1 : 0;
    }
    void test_run_end(const doctest::TestRunStats&) override
    {
        for (const auto& [name, counted] : cases)
            rovanta::TellTally(name, counted.passed, counted.run);
    }

    void report_query(const doctest::QueryData&) override {}
    void test_run_start() override {}
    void test_case_reenter(const doctest::TestCaseData&) override {}
    void test_case_exception(const doctest::TestCaseException&) override {}
    void subcase_start(const doctest::SubcaseSignature&) override {}
    void subcase_end() override {}
    void log_assert(const doctest::AssertData&) override {}
    void log_message(const doctest::MessageData&) override {}
    void test_case_skipped(const doctest::TestCaseData&) override {}

private:
    struct Count {
        std::size_t run = 0;
        std::size_t passed = 0;
    };
    std::string file;
    std::map<std::string, Count> cases;
};

}

REGISTER_LISTENER("tally", 0, FileTally);
