// SPDX-License-Identifier: MIT
// What each entry of the main menu does.
#include "core/main_menu.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "dialogs/about_form.h"
#include "dialogs/app_setting_form.h"
#include "dialogs/button_config_form.h"
#include "dialogs/cell_editor_form.h"
#include "dialogs/map_chooser_form.h"
#include "dialogs/voice_form.h"
#include "feedback/event_log.h"
#include "forms/main_form.h"
#include "state/cursor_state.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

using forms::FrmMain;

class MainMenuTest : public ProgramTest {
  protected:
    MainMenuTest() {
        PutData(L"data.ini", L"[1,1]a,65\r\n[2,1]b,66\r\n");
        Start();
    }
    // The showing and hiding of dialogs, without what they say and do.
    static Effects TakeShowings() {
        Effects Showings;
        for (std::string& strEffect : Desktop.TakeEffects()) {
            const bool bDialog = strEffect.starts_with("frm") || strEffect.starts_with("Frm");
            if (bDialog) Showings.push_back(std::move(strEffect));
        }
        return Showings;
    }
};

struct Opening {
    const char* szName;
    forms::MenuEntry* (*Entry)();
    const char* szShown;
};
const Opening OPENINGS[] = {
    {"OpenMap", [] { return &FrmMain->mnuOpenMap; }, "frmMap shown"},
    {"Settings", [] { return &FrmMain->mnuSettings; }, "frmConfig shown, modal"},
    {"SettingApp", [] { return &FrmMain->mnuSettingApp; }, "frmAppSetting shown, modal"},
    {"Voice", [] { return &FrmMain->mnuVoice; }, "FrmVoice shown"},
    {"About", [] { return &FrmMain->mnuAbout; }, "frmAbout shown, modal"},
};

class OpeningEntry : public MainMenuTest, public ::testing::WithParamInterface<Opening> {};

TEST_P(OpeningEntry, ShowsItsDialog_ModalOrNot) {
    forms::MenuEntry& Entry = *GetParam().Entry();
    EXPECT_TRUE(Entry.Enabled);
    Entry.Click();
    EXPECT_EQ(TakeShowings(), Effects{GetParam().szShown});
}

INSTANTIATE_TEST_SUITE_P(All, OpeningEntry, ::testing::ValuesIn(OPENINGS),
                         [](const auto& Info) { return std::string(Info.param.szName); });

TEST_F(MainMenuTest, Exit_RunsTheShutdown) {
    FrmMain->mnuExit.Click();
    EXPECT_FALSE(FrmMain->IsLoaded());
    EXPECT_EQ(Desktop.Keyboard.hHook, 0U);
    EXPECT_TRUE(Desktop.Files.FileExists(DATA_PATH + L"\\setting.ini"));
}

TEST_F(MainMenuTest, Exit_ClosesAllDialogsInTheirOrder_WhenTheyAreOpen) {
    frmConfig->Show();
    frmAppSetting->Show();
    FrmVoice->Show();
    frmMap->Show();
    frmButtonConfig->Show();
    frmAbout->Show();
    Desktop.TakeEffects();
    FrmMain->mnuExit.Click();
    EXPECT_EQ(TakeShowings(),
              (Effects{"frmAbout hidden", "frmButtonConfig hidden", "frmMap hidden",
                       "frmAppSetting hidden", "frmConfig hidden", "FrmVoice hidden"}));
}

TEST_F(MainMenuTest, Log_TurnsItsMarkAndTheLog) {
    FrmMain->mnuLog.Click();
    EXPECT_TRUE(FrmMain->mnuLog.Checked);
    EXPECT_TRUE(EventLog.bLog);
    FrmMain->mnuLog.Click();
    EXPECT_FALSE(FrmMain->mnuLog.Checked);
    EXPECT_FALSE(EventLog.bLog);
}

TEST_F(MainMenuTest, Help_OpensThePageOfTheProgramFolder) {
    FrmMain->mnuHelpOpen.Click();
    EXPECT_EQ(Desktop.TakeEffects(),
              Effects{"launch \"C:\\Program Files\\Taviro\\help\\taviro.htm\" verb Open"});
}

TEST_F(MainMenuTest, SendTestKey_TypesTheLetterA) {
    SendTestKey();
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"A");
    EXPECT_TRUE(Desktop.KeysDown().empty());
}

TEST_F(MainMenuTest, RightClick_SelectsTheCellAndOpensItsEditor) {
    Desktop.Pointer = Desktop.MainInnerCorner();
    Desktop.Pointer.nX += Program.nCellWidth + 10;
    FrmMain->Label2.OnMouseUp(forms::MouseButton::Right);
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(frmConfig->Text4.Text.Get(), L"b");
    EXPECT_FALSE(frmConfig->IsModal());
    EXPECT_EQ(TakeShowings(), Effects{"frmConfig shown"});
    EXPECT_TRUE(Desktop.Sent.empty());
}

}  // namespace
}  // namespace taviro
