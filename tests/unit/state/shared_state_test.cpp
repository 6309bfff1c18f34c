// SPDX-License-Identifier: MIT
// What several subsystems share, before anything has happened and by its own verbs.
#include <gtest/gtest.h>
#include <vector>

#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "state/program_state.h"

namespace taviro {
namespace {

std::vector<Mode> ModesOn(const ModeState& State) {
    std::vector<Mode> On;
    if (State.bSelectMode) On.push_back(Mode::Select);
    if (State.bScanMode) On.push_back(Mode::Scan);
    if (State.bArrowMode) On.push_back(Mode::Arrow);
    if (State.bAppMode) On.push_back(Mode::Application);
    return On;
}

TEST(ModeState, NoModeIsOn_AtTheStart) {
    EXPECT_EQ(ModesOn({}), std::vector<Mode>{});
    EXPECT_FALSE(ModeState{}.bListMode);
    EXPECT_FALSE(ModeState{}.bAutoRepeatMode);
}

TEST(ModeState, OneModeIsOn_WhicheverWasOnBefore) {
    const Mode ALL[] = {Mode::Select, Mode::Scan, Mode::Arrow, Mode::Application};
    for (const Mode nBefore : ALL) {
        for (const Mode nAfter : ALL) {
            ModeState State;
            State.Set(nBefore);
            State.Set(nAfter);
            EXPECT_EQ(ModesOn(State), std::vector<Mode>{nAfter});
        }
        ModeState State;
        State.Set(nBefore);
        State.Clear();
        EXPECT_EQ(ModesOn(State), std::vector<Mode>{});
    }
}

TEST(ModeState, List_StaysOpen_WhenTheModeChanges) {
    ModeState State;
    State.bListMode = true;
    State.Set(Mode::Arrow);
    State.Clear();
    EXPECT_TRUE(State.bListMode);
}

TEST(CursorState, FirstCell_IsHighlightedAndRemembered_AtTheStart) {
    CursorState State;
    EXPECT_EQ(State.nColumn, 1);
    EXPECT_EQ(State.nRow, 1);
    State.nColumn = State.nRow = 9;
    State.Restore();
    EXPECT_EQ(State.nColumn, 1);
    EXPECT_EQ(State.nRow, 1);
}

TEST(CursorState, RememberedCell_IsRestored_WhereverTheCursorWent) {
    CursorState State;
    State.nColumn = 3;
    State.nRow = 4;
    State.Remember();
    State.nColumn = State.nRow = 9;
    State.Restore();
    EXPECT_EQ(State.nColumn, 3);
    EXPECT_EQ(State.nRow, 4);
}

TEST(ProgramState, NothingHoldsTheInputBack_AtTheStart) {
    EXPECT_FALSE(ProgramState{}.bPauseJoystick);
    EXPECT_FALSE(ProgramState{}.bDialogActive);
    EXPECT_FALSE(ProgramState{}.bConfigOpen);
    EXPECT_FALSE(ProgramState{}.bJoystickPresent);
}

TEST(ForegroundState, NoApplicationIsKnown_AtTheStart) {
    EXPECT_EQ(ForegroundState{}.strCurrentAppName, L"");
    EXPECT_FALSE(ForegroundState{}.bAppMapShown);
    EXPECT_EQ(ForegroundState{}.hWindow, 0U);
    EXPECT_EQ(ForegroundState{}.nProcess, 0U);
}

}  // namespace
}  // namespace taviro
