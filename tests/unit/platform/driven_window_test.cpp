// SPDX-License-Identifier: MIT
// The program that the user drives has the focus again after each menu, dialog and message of ours,
// though the virtual desktop, as Windows, leaves the focus where they took it.
#include "platform/driven_window.h"

#include <gtest/gtest.h>

#include "dialogs/about_form.h"
#include "dialogs/button_config_form.h"
#include "dialogs/cell_editor_form.h"
#include "dialogs/voice_form.h"
#include "platform/dialogs.h"
#include "platform/main_window.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

using platform::MainWindowHandle;
using platform::WindowHandle;

constexpr WindowHandle EDITOR = 5;
constexpr WindowHandle BROWSER = 6;
constexpr WindowHandle TASKBAR = 7;

class DrivenWindowTest : public ProgramTest {
  protected:
    DrivenWindowTest() {
        Desktop.Windows = {{.hWindow = EDITOR, .strTitle = L"Editor"},
                           {.hWindow = BROWSER, .strTitle = L"Browser"},
                           {.hWindow = TASKBAR, .strClass = L"Shell_TrayWnd"}};
        Desktop.hForeground = EDITOR;
        Start();
    }
};

TEST_F(DrivenWindowTest, Editor_IsInFrontAgain_AfterAMenuWithoutAChoice) {
    Desktop.OpenMenu(nullptr);
    EXPECT_EQ(Desktop.hForeground, EDITOR);
}

TEST_F(DrivenWindowTest, Editor_IsInFrontAgain_AfterADialogOfTheMenu) {
    Desktop.OpenMenu(&forms::FrmMain->mnuAbout);
    EXPECT_NE(Desktop.hForeground, EDITOR) << "the dialog has the focus";
    EXPECT_NE(Desktop.hForeground, MainWindowHandle());
    frmAbout->Unload();
    EXPECT_EQ(Desktop.hForeground, EDITOR);
}

TEST_F(DrivenWindowTest, Dialog_KeepsTheFocus_UntilTheLastOneHasGone) {
    frmConfig->Show();
    const WindowHandle hBelow = Desktop.hForeground;
    FrmVoice->Show();
    FrmVoice->Unload();
    EXPECT_NE(Desktop.hForeground, EDITOR);
    Desktop.hForeground = hBelow;  // the user goes back to it
    frmConfig->Unload();
    EXPECT_EQ(Desktop.hForeground, EDITOR);
}

TEST_F(DrivenWindowTest, Editor_IsInFrontAgain_AfterAMessage) {
    platform::ShowInformation(L"text", L"titulek");
    EXPECT_EQ(Desktop.hForeground, EDITOR);
}

TEST_F(DrivenWindowTest, Dialog_HasTheFocusAgain_AfterItsMessage) {
    frmButtonConfig->SetButton(5);
    frmButtonConfig->Show();
    const WindowHandle hDialog = Desktop.hForeground;
    platform::ShowInformation(L"text", L"titulek");
    EXPECT_EQ(Desktop.hForeground, hDialog);
}

TEST_F(DrivenWindowTest, OtherProgram_KeepsTheFocus_WhenTheUserWentThereMeanwhile) {
    FrmVoice->Show();
    Desktop.ActivateDialog(nullptr);
    Desktop.hForeground = BROWSER;
    FrmVoice->Unload();
    EXPECT_EQ(Desktop.hForeground, BROWSER);
}

TEST_F(DrivenWindowTest, Focus_GoesToTheProgramOfTheLastTime_AndNeverToTheTaskbar) {
    Desktop.hForeground = BROWSER;
    Desktop.Driven.Note();
    Desktop.hForeground = TASKBAR;
    Desktop.OpenMenu(nullptr);
    EXPECT_EQ(Desktop.hForeground, BROWSER);
}

TEST_F(DrivenWindowTest, Focus_GoesToTheDrivenProgram_WhenNobodyHasIt) {
    Desktop.Driven.Note();
    Desktop.hForeground = 0;
    Desktop.Driven.ReturnFrom(MainWindowHandle());
    EXPECT_EQ(Desktop.hForeground, EDITOR);
}

TEST_F(DrivenWindowTest, NothingIsTried_WhenTheDrivenProgramHasClosed) {
    Desktop.Driven.Note();
    Desktop.Windows.front().bGone = true;
    Desktop.hForeground = MainWindowHandle();
    Desktop.TakeEffects();
    Desktop.DebuggerLines.clear();
    Desktop.Driven.ReturnFrom(MainWindowHandle());
    EXPECT_EQ(Desktop.hForeground, MainWindowHandle());
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    EXPECT_TRUE(Desktop.DebuggerLines.empty()) << "a program that has closed is no failure";
}

}  // namespace
}  // namespace taviro
