// SPDX-License-Identifier: MIT
// What is said of a failure, and how often.
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/headless/desktop.h"

namespace taviro::platform {
namespace {

using headless::Desktop;
using Lines = std::vector<std::wstring>;

class FailureReportTest : public ::testing::Test {
  protected:
    FailureReportTest() {
        Desktop = headless::DesktopState{};
        Reports = {};
    }
    ~FailureReportTest() override { Reports = {}; }

    static void ReportTimes(int nTimes) {
        for (int n = 0; n < nTimes; ++n)
            ReportFailure("SetTimer", 8);
    }
};

TEST_F(FailureReportTest, Report_NamesCallAndCode_ToDebuggerAndListener) {
    Lines Told;
    Reports.Tell = [&](std::wstring_view strLine) { Told.emplace_back(strLine); };
    ReportFailure("MoveFileEx", 32);
    ReportFailure("CoCreateInstance", 0x80040154);
    const Lines EXPECTED{L"Failed: MoveFileEx, error 32",
                         L"Failed: CoCreateInstance, error 0x80040154"};
    EXPECT_EQ(Told, EXPECTED);
    EXPECT_EQ(Desktop.DebuggerLines, EXPECTED);
}

TEST_F(FailureReportTest, Report_ReachesTheDebugger_WhenNobodyListens) {
    ReportFailure("SetTimer", 0);
    EXPECT_EQ(Desktop.DebuggerLines, Lines{L"Failed: SetTimer, error 0"});
}

TEST_F(FailureReportTest, Report_IsRepeatedAtPowersOfTenAlone_WhenTheSameFailureRepeats) {
    ReportTimes(1);
    ReportTimes(8);
    EXPECT_EQ(Desktop.DebuggerLines, Lines{L"Failed: SetTimer, error 8"});
    ReportTimes(1);
    ReportTimes(10);
    EXPECT_EQ(Desktop.DebuggerLines,
              (Lines{L"Failed: SetTimer, error 8", L"Failed: SetTimer, error 8 (10 times)"}));
    ReportTimes(80);
    EXPECT_EQ(Desktop.DebuggerLines.size(), 3U);
    EXPECT_EQ(Desktop.DebuggerLines.back(), L"Failed: SetTimer, error 8 (100 times)");
}

TEST_F(FailureReportTest, Report_IsSaidAnew_WhenCallOrCodeIsAnother) {
    ReportTimes(5);
    ReportFailure("SetTimer", 5);
    ReportFailure("KillTimer", 8);
    ReportTimes(1);
    EXPECT_EQ(Desktop.DebuggerLines,
              (Lines{L"Failed: SetTimer, error 8", L"Failed: SetTimer, error 5",
                     L"Failed: KillTimer, error 8"}));
}

TEST_F(FailureReportTest, Report_ThrowsNothing_WhenTheListenerDoes) {
    Reports.Tell = [](std::wstring_view) { throw std::runtime_error("no room"); };
    ReportFailure("SetTimer", 8);
    EXPECT_EQ(Desktop.DebuggerLines.size(), 1U);
}

TEST_F(FailureReportTest, Exception_IsReportedByItsKind_WhenCaughtByAGuard) {
    const auto Guard = [](const char* szWhere, auto Throw) {
        try {
            Throw();
            return uint32_t{0};
        } catch (...) {
            return ReportException(szWhere);
        }
    };
    EXPECT_EQ(Guard("a message", [] { throw std::bad_alloc(); }), CODE_OUT_OF_MEMORY);
    EXPECT_EQ(Guard("a timer", [] { throw 7; }), CODE_FAILED);
    EXPECT_EQ(Desktop.DebuggerLines, (Lines{L"Failed: a message, error 0x8007000E",
                                            L"Failed: a timer, error 0x80004005"}));
}

}  // namespace
}  // namespace taviro::platform
