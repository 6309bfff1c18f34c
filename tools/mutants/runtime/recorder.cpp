// SPDX-License-Identifier: MIT
// Stands among the unit tests while they run with broken code: makes every scenario a test, and
// writes down which breaks each test reaches.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "tools/mutants/runtime/mutants_runtime.h"
#include "tools/simulator/scenario_run.h"

namespace {

using taviro::simulator::Outcome;
using taviro::simulator::RunScenarioFile;

class ScenarioTest : public ::testing::Test {
  public:
    explicit ScenarioTest(std::filesystem::path Path) : m_Path(std::move(Path)) {}
    void TestBody() override {
        std::string strPrinted;
        const auto nOutcome = RunScenarioFile(m_Path, {.bQuiet = true, .bMustExpect = true},
                                              [&](std::string_view str) { strPrinted += str; });
        EXPECT_EQ(nOutcome, Outcome::Passed) << strPrinted;
    }

  private:
    std::filesystem::path m_Path;
};

class Recorder : public ::testing::EmptyTestEventListener {
  public:
    explicit Recorder(const char* szPath) : m_pFile(std::fopen(szPath, "w")) {}

    void OnTestProgramStart(const ::testing::UnitTest& /*Program*/) override {
        Write("-", 0, Take());  // the static initialisers'
    }
    void OnTestSuiteStart(const ::testing::TestSuite& /*Suite*/) override {
        m_OfSuite.clear();
        m_bSuiteStarts = true;
    }
    void OnTestStart(const ::testing::TestInfo& /*Test*/) override {
        const auto Before = Take();
        if (m_bSuiteStarts) m_OfSuite = Before;
        m_bSuiteStarts = false;
        m_nStarted = std::clock();
    }
    void OnTestEnd(const ::testing::TestInfo& Test) override {
        const auto nMilliseconds = (std::clock() - m_nStarted) / (CLOCKS_PER_SEC / 1000);
        auto Numbers = Take();
        Numbers.insert(m_OfSuite.begin(), m_OfSuite.end());
        const std::string strName = std::string(Test.test_suite_name()) + "." + Test.name();
        Write((Test.result()->Passed() ? "+" : "!") + strName, nMilliseconds, Numbers);
    }

  private:
    static std::set<size_t> Take() {
        std::set<size_t> Numbers;
        for (size_t n = 0; n < mutants::NUMBERS; ++n) {
            if (mutants::Reached[n] != 0) Numbers.insert(n);
        }
        mutants::Reached.fill(0);
        return Numbers;
    }
    void Write(const std::string& strName, long long nMilliseconds,
               const std::set<size_t>& Numbers) {
        (void)std::fprintf(m_pFile, "%s %lld", strName.c_str(), nMilliseconds);
        for (const size_t n : Numbers)
            (void)std::fprintf(m_pFile, " %zu", n);
        (void)std::fprintf(m_pFile, "\n");
        (void)std::fflush(m_pFile);
    }

    std::FILE* m_pFile;
    std::set<size_t> m_OfSuite;
    bool m_bSuiteStarts = false;
    std::clock_t m_nStarted = 0;  // of the processor: what other programs do does not count
};

bool Prepare() {
    if (const char* szFolder = std::getenv("TAVIRO_SCENARIOS")) {
        std::vector<std::filesystem::path> Paths;
        for (const auto& Entry : std::filesystem::directory_iterator(szFolder)) {
            if (Entry.path().extension() == ".scenario") Paths.push_back(Entry.path());
        }
        std::sort(Paths.begin(), Paths.end());
        for (const auto& Path : Paths) {
            ::testing::RegisterTest(
                "Scenario", Path.stem().string().c_str(), nullptr, nullptr, __FILE__, __LINE__,
                [Path]() -> ::testing::Test* { return new ScenarioTest(Path); });
        }
    }
    if (const char* szRecord = std::getenv("TAVIRO_MUTANT_RECORD"))
        ::testing::UnitTest::GetInstance()->listeners().Append(new Recorder(szRecord));
    return true;
}
const bool bPrepared = Prepare();

}  // namespace
