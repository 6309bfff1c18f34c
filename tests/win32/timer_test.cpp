// SPDX-License-Identifier: MIT
// The main form's timers on the window's real ones.
#include <windows.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "platform/clock.h"
#include "platform/main_window.h"
#include "platform/messages.h"
#include "tests/win32/test_support.h"

namespace taviro::platform {
namespace {

using forms::FrmMain;
using tests::RunMessagesUntil;

constexpr uint32_t CLOCK_GRAIN_MS = 16;  // the system's clock may be this much behind

class TimerTest : public testing::Test {
  protected:
    void SetUp() override {
        CloseMainWindow();
        FrmMain = std::make_unique<forms::MainForm>();
        ASSERT_TRUE(OpenMainWindow(*FrmMain));
    }
    void TearDown() override { CloseMainWindow(); }
};

TEST_F(TimerTest, Tick_IsDueItsIntervalAfterTheLastHandlerEnded_WhenTheHandlerTakesLong) {
    std::vector<uint32_t> Starts;
    std::vector<uint32_t> Ends;
    FrmMain->Timer1.OnTimer = [&] {
        Starts.push_back(TickCount());
        SleepMs(150);  // longer than the interval of 100
        Ends.push_back(TickCount());
    };
    FrmMain->Timer1.Enabled = true;
    ASSERT_TRUE(RunMessagesUntil([&] { return Ends.size() == 4; }));
    for (size_t i = 1; i < Ends.size(); ++i) {
        EXPECT_GE(Starts[i] - Ends[i - 1] + CLOCK_GRAIN_MS, 100U) << "tick " << i;
    }
}

TEST_F(TimerTest, Handler_IsNotEnteredAgain_WhenItLetsMessagesRun) {
    int nInside = 0;
    int nDeepest = 0;
    int nTicks = 0;
    int nOther = 0;
    FrmMain->ScanTimer.OnTimer = [&] { ++nOther; };
    FrmMain->Timer1.OnTimer = [&] {
        nDeepest = std::max(nDeepest, ++nInside);
        FrmMain->Timer1.Enabled = false;
        FrmMain->Timer1.Enabled = true;  // starts anew in the middle of its own handler
        const int nOtherBefore = nOther;
        EXPECT_TRUE(RunMessagesUntil([&] { return nOther >= nOtherBefore + 4; }));
        --nInside;
        ++nTicks;
    };
    FrmMain->Timer1.Enabled = true;
    FrmMain->ScanTimer.Enabled = true;
    EXPECT_TRUE(RunMessagesUntil([&] { return nTicks >= 3; }));
    EXPECT_EQ(nDeepest, 1);
}

TEST_F(TimerTest, TicksAndPostedWork_WaitForTheEndOfAPause) {
    int nTicks = 0;
    std::vector<int> Done;
    FrmMain->Timer1.OnTimer = [&] { ++nTicks; };
    FrmMain->Timer1.Enabled = true;
    const uint32_t nStart = TickCount();
    {
        const OwnWorkPause Pause;
        const OwnWorkPause Inner;
        Post([&] { Done.push_back(1); });
        Post([&] { Done.push_back(2); });
        ASSERT_TRUE(RunMessagesUntil([&] { return TickCount() - nStart > 250; }));
        EXPECT_EQ(nTicks, 0);
        EXPECT_EQ(Done, std::vector<int>{});
    }
    EXPECT_TRUE(RunMessagesUntil([&] { return nTicks > 0 && Done.size() == 2; }));
    EXPECT_EQ(Done, (std::vector{1, 2}));
}

TEST_F(TimerTest, Ticks_Stop_WhenTheHandlerSaysSo) {
    int nTicks = 0;
    int nOther = 0;
    FrmMain->Timer1.OnTimer = [&] {
        ++nTicks;
        FrmMain->Timer1.Enabled = false;
    };
    FrmMain->ScanTimer.OnTimer = [&] { ++nOther; };
    FrmMain->Timer1.Enabled = true;
    FrmMain->ScanTimer.Enabled = true;
    EXPECT_TRUE(RunMessagesUntil([&] { return nOther >= 8; }));
    EXPECT_EQ(nTicks, 1);
    FrmMain->ScanTimer.Interval = 0;
    FrmMain->Timer1.Enabled = true;
    const int nOtherBefore = nOther;
    EXPECT_TRUE(RunMessagesUntil([&] { return nTicks >= 2; }));
    EXPECT_EQ(nOther, nOtherBefore) << "an interval of 0 never ticks";
}

TEST_F(TimerTest, Interval_CountsFromItsChange_WhenChanged) {
    bool bTicked = false;
    FrmMain->ScanTimer.OnTimer = [&] { bTicked = true; };
    FrmMain->ScanTimer.Enabled = true;
    FrmMain->ScanTimer.Interval = 300;
    const uint32_t nStart = TickCount();
    ASSERT_TRUE(RunMessagesUntil([&] { return bTicked; }));
    EXPECT_GE(TickCount() - nStart + CLOCK_GRAIN_MS, 300U);
}

TEST_F(TimerTest, Nothing_Ticks_WhenTheHandlerClosedTheWindow) {
    int nTicks = 0;
    FrmMain->Timer1.OnTimer = [&] {
        ++nTicks;
        CloseMainWindow();
    };
    FrmMain->Timer1.Enabled = true;
    EXPECT_TRUE(RunMessagesUntil([&] { return nTicks == 1; }));
    RunPendingMessages();
    EXPECT_EQ(nTicks, 1);
    EXPECT_EQ(MainWindowHandle(), 0U);
}

}  // namespace
}  // namespace taviro::platform
