// SPDX-License-Identifier: MIT
// The virtual desktop itself: its clock, timers and events, sound, devices, windows and objects. A
// test is worth no more than the desktop that it runs on.
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/headless/desktop.h"
#include "platform/main_window.h"
#include "platform/messages.h"
#include "platform/metrics.h"
#include "platform/pointer.h"
#include "platform/sound.h"
#include "platform/text_extent.h"
#include "platform/windows_and_processes.h"

namespace taviro::platform {
namespace {

using headless::Desktop;
using Effects = std::vector<std::string>;
using Times = std::vector<uint32_t>;

class HeadlessDesktopTest : public ::testing::Test {
  protected:
    HeadlessDesktopTest() {
        Desktop = headless::DesktopState{};
        EXPECT_TRUE(OpenMainWindow(Form));
        nStart = Desktop.nNow;
    }
    ~HeadlessDesktopTest() override {
        CloseMainWindow();
        Desktop = headless::DesktopState{};
    }
    /// Notes when the timer ticks, counted from the test's start.
    void NoteTicks(forms::Timer& Timer, Times& Ticks) {
        Timer.OnTimer = [this, &Ticks] { Ticks.push_back(TickCount() - nStart); };
    }
    forms::MainForm Form;
    uint32_t nStart = 0;
};

TEST_F(HeadlessDesktopTest, Clock_MovesByWaitsAlone_WhenAsked) {
    EXPECT_EQ(TickCount(), nStart);
    SleepMs(250);
    EXPECT_EQ(TickCount(), nStart + 250);
    Desktop.RunFor(50);
    EXPECT_EQ(TickCount(), nStart + 300);
    RunPendingMessages();
    EXPECT_EQ(TickCount(), nStart + 300);
}

TEST_F(HeadlessDesktopTest, Clock_TellsDayTime_WhenItMoves) {
    EXPECT_EQ(TimeOfDayText(), L"01:59:52");
    EXPECT_EQ(DateTimeText(), L"16.11.2026 1:59:52");
    SleepMs(9000);
    EXPECT_EQ(TimeOfDayText(), L"02:00:01");
    EXPECT_EQ(DateTimeText(), L"16.11.2026 2:00:01");
    SleepMs(24 * 3600 * 1000);
    EXPECT_EQ(TimeOfDayText(), L"02:00:01");
}

TEST_F(HeadlessDesktopTest, Timer_TicksEveryInterval_WhileEnabled) {
    Times Ticks;
    NoteTicks(Form.Timer1, Ticks);
    Desktop.RunFor(500);
    EXPECT_EQ(Ticks, Times{});
    Form.Timer1.Enabled = true;
    Desktop.RunFor(350);
    EXPECT_EQ(Ticks, (Times{600, 700, 800}));
    Form.Timer1.Enabled = false;
    Desktop.RunFor(500);
    EXPECT_EQ(Ticks.size(), 3U);
}

TEST_F(HeadlessDesktopTest, Timer_IsDueItsIntervalAfterItsHandlerEnded_WhenHandlerIsSlow) {
    Times Ticks;
    Form.Timer1.OnTimer = [&] {
        Ticks.push_back(TickCount() - nStart);
        SleepMs(70);
    };
    Form.Timer1.Enabled = true;
    Desktop.RunFor(500);
    EXPECT_EQ(Ticks, (Times{100, 270, 440}));
}

TEST_F(HeadlessDesktopTest, Timer_StartsAnew_WhenItsIntervalChanges) {
    Times Ticks;
    NoteTicks(Form.Timer1, Ticks);
    Form.Timer1.Enabled = true;
    Desktop.RunFor(80);
    Form.Timer1.Interval = 30;
    Desktop.RunFor(70);
    EXPECT_EQ(Ticks, (Times{110, 140}));
}

TEST_F(HeadlessDesktopTest, Timer_IsNotEnteredAgain_WhenItsHandlerLetsMessagesRun) {
    int nDepth = 0, nDeepest = 0, nTicks = 0;
    Form.Timer1.OnTimer = [&] {
        ++nTicks;
        nDeepest = std::max(nDeepest, ++nDepth);
        SleepMs(300);
        RunPendingMessages();
        --nDepth;
    };
    Form.Timer1.Enabled = true;
    Desktop.RunFor(100);
    EXPECT_EQ(nTicks, 1);
    EXPECT_EQ(nDeepest, 1);
    Desktop.RunFor(100);
    EXPECT_EQ(nTicks, 2);
}

TEST_F(HeadlessDesktopTest, OtherTimer_RunsInsideAWait_WhenMessagesAreLetThrough) {
    Times Scans;
    Form.ScanTimer.Interval = 150;
    NoteTicks(Form.ScanTimer, Scans);
    Form.Timer1.OnTimer = [&] {
        SleepMs(200);
        EXPECT_EQ(Scans, Times{}) << "sleeping lets nothing run";
        RunPendingMessages();
    };
    Form.ScanTimer.Enabled = true;
    Form.Timer1.Enabled = true;
    Desktop.RunFor(100);
    EXPECT_EQ(Scans, Times{300}) << "late, once, and inside the other handler";
}

TEST_F(HeadlessDesktopTest, BothTimers_TickInOrderOfTheirTimes_WhenEnabled) {
    Effects Order;
    Form.ScanTimer.Interval = 120;
    Form.Timer1.OnTimer = [&] { Order.push_back("poll " + std::to_string(TickCount() - nStart)); };
    Form.ScanTimer.OnTimer = [&] {
        Order.push_back("scan " + std::to_string(TickCount() - nStart));
    };
    Form.Timer1.Enabled = true;
    Form.ScanTimer.Enabled = true;
    Desktop.RunFor(250);
    EXPECT_EQ(Order, (Effects{"poll 100", "scan 120", "poll 200", "scan 240"}));
}

TEST_F(HeadlessDesktopTest, Timer_MaySwitchItselfOff_WhenItTicks) {
    Times Ticks;
    Form.Timer1.OnTimer = [&] {
        Ticks.push_back(TickCount() - nStart);
        Form.Timer1.Enabled = false;
    };
    Form.Timer1.Enabled = true;
    Desktop.RunFor(1000);
    EXPECT_EQ(Ticks, Times{100});
}

TEST_F(HeadlessDesktopTest, Timer_IsUnknown_WhenWindowWasClosed) {
    Form.Timer1.OnTimer = [] { FAIL() << "no window, no timer"; };
    Form.Timer1.Enabled = true;
    CloseMainWindow();
    EXPECT_EQ(MainWindowHandle(), 0U);
    Form.ScanTimer.OnTimer = Form.Timer1.OnTimer;
    Form.ScanTimer.Enabled = true;
    Desktop.RunFor(1000);
}

TEST_F(HeadlessDesktopTest, Events_RunInOrderOfTimesThenOfAsking_WhenDue) {
    Effects Order;
    const auto Note = [&](const char* szName) {
        return [&Order, this, szName] {
            Order.push_back(szName + std::string(" ") + std::to_string(TickCount() - nStart));
        };
    };
    Desktop.At(nStart + 50, Note("late"));
    Desktop.At(nStart + 10, Note("early"));
    Desktop.At(nStart + 50, Note("later"));
    Desktop.RunFor(9);
    EXPECT_EQ(Order, Effects{});
    Desktop.RunFor(41);
    EXPECT_EQ(Order, (Effects{"early 10", "late 50", "later 50"}));
}

TEST_F(HeadlessDesktopTest, Event_ComesBeforeTimer_WhenBothAreDue) {
    Effects Order;
    Form.Timer1.OnTimer = [&] { Order.emplace_back("timer"); };
    Form.Timer1.Enabled = true;
    Desktop.At(nStart + 100, [&] { Order.emplace_back("event"); });
    Desktop.RunFor(100);
    EXPECT_EQ(Order, (Effects{"event", "timer"}));
}

TEST_F(HeadlessDesktopTest, Event_RunsInsideAWait_WhenItFallsIntoIt) {
    bool bRan = false;
    Desktop.At(nStart + 100, [&] { bRan = true; });
    SleepMs(150);
    EXPECT_FALSE(bRan);
    RunPendingMessages();
    EXPECT_TRUE(bRan);
    EXPECT_EQ(TickCount(), nStart + 150) << "the clock never goes back";
}

TEST_F(HeadlessDesktopTest, RunPendingMessages_EndsThere_WhenAnEventIsStillToCome) {
    bool bRan = false;
    Desktop.At(nStart + 1, [&] { bRan = true; });
    RunPendingMessages();
    EXPECT_FALSE(bRan);
}

TEST_F(HeadlessDesktopTest, MessageLoop_ReturnsCode_WhenToldToQuit) {
    Desktop.At(nStart + 2500, [] { QuitMessageLoop(7); });
    EXPECT_EQ(RunMessageLoop(), 7);
    EXPECT_GE(TickCount(), nStart + 2500);
}

TEST_F(HeadlessDesktopTest, Sound_TellsItsEnd_WhenAsked) {
    Desktop.Files.Put(L"C:\\s.wav", "RIFF");
    Desktop.nSoundLength = 300;
    EXPECT_TRUE(SndPlaySound(L"", SND_FLAG_NOSTOP)) << "nothing plays yet";
    EXPECT_TRUE(SndPlaySound(L"C:\\s.wav", SND_FLAG_ASYNC));
    EXPECT_EQ(TickCount(), nStart) << "in the background";
    int nAsked = 0;
    while (!SndPlaySound(L"", SND_FLAG_NOSTOP))
        ASSERT_LT(++nAsked, 1000);
    EXPECT_GE(TickCount(), nStart + 300);
    EXPECT_LE(TickCount(), nStart + 320);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"sound C:\\s.wav"});
}

TEST_F(HeadlessDesktopTest, Sound_DoesNotInterrupt_WhenAskedNotTo) {
    Desktop.Files.Put(L"C:\\s.wav", "RIFF");
    EXPECT_TRUE(SndPlaySound(L"C:\\s.wav", SND_FLAG_ASYNC));
    EXPECT_FALSE(SndPlaySound(L"C:\\s.wav", SND_FLAG_ASYNC | SND_FLAG_NOSTOP));
    EXPECT_TRUE(SndPlaySound(L"C:\\s.wav", SND_FLAG_ASYNC));
    EXPECT_EQ(Desktop.TakeEffects().size(), 2U);
}

TEST_F(HeadlessDesktopTest, Sound_BlocksToItsEnd_WhenNotInBackground) {
    Desktop.Files.Put(L"C:\\s.wav", "RIFF");
    EXPECT_TRUE(SndPlaySound(L"C:\\s.wav", 0));
    EXPECT_EQ(TickCount(), nStart + Desktop.nSoundLength);
}

TEST_F(HeadlessDesktopTest, Sound_IsSilent_WhenFileIsMissing) {
    EXPECT_FALSE(SndPlaySound(L"C:\\none.wav", SND_FLAG_ASYNC));
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    EXPECT_TRUE(SndPlaySound(L"", SND_FLAG_NOSTOP));
}

TEST_F(HeadlessDesktopTest, Transcript_KeepsTimesAndForgets_WhenTaken) {
    SystemBeep();
    SleepMs(10);
    SystemBeep();
    ASSERT_EQ(Desktop.Transcript.size(), 2U);
    EXPECT_EQ(Desktop.Transcript[1].nTime, nStart + 10);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"beep", "beep"}));
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    EXPECT_EQ(Desktop.nBeeps, 2U);
    Desktop.bRecording = false;
    SystemBeep();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

}  // namespace
}  // namespace taviro::platform
