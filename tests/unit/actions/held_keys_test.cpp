// SPDX-License-Identifier: MIT
// No key stays down, whatever the system keeps from us, and nothing of ours comes between a cell's
// keys.
#include <gtest/gtest.h>

#include "actions/command_action.h"
#include "actions/key_action.h"
#include "actions/key_sequence.h"
#include "actions/key_synthesis.h"
#include "actions/mouse_synthesis.h"
#include "forms/main_form.h"
#include "platform/headless/user.h"
#include "platform/messages.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

using platform::headless::Ticks;

constexpr int32_t SHIFT_X = 10088;
constexpr int32_t CTRL_SHIFT_X = 30088;
constexpr uint8_t ENTER_KEY = 13;

class HeldKeysTest : public ProgramTest {
  protected:
    HeldKeysTest() { PutData(L"data.ini", L"[1,1]A,65\r\n[2,1]B,66\r\n"); }
};

TEST_F(HeldKeysTest, Key_IsReleasedAtTheEndOfItsAction_WhenOneReleaseWasRefused) {
    Start();
    // Each call in turn; those that press are refused as well, and then nothing is owed for them.
    for (size_t nCall = 1; nCall <= 12; ++nCall) {
        Desktop.Failures.Add({.strCall = "SendInputRecords", .nFrom = nCall});
        PressActionCode(CTRL_SHIFT_X);
        EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{}) << "call " << nCall;
        Desktop.Failures = {};
    }
}

TEST_F(HeldKeysTest, Key_IsReleasedByATickAfterwards_WhenTheSystemRefusesForAWhile) {
    Start();
    Desktop.Failures.Add({.strCall = "SendInputRecords", .nFrom = 3, .nCount = 1000});
    PressActionCode(SHIFT_X);
    EXPECT_NE(Desktop.KeysDown(), std::vector<int>{});
    Ticks(2);
    EXPECT_NE(Desktop.KeysDown(), std::vector<int>{});
    Desktop.Failures = {};
    Ticks();
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
    Desktop.TakeEffects();
    Ticks(3);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{}) << "nothing is released twice";
}

TEST_F(HeldKeysTest, Key_IsReleasedByATick_WhileADialogPausesTheJoystick) {
    Start();
    Desktop.Failures.Add({.strCall = "SendInputRecords", .nFrom = 3, .nCount = 1000});
    PressActionCode(SHIFT_X);
    Desktop.Failures = {};
    Program.bPauseJoystick = true;
    Ticks();
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
}

TEST_F(HeldKeysTest, KeysOfATextAndButtons_AreReleasedToo) {
    Start();
    Desktop.Failures.Add({.strCall = "KeybdEvent", .nFrom = 4});  // the release of Shift
    vbSendKey(L"+a");
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
    Desktop.Failures = {};
    Desktop.TakeEffects();
    Desktop.Failures.Add({.strCall = "SendInputRecords", .nDone = 2});  // not the button's release
    MouseClickAt(5, 5, true);
    EXPECT_EQ(Desktop.TakeEffects().back(), "SendInput: mouse (0, 0) flags 16");
}

TEST_F(HeldKeysTest, Key_IsReleased_WhenTheProgramEnds) {
    Start();
    Desktop.Failures.Add({.strCall = "SendInputRecords", .nFrom = 3, .nCount = 1000});
    PressActionCode(SHIFT_X);
    Desktop.Failures = {};
    forms::FrmMain->Unload();
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
}

TEST_F(HeldKeysTest, EnterOfTheKeyboard_WaitsForTheEndOfACellsKeys) {
    Desktop.Joystick.bPresent = false;
    Start();
    CommonMap.Cell(1, 1)->Code = SHIFT_X;
    Desktop.At(Desktop.nNow, [] {  // comes while messages run with Shift down
        Desktop.PhysicalKey(ENTER_KEY, true);
        Desktop.PhysicalKey(ENTER_KEY, false);
        CommonMap.Cell(1, 1)->Code = 'D';
    });
    PressActionCode(SHIFT_X);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"X");
    platform::RunPendingMessages();
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"Xd") << "afterwards, and without Shift";
}

TEST_F(HeldKeysTest, ControlBoxAndTimers_WaitForTheEndOfACellsKeys) {
    Start();
    forms::FrmMain->ScanTimer.Interval = 10;
    forms::FrmMain->ScanTimer.Enabled = true;
    Desktop.At(Desktop.nNow, [] { Desktop.WriteIntoBox(L"right"); });
    Desktop.nNow += 500;  // the poll is due, and a scan step
    const uint32_t nReads = Desktop.Joystick.nReads;
    {
        const KeyAction Underway;
        platform::RunPendingMessages();
        EXPECT_EQ(Cursor.nColumn, 1);
        EXPECT_EQ(Desktop.Joystick.nReads, nReads);
    }
    forms::FrmMain->ScanTimer.Enabled = false;
    platform::RunPendingMessages();
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_GT(Desktop.Joystick.nReads, nReads);
}

TEST_F(HeldKeysTest, InnerAction_ReleasesNothingOfTheOuterOne) {
    Start();
    const KeyAction Outer;
    KeyDownVk(16);
    { const KeyAction Inner; }
    EXPECT_NE(Desktop.KeysDown(), std::vector<int>{});
}

}  // namespace
}  // namespace taviro
