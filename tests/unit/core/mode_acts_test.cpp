// SPDX-License-Identifier: MIT
// What a tilt to the right and the action button do in each mode.
#include <gtest/gtest.h>

#include "core/cursor_movement.h"
#include "tests/unit/core/mode_scene.h"
#include "vocabulary/key_code.h"

namespace taviro {
namespace {

class ModeActs : public ModeScene {};

TEST_F(ModeActs, SelectMode_MovesCursorAndRunsCell) {
    Start();
    BeIn(Mode::Select);
    TiltRight();
    Ticks(1);
    EXPECT_EQ(Cursor.nColumn, 3);
    PressButton(ACTION_BUTTON);
    Ticks(1);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"i");
}

TEST_F(ModeActs, NoMode_ActsAsSelection_AtTheStart) {
    Start();
    TiltRight();
    Ticks(1);
    EXPECT_EQ(Cursor.nColumn, 2);
    PressButton(ACTION_BUTTON);
    Ticks(1);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"b");
}

TEST_F(ModeActs, ArrowMode_SendsArrowAndEnterToTheProgramInFront) {
    Start();
    BeIn(Mode::Arrow);
    Desktop.TakeEffects();
    TiltRight();
    Ticks(1);
    CentreStick();
    PressButton(ACTION_BUTTON);
    Ticks(1);
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"SendInput: vk 39 down, vk 39 up", "SendInput: vk 13 down, vk 13 up"}));
    EXPECT_EQ(Cursor.nColumn, 2);
}

TEST_F(ModeActs, ScanMode_StartsThenStopsAndRunsCell) {
    Start();
    BeIn(Mode::Scan);
    StandOn(1, 1);
    PressButton(ACTION_BUTTON);
    Ticks(1);
    EXPECT_TRUE(forms::FrmMain->ScanTimer.Enabled);
    EXPECT_EQ(forms::FrmMain->ScanTimer.Interval, 1000);
    ReleaseButtons();
    Ticks(12);
    EXPECT_EQ(Cursor.nColumn, 2) << "one step a second";
    PressButton(ACTION_BUTTON);
    Ticks(1);
    EXPECT_FALSE(forms::FrmMain->ScanTimer.Enabled);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"b");
}

TEST_F(ModeActs, ScanMode_TurnsScan_WhenTiltedByHand) {
    Start();
    BeIn(Mode::Scan);
    RunScan();
    TiltLeft();
    Ticks(1);
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Scanning.nScanDirection, KeyCode::Left);
}

TEST_F(ModeActs, ApplicationMode_MovesInItsMapAndRunsItsCell) {
    GiveEditorAMap();
    Start();
    BeIn(Mode::Application);
    TiltLeft();
    Ticks(1);
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"Z");
    PressButton(ACTION_BUTTON);
    Ticks(1);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"z");
}

}  // namespace
}  // namespace taviro
