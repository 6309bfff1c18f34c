// SPDX-License-Identifier: MIT
// A fresh program in the same process leaves nothing of the run before: tests and the simulator's
// restarts rest on it.
#include "core/program_reset.h"

#include <gtest/gtest.h>

#include "actions/choice_list.h"
#include "actions/key_sequence.h"
#include "actions/prediction.h"
#include "core/cursor_movement.h"
#include "core/poll_loop.h"
#include "dialogs/about_form.h"
#include "dialogs/app_setting_form.h"
#include "dialogs/button_config_form.h"
#include "dialogs/cell_editor_form.h"
#include "dialogs/map_chooser_form.h"
#include "dialogs/voice_form.h"
#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "forms/main_form.h"
#include "input/joystick_reader.h"
#include "input/keyboard_hook.h"
#include "maps/app_positions.h"
#include "maps/key_names.h"
#include "settings/button_table.h"
#include "settings/comfort_store.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

using ProgramReset = ProgramTest;

TEST_F(ProgramReset, EveryWindow_IsUnloadedAndHidden) {
    const auto Windows = [] {
        return std::vector<forms::Form*>{
            forms::FrmMain.get(),  FrmVoice.get(),  frmAbout.get(), frmAppSetting.get(),
            frmButtonConfig.get(), frmConfig.get(), frmMap.get()};
    };
    Start();
    for (forms::Form* pForm : Windows())
        pForm->Show();
    StartAnew();
    for (const forms::Form* pForm : Windows()) {
        EXPECT_FALSE(pForm->IsLoaded());
        EXPECT_FALSE(pForm->Visible);
    }
}

TEST_F(ProgramReset, WhereTheUserWas_IsForgotten) {
    Cursor.nColumn = Cursor.nLastRow = 7;
    Modes.Set(Mode::Arrow);
    Modes.bListMode = true;
    Poll.nTiltCount = 5;
    Scanning.nScanDirection = 37;
    Foreground.strCurrentAppName = L"A.EXE";
    SaveAppPosition(L"A.EXE", 3, 4);
    Program.bPauseJoystick = Program.bDialogActive = true;
    Program.strDataPath = L"C:\\";
    StartAnew();
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Cursor.nLastRow, 1);
    EXPECT_FALSE(Modes.bArrowMode);
    EXPECT_FALSE(Modes.bListMode);
    EXPECT_EQ(Poll.nTiltCount, 0);
    EXPECT_EQ(Scanning.nScanDirection, 0);
    EXPECT_EQ(Foreground.strCurrentAppName, L"");
    EXPECT_EQ(AppPosTable[0].strAppName, L"");
    EXPECT_FALSE(Program.bPauseJoystick);
    EXPECT_FALSE(Program.bDialogActive);
    EXPECT_EQ(Program.strDataPath, L"");
}

TEST_F(ProgramReset, WhatWasLoadedOrTyped_IsForgotten) {
    CommonMap.Cell(1, 1)->Caption = AppMap.Cell(1, 1)->Caption = L"a";
    CommonMap.bFileHoldsMore = AppMap.bFileHoldsMore = true;
    objSetting.Volume(77);
    ButtonTable[5] = {.Kind = ButtonKind::Command, .Command = L"calc", .Code = 0};
    ASSERT_EQ(objComfort.Set(*objComfort.Find(L"Watch"), L"1"), ComfortOutcome::Taken);
    InitKeyTable();
    ChoiceList.Entries.emplace_back();
    Prediction.strPrefix = L"abc";
    EventLog.bLog = true;
    EventLog.strLog = L"line";
    Speech.bUseReader = true;
    StartAnew();
    for (const MapGrid* pGrid : {&CommonMap, &AppMap}) {
        EXPECT_EQ(pGrid->Cell(1, 1)->Caption, L"");
        EXPECT_FALSE(pGrid->bFileHoldsMore);
    }
    EXPECT_EQ(objSetting.Volume(), cSetting{}.Volume());
    EXPECT_EQ(ButtonTable[5], ButtonAction{});
    EXPECT_FALSE(Comfort.bWatch);
    EXPECT_EQ(objComfort.Text(*objComfort.Find(L"Watch")), L"0");
    EXPECT_EQ(KeyTable[0].Name, L"");
    EXPECT_TRUE(ChoiceList.Entries.empty());
    EXPECT_EQ(Prediction.strPrefix, L"");
    EXPECT_FALSE(EventLog.bLog);
    EXPECT_EQ(EventLog.strLog, L"");
    EXPECT_FALSE(Speech.bUseReader);
}

TEST_F(ProgramReset, Devices_AreNotOpen) {
    Start();
    StartAnew();
    EXPECT_FALSE(IsHooked());
    EXPECT_EQ(KeyboardHook.Enter, nullptr);
    EXPECT_EQ(Joystick.nJoyCenterX, 0);
}

}  // namespace
}  // namespace taviro
