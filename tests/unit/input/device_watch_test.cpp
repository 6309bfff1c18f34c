// SPDX-License-Identifier: MIT
// A joystick that comes and goes while the program runs: what the person meets with Watch=1, and
// that without it nothing of this happens.
#include "input/device_watch.h"

#include <gtest/gtest.h>

#include "core/poll_loop.h"
#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "platform/headless/voice.h"
#include "settings/comfort_store.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

constexpr uint8_t ARROW_RIGHT = 39;
const std::string GONE = "say Joystick se neozývá. Mapu teď ovládají šipky a Enter.";
const std::string FOUND = "say Joystick je připojený.";

class DeviceWatchTest : public ProgramTest {
  protected:
    DeviceWatchTest() {
        PutData(L"data.ini", L"[1,1]A,65\r\n[2,1]B,66\r\n[3,1]C,67\r\n[4,1]D,68\r\n");
        PutData(L"setting.ini", L"[Info]\r\nRowWrap=1\r\n");
        PutData(L"comfort.ini", L"[Stick]\r\nWatch=1\r\n");
        Desktop.Classes[platform::headless::VOICE_CLASS] = platform::headless::MakePlainVoice;
    }
    ~DeviceWatchTest() override { Speech = {}; }

    static void StartWithoutWatch() {
        PutData(L"comfort.ini", L"");
        Start();
    }
    /// The news that were said since the last time.
    static Effects News() {
        Effects Done = Desktop.TakeEffects();
        std::erase_if(Done, [](const std::string& str) { return str != GONE && str != FOUND; });
        return Done;
    }
    /// When it was said; the end of all time when it was not.
    static uint32_t TimeOf(const std::string& strSaid) {
        for (const auto& Done : Desktop.Transcript) {
            if (Done.strText == strSaid) return Done.nTime;
        }
        return UINT32_MAX;
    }
    static void PlugInAs(uint32_t nId) { Desktop.OtherJoysticks[nId].bPresent = true; }
    static void PullOut() { Desktop.Joystick.bPresent = false; }
};

TEST_F(DeviceWatchTest, UnpluggedStick_CountsAsCentredInHalfASecond_WhileItRepeats) {
    for (const uint32_t nTakes : {0U, 200U, 300U, 400U}) {
        for (const int nTicks : {1, 2, 5, 9}) {
            SCOPED_TRACE(std::to_string(nTakes) + " ms, " + std::to_string(nTicks) + " ticks");
            Desktop.nUnpluggedTakes = nTakes;
            Desktop.Joystick.bPresent = true;
            StartAnew();
            Desktop.Questions = {};  // another run has asked nothing yet
            Start();
            TiltRight();
            PressButton(2);
            Ticks(nTicks);
            PullOut();
            const uint32_t nPulled = Desktop.nNow;
            Desktop.RunFor(500);
            EXPECT_TRUE(DeviceWatch.bAbsent);
            EXPECT_LE(TimeOf(GONE), nPulled + 500);
            EXPECT_EQ(Poll.nTilt, Tilt::None);
            EXPECT_EQ(Joystick.nJoyX, 32767);
            EXPECT_EQ(Poll.nButtonDown, 0);
            const int32_t nColumn = Cursor.nColumn;
            Desktop.RunFor(3000);
            EXPECT_EQ(Cursor.nColumn, nColumn);
            EXPECT_EQ(News(), Effects{GONE}) << "said once";
            ReleaseButtons();
            CentreStick();
            forms::FrmMain->Unload();
        }
    }
}

TEST_F(DeviceWatchTest, Keyboard_TakesOver_UntilTheStickIsBack) {
    Start();
    Ticks(2);
    Desktop.PhysicalKey(ARROW_RIGHT, true);
    EXPECT_EQ(Cursor.nColumn, 1) << "the program in front gets it";
    Desktop.PhysicalKey(ARROW_RIGHT, false);
    PullOut();
    Desktop.RunFor(500);
    Desktop.PhysicalKey(ARROW_RIGHT, true);
    Desktop.PhysicalKey(ARROW_RIGHT, false);
    EXPECT_EQ(Cursor.nColumn, 2);
    Desktop.Joystick.bPresent = true;
    Desktop.RunFor(2000);
    EXPECT_EQ(News(), (Effects{GONE, FOUND}));
    Desktop.PhysicalKey(ARROW_RIGHT, true);
    EXPECT_EQ(Cursor.nColumn, 2);
}

TEST_F(DeviceWatchTest, Stick_DrivesTheMapInTwoSeconds_WhenItComesAfterTheStart) {
    for (const uint32_t nId : {0U, 1U, 7U, 15U}) {
        SCOPED_TRACE(nId);
        Desktop.Joystick = {};
        Desktop.OtherJoysticks.clear();
        StartAnew();
        Start();
        EXPECT_FALSE(Program.bJoystickPresent);
        Desktop.RunFor(5000);
        EXPECT_EQ(News(), Effects{}) << "nothing was lost";
        auto& Stick = nId == 0 ? Desktop.Joystick : Desktop.OtherJoysticks[nId];
        Stick.bPresent = true;
        Desktop.RunFor(1900);
        Stick.nX = 65535;
        Ticks();
        EXPECT_EQ(Cursor.nColumn, 2);
        EXPECT_EQ(Joystick.nJoyId, nId);
        EXPECT_EQ(News(), Effects{FOUND});
        forms::FrmMain->Unload();
    }
}

TEST_F(DeviceWatchTest, Stick_IsTakenInTwoSeconds_WhenItComesBackUnderAnotherNumber) {
    Start();
    Ticks(3);
    PullOut();
    Desktop.RunFor(1000);
    PlugInAs(2);
    Desktop.RunFor(1900);
    Desktop.OtherJoysticks[2].nX = 0;
    Ticks();
    EXPECT_EQ(Joystick.nJoyId, 2U);
    EXPECT_EQ(Cursor.nColumn, 4) << "left, round the row";
    EXPECT_EQ(News(), (Effects{GONE, FOUND}));
}

TEST_F(DeviceWatchTest, WhatIsHeldOnComing_ActsOnlyAfterItWasLetGo) {
    Start();
    Ticks(2);
    PullOut();
    Desktop.RunFor(1000);
    TiltRight();
    PressButton(0);
    Desktop.Joystick.bPresent = true;
    Desktop.RunFor(4000);
    EXPECT_FALSE(DeviceWatch.bAbsent);
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"");
    CentreStick();
    Ticks();
    TiltRight();
    Ticks();
    EXPECT_EQ(Cursor.nColumn, 2) << "the button is held on, the stick is free";
    ReleaseButtons();
    Ticks();
    PressButton(0);
    Ticks();
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"b");
}

TEST_F(DeviceWatchTest, SingleFailure_ChangesNothing) {
    Start();
    TiltRight();
    Ticks();
    Desktop.Failures.Next("JoyGetPosEx");
    Ticks();
    EXPECT_FALSE(DeviceWatch.bAbsent);
    Ticks(3);
    EXPECT_GT(Cursor.nColumn, 2) << "it goes on repeating";
    EXPECT_EQ(News(), Effects{});
    Desktop.nNow += 5000;  // the machine slept
    Desktop.Failures.Next("JoyGetPosEx");
    Ticks();
    EXPECT_FALSE(DeviceWatch.bAbsent);
}

TEST_F(DeviceWatchTest, Log_HasALine_WhenTheStickGoesAndComes) {
    Start();
    StartLog();
    Ticks(2);
    PullOut();
    Desktop.RunFor(1000);
    PlugInAs(3);
    Desktop.RunFor(2000);
    EXPECT_NE(EventLog.strLog.find(L"Joystick lost"), std::wstring::npos);
    EXPECT_NE(EventLog.strLog.find(L"Joystick found, device 3"), std::wstring::npos);
}

TEST_F(DeviceWatchTest, WithoutWatch_TheLastPositionStaysInEffect_AndNothingIsSaid) {
    StartWithoutWatch();
    TiltRight();
    Ticks(1);
    PullOut();
    Desktop.RunFor(5000);
    EXPECT_EQ(Poll.nTilt, Tilt::Right);
    EXPECT_EQ(Joystick.nJoyX, 62767);
    EXPECT_EQ(News(), Effects{});
}

TEST_F(DeviceWatchTest, WithoutWatch_NothingPolls_WhenNoStickWasThereAtTheStart) {
    PullOut();
    StartWithoutWatch();
    EXPECT_FALSE(forms::FrmMain->Timer1.Enabled);
    Desktop.Joystick.bPresent = true;
    TiltRight();
    Desktop.RunFor(5000);
    EXPECT_EQ(Cursor.nColumn, 1);
}

}  // namespace
}  // namespace taviro
