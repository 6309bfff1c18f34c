// SPDX-License-Identifier: MIT
// Start-up: every step, in order, and what is left when one of them fails.
#include "core/startup.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "actions/prediction.h"
#include "core/main_menu.h"
#include "dialogs/voice_form.h"
#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "forms/main_form.h"
#include "input/joystick_reader.h"
#include "input/keyboard_hook.h"
#include "maps/key_names.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/core/startup_fixture.h"

namespace taviro {
namespace {

using forms::FrmMain;

const Effects STARTED{
    "create folder C:\\Users\\Jana\\AppData\\Roaming\\Nordane",
    "create folder C:\\Users\\Jana\\AppData\\Roaming\\Nordane\\Corvela",
    "create folder C:\\Users\\Jana\\AppData\\Roaming\\Nordane\\Corvela\\v2.2",
    "create folder C:\\Users\\Jana\\AppData\\Roaming\\Nordane\\Corvela\\v2.2\\taviro",
    ("copy C:\\Program Files\\Taviro\\data\\*.* to "
     "C:\\Users\\Jana\\AppData\\Roaming\\Nordane\\Corvela\\v2.2\\taviro"),
    "list hidden",
    "reader created",
    "engine created",
    "Voice = \"Zuzana\"",  // by its name, and again as its entry in the form's list is selected
    "Voice = \"Zuzana\"",
    "Rate = 0",  // and again as its bar finds its place; so with the volume
    "Rate = 0",
    Said("50"),
    "Volume = 50",
    "Volume = 50",
    Said("50"),
    Said("50"),  // the pitch's bar
    "Timer1 on",
    "keyboard hook installed",
    "status A",
    "caption Taviro - A",
    "mnuLog ticked",
    "main window shown",
};

TEST_F(StartupTest, Main_TakesEveryStepInOrder_WhenFirstStarted) {
    Cursor.nColumn = Cursor.nRow = Cursor.nLastColumn = Cursor.nLastRow = 7;
    Main();
    EXPECT_EQ(Desktop.TakeEffects(), STARTED);
    EXPECT_EQ(Program.strDataPath, DATA_PATH);
    EXPECT_TRUE(Program.bJoystickPresent);
    EXPECT_TRUE(IsHooked());
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Cursor.nRow, 1);
    EXPECT_EQ(Cursor.nLastColumn, 1);
    EXPECT_EQ(Cursor.nLastRow, 1);
    EXPECT_EQ(FrmMain->HiIndex, 1);
    EXPECT_EQ(EventLog.strLog.substr(0, 18), L"16.11.2026 1:59:52");
    EXPECT_FALSE(FrmVoice->Visible);
}

// What stands between two visible steps: asked at the moment of the later one.
TEST_F(StartupTest, Settings_AreRead_BeforeTheSpeechObjectsAreMade) {
    const auto Inner = Desktop.Classes[L"Parlex.app"];
    int nAsked = 0;
    Desktop.Classes[L"Parlex.app"] = [&] {
        ++nAsked;
        EXPECT_EQ(objSetting.VoiceName(), L"Zuzana");
        EXPECT_EQ(Program.nCellTextSize, 9);
        EXPECT_EQ(Program.nCellWidth, 61);
        EXPECT_EQ(Program.nCellHeight, 17);
        EXPECT_EQ(CommonMap.Cell(1, 1)->Caption, L"") << "the map comes later";
        return Inner();
    };
    Main();
    EXPECT_EQ(nAsked, 1);
}

TEST_F(StartupTest, Reader_IsThere_BeforeTheVoiceFormLoads) {
    const auto Inner = Desktop.Classes[L"SAPI.SpVoice"];
    int nAsked = 0;
    Desktop.Classes[L"SAPI.SpVoice"] = [&] {
        ++nAsked;
        EXPECT_NE(Speech.objSpeechReader, nullptr);
        EXPECT_EQ(CommonMap.Cell(1, 1)->Caption, L"") << "the map comes later";
        EXPECT_EQ(Desktop.Joystick.nReads, 0U);
        return Inner();
    };
    Main();
    EXPECT_EQ(nAsked, 1);
}

TEST_F(StartupTest, MapIsLoadedAndJoystickOpen_BeforeTheHookIsInstalled) {
    bool bAsked = false;
    const auto View = FrmMain->OnShowChange;
    FrmMain->OnShowChange = [&](forms::Control& Changed, forms::Aspect nAspect) {
        if (&Changed == &FrmMain->Timer1 && nAspect == forms::Aspect::Enabled) {
            bAsked = true;
            EXPECT_EQ(CommonMap.Cell(1, 2)->Caption, L"C");
            EXPECT_EQ(Desktop.Joystick.nReads, 1U);
            EXPECT_EQ(Joystick.nJoyId, 0U);
            EXPECT_FALSE(IsHooked());
        }
        View(Changed, nAspect);
    };
    Main();
    EXPECT_TRUE(bAsked);
}

TEST_F(StartupTest, KeyNames_AreBuilt_BetweenTheMapAndTheLog) {
    bool bMap = false, bLog = false;
    const auto View = FrmMain->OnShowChange;
    FrmMain->OnShowChange = [&](forms::Control& Changed, forms::Aspect nAspect) {
        if (FrmMain->IsFrame(Changed) && nAspect == forms::Aspect::Text) {
            bMap = true;
            EXPECT_TRUE(KeyTable[0].Name.empty());
        }
        if (&Changed == &FrmMain->mnuLog && nAspect == forms::Aspect::Checked) {
            bLog = true;
            EXPECT_FALSE(KeyTable[0].Name.empty());
            EXPECT_FALSE(KeyTable[KEY_NAME_COUNT - 1].Name.empty());
        }
        View(Changed, nAspect);
    };
    Main();
    EXPECT_TRUE(bMap);
    EXPECT_TRUE(bLog);
}

TEST_F(StartupTest, Speech_BringsTheVoiceBack_WhenItsFormWasUnloaded) {
    Main();
    FrmVoice->Unload();
    Desktop.TakeEffects();
    SpeakIt(L"a");
    EXPECT_TRUE(FrmVoice->IsLoaded());
    const Effects Done = Desktop.TakeEffects();
    EXPECT_NE(std::find(Done.begin(), Done.end(), Said("a")), Done.end());
}

TEST_F(StartupTest, Main_EndsSilently_WhenAnotherInstanceRuns) {
    Desktop.bOtherInstance = true;
    Main();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    EXPECT_TRUE(Desktop.bQuit);
    EXPECT_FALSE(FrmMain->IsLoaded());
    EXPECT_FALSE(FrmMain->Visible);
    EXPECT_FALSE(Desktop.Files.FolderExists(DATA_PATH));
    EXPECT_TRUE(Desktop.FolderOwners.empty());
}

TEST_F(StartupTest, Joystick_DrivesNothingButMenuWorks_WhenNoneIsAttached) {
    Desktop.Joystick.bPresent = false;
    FrmMain->ScanTimer.Enabled = true;
    Main();
    EXPECT_FALSE(Program.bJoystickPresent);
    EXPECT_FALSE(FrmMain->Timer1.Enabled);
    EXPECT_FALSE(FrmMain->ScanTimer.Enabled);
    EXPECT_TRUE(FrmMain->Visible);
    EXPECT_EQ(FrmMain->Label1.Caption.Get(), L"A");
    Desktop.Joystick.bPresent = true;  // plugged in too late for the poll loop
    TiltRight();
    Desktop.RunFor(1000);
    EXPECT_EQ(Cursor.nColumn, 1);
    FrmMain->mnuLog.Click();
    EXPECT_FALSE(EventLog.bLog);
    FrmMain->mnuExit.Click();
    EXPECT_FALSE(FrmMain->IsLoaded());
}

TEST_F(StartupTest, Joystick_DrivesMap_WhenItIsAttached) {
    Main();
    TiltRight();
    Desktop.RunFor(99);
    EXPECT_EQ(Cursor.nColumn, 1);
    Desktop.RunFor(1);
    EXPECT_EQ(Cursor.nColumn, 2);
}

struct FailureCase {
    const char* szName;
    void (*Break)();
    bool bHooked = true;
};

// Whatever is missing, the program starts and its window comes up.
const FailureCase FAILURES[] = {
    {"NoReader", [] { Desktop.Classes.erase(L"Parlex.app"); }},
    {"NoEngine", [] { Desktop.Classes.erase(L"SAPI.SpVoice"); }},
    {"NoHook", [] { Desktop.Failures.Always("InstallHook"); }, false},
    {"NoJoystick", [] { Desktop.Joystick.bPresent = false; }},
    {"DeadJoystick", [] { Desktop.Joystick.nX = Desktop.Joystick.nY = 0; }},
    {"NoDataFolder", [] { Desktop.SpecialFolders.clear(); }},
    {"FullDisk", [] { Desktop.Files.nFreeBytes = 0; }},
    {"NoSeeds", [] { Desktop.strProgramFolder = L"D:\\Elsewhere"; }},
    {"LockedSettings",
     [] {
         Desktop.Files.Put(DATA_PATH + L"\\setting.ini", "[Info]\r\nLog=1\r\n");
         Desktop.Files.Lock(DATA_PATH + L"\\setting.ini");
     }},
    {"MapIsGarbage",
     [] { Desktop.Files.Put(SEEDS + L"data.ini", std::string("\0\xFF,,[[]9,9", 10)); }},
};

class StartupFailure : public StartupTest, public ::testing::WithParamInterface<FailureCase> {};

TEST_P(StartupFailure, LeavesARunningProgramThatEndsCleanly) {
    GetParam().Break();
    Main();
    EXPECT_TRUE(FrmMain->IsLoaded());
    EXPECT_TRUE(FrmMain->Visible);
    EXPECT_FALSE(KeyTable[0].Name.empty()) << "the steps after the failure were taken";
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(IsHooked(), GetParam().bHooked);
    EXPECT_EQ(FrmMain->Timer1.Enabled, Program.bJoystickPresent);
    TiltRight();
    Ticks(3);
    SpeakIt(L"a");
    FrmMain->mnuExit.Click();
    EXPECT_FALSE(FrmMain->IsLoaded());
    EXPECT_FALSE(FrmMain->Timer1.Enabled);
    EXPECT_FALSE(IsHooked());
}

INSTANTIATE_TEST_SUITE_P(All, StartupFailure, ::testing::ValuesIn(FAILURES),
                         [](const auto& Info) { return std::string(Info.param.szName); });

}  // namespace
}  // namespace taviro
