// SPDX-License-Identifier: MIT
// Shutdown: every step, in order, and what the next start finds.
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "actions/prediction.h"
#include "core/main_menu.h"
#include "core/startup.h"
#include "dialogs/about_form.h"
#include "dialogs/app_setting_form.h"
#include "dialogs/button_config_form.h"
#include "dialogs/cell_editor_form.h"
#include "dialogs/map_chooser_form.h"
#include "dialogs/voice_form.h"
#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "forms/main_form.h"
#include "tests/unit/core/startup_fixture.h"

namespace taviro {
namespace {

using forms::FrmMain;

class ShutdownTest : public StartupTest {
  protected:
    /// A running program with a dictionary, whose engine asks for one more save when it goes.
    void StartAll() {
        Main();
        InstallRecorder(L"Presager.Dict", "dictionary");
        ASSERT_TRUE(platform::CreateAutomationObject(L"Presager.Dict", Prediction.objDictionary));
        FrmMain->ScanTimer.Interval = 60000;
        FrmMain->ScanTimer.Enabled = true;
        pEngine->nRate = 5;
        Desktop.TakeEffects();
    }
};

TEST_F(ShutdownTest, Unload_TakesEveryStepInOrder_WhenUserEndsProgram) {
    StartAll();
    Desktop.At(Desktop.nNow, [] { Desktop.Record("pending message"); });
    FrmMain->mnuExit.Click();
    const Effects EXPECTED{"append to " + platform::ToUtf8(DATA_PATH) + "\\log.txt",
                           "reader released",
                           "pending message",
                           "Timer1 off",
                           "ScanTimer off",
                           "save " + SETTING_INI,
                           "engine released",
                           "keyboard hook removed",
                           "dictionary released",
                           "main window hidden"};
    EXPECT_EQ(TakeOutline(), EXPECTED);
}

// The dialogs go one after the other, the about box before the reader, the others after the timers.
TEST_F(ShutdownTest, Dialogs_GoInTheirOrder) {
    StartAll();
    const std::pair<const char*, forms::Form*> DIALOGS[] = {
        {"about", frmAbout.get()},        {"button", frmButtonConfig.get()},
        {"chooser", frmMap.get()},        {"settings", frmAppSetting.get()},
        {"cell editor", frmConfig.get()}, {"voice", FrmVoice.get()}};
    for (const auto& [szName, pForm] : DIALOGS) {
        pForm->Load();
        const auto Inner = pForm->OnUnload;
        pForm->OnUnload = [Inner, strName = std::string(szName)] {
            Desktop.Record(strName + " goes");
            if (Inner) Inner();
        };
    }
    Desktop.TakeEffects();
    FrmMain->mnuExit.Click();
    const Effects EXPECTED{"append to " + platform::ToUtf8(DATA_PATH) + "\\log.txt",
                           "about goes",
                           "reader released",
                           "Timer1 off",
                           "ScanTimer off",
                           "button goes",
                           "chooser goes",
                           "settings goes",
                           "cell editor goes",
                           "voice goes",
                           "save " + SETTING_INI,
                           "engine released",
                           "keyboard hook removed",
                           "dictionary released",
                           "main window hidden"};
    EXPECT_EQ(TakeOutline(), EXPECTED);
}

TEST_F(ShutdownTest, Settings_AreSavedLast_BeforeTheDictionaryGoes) {
    StartAll();
    const auto pUnload = FrmVoice->OnUnload;
    FrmVoice->OnUnload = [pUnload] {
        pUnload();
        objSetting.Pitch(7);  // so that the last save has something to write
    };
    FrmMain->mnuExit.Click();
    Effects Done = TakeOutline();
    Done.erase(Done.begin(), std::find(Done.begin(), Done.end(), "engine released"));
    EXPECT_EQ(Done, (Effects{"engine released", "keyboard hook removed", "save " + SETTING_INI,
                             "dictionary released", "main window hidden"}));
    EXPECT_NE(DataText(L"setting.ini").find(L"Pitch=7\r\n"), std::wstring::npos);
}

TEST_F(ShutdownTest, Log_StoresItsStateFirst_WhenProgramEnds) {
    StartAll();
    FrmMain->mnuExit.Click();
    EXPECT_NE(DataText(L"setting.ini").find(L"Log=1\r\n"), std::wstring::npos);
    EXPECT_TRUE(Desktop.Files.FileExists(DATA_PATH + L"\\log.txt"));
}

TEST_F(ShutdownTest, Unload_LetsNoMessagesRun_WhenThereIsNoReader) {
    Desktop.Classes.erase(L"Parlex.app");
    StartAll();
    bool bRan = false;
    Desktop.At(Desktop.nNow, [&] { bRan = true; });
    FrmMain->mnuExit.Click();
    EXPECT_FALSE(bRan);
}

TEST_F(ShutdownTest, Unload_HappensOnce_WhenAskedAgain) {
    StartAll();
    FrmMain->mnuExit.Click();
    Desktop.TakeEffects();
    UnloadForm(*FrmMain);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(ShutdownTest, Speech_StaysSilent_WhenSomethingSpeaksAfterTheEnd) {
    StartAll();
    FrmMain->mnuExit.Click();
    Desktop.TakeEffects();
    SpeakIt(L"a");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    EXPECT_FALSE(FrmVoice->IsLoaded());
}

TEST_F(ShutdownTest, Steps_AreTaken_WhenFilesCannotBeWritten) {
    StartAll();
    Desktop.Files.nFreeBytes = 0;
    FrmMain->mnuExit.Click();
    const Effects Done = TakeOutline();
    EXPECT_EQ(Done.front(), "cannot append to " + platform::ToUtf8(DATA_PATH) + "\\log.txt");
    EXPECT_EQ(Done.back(), "main window hidden");
    EXPECT_NE(std::find(Done.begin(), Done.end(), "keyboard hook removed"), Done.end());
    EXPECT_NE(std::find(Done.begin(), Done.end(), "dictionary released"), Done.end());
}

TEST_F(ShutdownTest, NextStart_FindsWhatWasStored_WhenProgramEnded) {
    StartAll();
    objSetting.CellWidth(90);
    FrmMain->mnuExit.Click();
    StartAnew();
    Main();
    EXPECT_EQ(Program.nCellWidth, 90);
    EXPECT_EQ(objSetting.Rate(), 5);
    EXPECT_TRUE(EventLog.bLog);
}

}  // namespace
}  // namespace taviro
