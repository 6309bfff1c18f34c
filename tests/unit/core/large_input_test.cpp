// SPDX-License-Identifier: MIT
// Lists, commands and texts far larger than any user's: the time they take grows with their length,
// not with its square. Compared with the same work on a sixteenth of the input, so that the speed
// of the machine does not count.
#include <algorithm>
#include <chrono>

#include "actions/choice_list.h"
#include "actions/command_action.h"
#include "actions/key_sequence.h"
#include "actions/prediction.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

using forms::FrmMain;

constexpr size_t SHARE = 16;
// Linear work takes 16 times as long, quadratic work 256 times.
constexpr double LARGEST_RATIO = 64;
// Shorter times than this are the clock's and the caches'; the square of the lengths here takes far
// more than 64 times as long.
constexpr double LEAST_SECONDS = 4e-3;

constexpr size_t MEGABYTE = 1 << 20;
constexpr size_t LONG = MEGABYTE / 8;  // long enough to show a square

class LargeInput : public ActionTest {
  protected:
    LargeInput() { Desktop.bRecording = false; }

    /// What this thread has used of the processor, seconds.
    static double ProcessorSeconds() {
        timespec Used{};
        EXPECT_EQ(clock_gettime(CLOCK_THREAD_CPUTIME_ID, &Used), 0);
        return static_cast<double>(Used.tv_sec) + static_cast<double>(Used.tv_nsec) * 1e-9;
    }
    /// Fastest of three runs, seconds.
    template <class Function>
    static double SecondsOf(Function Run) {
        double nBest = 1e9;
        for (int n = 0; n < 3; ++n) {
            const double nStart = ProcessorSeconds();
            Run();
            nBest = std::min(nBest, ProcessorSeconds() - nStart);
        }
        return nBest;
    }
    /// Compares Run(nSize) with Run(nSize / 16).
    template <class Function>
    static void ExpectLinear(size_t nSize, Function Run) {
        const double nShare = SecondsOf([&] { Run(nSize / SHARE); });
        const double nWhole = SecondsOf([&] { Run(nSize); });
        EXPECT_LT(nWhole, LARGEST_RATIO * std::max(nShare, LEAST_SECONDS));
    }
    static std::wstring Repeated(const std::wstring& strPart, size_t nLength) {
        std::wstring strAll;
        strAll.reserve(nLength + strPart.size());
        while (strAll.size() < nLength)
            strAll += strPart;
        return strAll;
    }
    static std::wstring Entries(size_t nCount) {
        std::wstring strText = L"*";
        for (size_t n = 0; n < nCount; ++n)
            strText += L";entry " + std::to_wstring(n) + L",program(" + std::to_wstring(n) + L")";
        return strText;
    }
    static void RunCell(const std::wstring& strCommand) {
        *CommonMap.Cell(1, 1) = {.Caption = L"a", .Code = 0, .Command = strCommand};
        Cursor.nColumn = Cursor.nRow = 1;
        CommandAction(CELL_UNDER_CURSOR);
        HideList();
    }
};

TEST_F(LargeInput, ListOfTenThousandEntries_OpensInLinearTime) {
    const std::wstring strWhole = Entries(10000);
    const std::wstring strShare = Entries(10000 / SHARE);
    ExpectLinear(10000, [&](size_t nCount) { RunCell(nCount == 10000 ? strWhole : strShare); });
    ShowList(strWhole);
    EXPECT_EQ(FrmMain->List1.ListCount(), 10000);
}

TEST_F(LargeInput, Step_CostsTheSame_HoweverLongTheListIs) {
    const auto Steps = [] {
        for (int n = 0; n < 300; ++n)
            ListMove(n % 2 == 0 ? 40 : 38);
    };
    ShowList(Entries(10));
    const double nShort = SecondsOf(Steps);
    HideList();
    ShowList(Entries(10000));
    const double nLong = SecondsOf(Steps);
    EXPECT_LT(nLong, 8 * std::max(nShort, LEAST_SECONDS));
    EXPECT_EQ(FrmMain->List1.ListIndex.Get(), 0);
}

TEST_F(LargeInput, LastOfTenThousandEntries_IsReachedAndLaunched) {
    ShowList(Entries(10000));
    for (int n = 0; n < 10001; ++n)
        ListMove(40);
    EXPECT_EQ(FrmMain->List1.ListIndex.Get(), 9999);
    EXPECT_EQ(Desktop.nBeeps, 2U);
    Desktop.bRecording = true;
    ListAccept();
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"say entry 9999", "launch \"program\" with \"9999\""}));
    EXPECT_FALSE(Modes.bListMode);
}

TEST_F(LargeInput, LongCommand_TakesLinearTime) {
    for (const wchar_t* szPart :
         {L"x", L"^", L":", L"\"", L";", L",", L"*;", L"a,b;", L"|", L"("}) {
        SCOPED_TRACE(platform::ToUtf8(szPart));
        ExpectLinear(LONG, [&](size_t nSize) {
            RunCell(Repeated(szPart, nSize));
            RunCell(L"*;" + Repeated(szPart, nSize));
        });
    }
    EXPECT_EQ(FrmMain->List1.Visible, false);
}

TEST_F(LargeInput, LongEntry_IsAcceptedInLinearTime) {
    for (const wchar_t* szPart : {L"(", L")", L"()", L" ", L"* "}) {
        SCOPED_TRACE(platform::ToUtf8(szPart));
        ExpectLinear(LONG, [&](size_t nSize) {
            const std::wstring strPart = Repeated(szPart, nSize);
            ShowList(L"*;a,p" + strPart);
            ListAccept();
            ShowList(L"*;a," + strPart);
            ListAccept();
        });
    }
}

// Texts whose syntax is long and whose keys are few: what is timed is the reading.
TEST_F(LargeInput, LongKeySequence_IsReadInLinearTime) {
    for (const wchar_t* szPart : {L"{}", L"+", L"+^%", L"{a 0}", L"{} {0 0}", L"{ENTER 0}"}) {
        SCOPED_TRACE(platform::ToUtf8(szPart));
        ExpectLinear(LONG, [&](size_t nSize) { vbSendKey(Repeated(szPart, nSize)); });
        EXPECT_TRUE(Desktop.KeysDown().empty());
    }
}

TEST_F(LargeInput, LongToken_IsReadInLinearTime) {
    for (const wchar_t* szPart : {L"{", L"a", L"1", L" ", L"A 0"}) {
        SCOPED_TRACE(platform::ToUtf8(szPart));
        // A count of 0 sends nothing of the token.
        ExpectLinear(MEGABYTE,
                     [&](size_t nSize) { vbSendKey(L"{" + Repeated(szPart, nSize) + L" 0}"); });
    }
    EXPECT_EQ(Typed(), L"");
}

TEST_F(LargeInput, MegabyteOfCommandAndOfKeySequence_AreCarriedOutToTheirEnds) {
    vbSendKey(Repeated(L"{TAB 0}+^%{a 0}{}{b", MEGABYTE) + L"}x");
    EXPECT_EQ(Typed().back(), L'x');
    EXPECT_TRUE(Desktop.KeysDown().empty());
    Desktop.bRecording = true;
    RunCell(L"p:" + Repeated(L"a:^", MEGABYTE));
    EXPECT_EQ(Desktop.TakeEffects().back(),
              "launch \"p\" with \"" + platform::ToUtf8(Repeated(L"a:^", MEGABYTE)) + "\"");
}

}  // namespace
}  // namespace taviro
