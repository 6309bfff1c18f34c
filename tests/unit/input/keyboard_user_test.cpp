// SPDX-License-Identifier: MIT
// The keyboard hook through the whole program: what a user without a joystick meets.
#include <gtest/gtest.h>

#include "dialogs/button_config_form.h"
#include "dialogs/cell_editor_form.h"
#include "dialogs/voice_form.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

constexpr uint8_t ENTER_KEY = 13;
constexpr uint8_t RIGHT_KEY = 39;

class KeyboardUserTest : public ProgramTest {
  protected:
    KeyboardUserTest() {
        PutData(L"data.ini",
                L"[1,1]A,65\r\n[2,1]B,66\r\n[1,2]nabídka,0,*;Poznámky,notepad;Konec,konec\r\n");
    }
};

TEST_F(KeyboardUserTest, Right_MovesCursorAndReachesNobody_WhenNoJoystickIsThere) {
    Desktop.Joystick.bPresent = false;
    Start();
    Desktop.PhysicalKey(RIGHT_KEY, true);
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(Cursor.nRow, 1);
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
    Desktop.PhysicalKey(RIGHT_KEY, false);
    EXPECT_EQ(Cursor.nColumn, 2);
}

TEST_F(KeyboardUserTest, Enter_RunsHighlightedCellOnRelease_WhenNoJoystickIsThere) {
    Desktop.Joystick.bPresent = false;
    Start();
    Desktop.PhysicalKey(RIGHT_KEY, true);
    Desktop.PhysicalKey(RIGHT_KEY, false);
    Desktop.PhysicalKey(ENTER_KEY, true);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"");
    Desktop.PhysicalKey(ENTER_KEY, false);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"b");
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
}

TEST_F(KeyboardUserTest, KeysOfACell_ReachTheProgramInFront_AndAreNotTakenForTheUsers) {
    Desktop.Joystick.bPresent = false;
    Start();
    CommonMap.Cell(1, 1)->Code = ENTER_KEY;
    Desktop.PhysicalKey(ENTER_KEY, true);
    Desktop.PhysicalKey(ENTER_KEY, false);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"\n");
    CommonMap.Cell(1, 1)->Code = RIGHT_KEY;
    Desktop.PhysicalKey(ENTER_KEY, true);
    Desktop.PhysicalKey(ENTER_KEY, false);
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
}

TEST_F(KeyboardUserTest, Enter_TakesListEntry_WhenListIsOpen) {
    Desktop.Joystick.bPresent = false;
    Start();
    Desktop.PhysicalKey(40, true);
    Desktop.PhysicalKey(ENTER_KEY, true);
    Desktop.PhysicalKey(ENTER_KEY, false);
    ASSERT_TRUE(Modes.bListMode);
    Desktop.TakeEffects();
    Desktop.PhysicalKey(ENTER_KEY, true);
    Desktop.PhysicalKey(ENTER_KEY, false);
    EXPECT_FALSE(Modes.bListMode);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"launch \"notepad\""});
}

TEST_F(KeyboardUserTest, Enter_ClosesADialogAndRunsNoCell_WhenNoJoystickIsThere) {
    Desktop.Joystick.bPresent = false;
    Start();
    for (forms::Form* pForm :
         {static_cast<forms::Form*>(frmConfig.get()), static_cast<forms::Form*>(FrmVoice.get()),
          static_cast<forms::Form*>(frmButtonConfig.get())}) {
        pForm->Show();
        Desktop.PhysicalKey(ENTER_KEY, true);
        pForm->Unload();  // what the key does there
        Desktop.PhysicalKey(ENTER_KEY, false);
        EXPECT_EQ(Desktop.Keyboard.strTyped, L"\n") << "it went to the dialog";
        EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
        Desktop.Keyboard.strTyped.clear();
    }
}

TEST_F(KeyboardUserTest, Keys_DriveTheMap_WhileADialogIsOpenButNotActive) {
    Desktop.Joystick.bPresent = false;
    Start();
    frmConfig->Show();
    EXPECT_TRUE(Program.bDialogActive);
    Desktop.ActivateDialog(nullptr);  // the user goes to another program
    EXPECT_FALSE(Program.bDialogActive);
    Desktop.PhysicalKey(RIGHT_KEY, true);
    Desktop.PhysicalKey(RIGHT_KEY, false);
    EXPECT_EQ(Cursor.nColumn, 2);
    Desktop.ActivateDialog(frmConfig.get());
    Desktop.PhysicalKey(RIGHT_KEY, true);
    Desktop.PhysicalKey(RIGHT_KEY, false);
    EXPECT_EQ(Cursor.nColumn, 2);
    FrmVoice->Show();
    FrmVoice->Unload();
    EXPECT_FALSE(Program.bDialogActive) << "nothing goes back to the editor by itself";
    frmConfig->Show();
    EXPECT_TRUE(Program.bDialogActive);
}

TEST_F(KeyboardUserTest, Keys_GoToTheMessage_WhileADialogRefusesItsOk) {
    Desktop.Joystick.bPresent = false;
    Start();
    frmButtonConfig->SetButton(5);
    frmButtonConfig->Show();
    frmButtonConfig->OptionType.Choose(2);
    Desktop.WhileMessage = [] {
        Desktop.PhysicalKey(ENTER_KEY, true);
        EXPECT_EQ(Desktop.Keyboard.strTyped, L"\n");
    };
    frmButtonConfig->cmdOK.Click();
    EXPECT_TRUE(Program.bDialogActive);
    frmButtonConfig->Unload();
    Desktop.PhysicalKey(ENTER_KEY, false);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"\n") << "no cell was run";
    EXPECT_FALSE(Program.bMessageShown);
}

TEST_F(KeyboardUserTest, Keys_ReachTheProgramInFront_WhenJoystickIsThere) {
    Start();
    Desktop.PhysicalKey(RIGHT_KEY, true);
    Desktop.PhysicalKey(ENTER_KEY, true);
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Desktop.KeysDown(), (std::vector<int>{ENTER_KEY, RIGHT_KEY}));
    Desktop.PhysicalKey(ENTER_KEY, false);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"\n");
}

}  // namespace
}  // namespace taviro
