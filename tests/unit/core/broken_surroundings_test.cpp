// SPDX-License-Identifier: MIT
// What the user meets when something around the program breaks: a voice, the dictionary, the log
// file, the program in front. The map must go on working in every case.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "actions/foreground_watch.h"
#include "actions/prediction.h"
#include "core/cursor_movement.h"
#include "core/poll_loop.h"
#include "dialogs/voice_form.h"
#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/automation_stand_ins.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

constexpr const wchar_t* SPEECH_ENGINE = L"SAPI.SpVoice";

// A server that answers so many calls and then hangs up for good.
AutomationObject MakeFailing(int nAnswered) {
    auto pLeft = std::make_shared<int>(nAnswered);
    return platform::headless::MakeObject(
        [pLeft](MemberUse, const std::wstring& strMember, auto, AutomationValue&) {
            if (*pLeft == 0) return false;
            --*pLeft;
            Desktop.Record("answered " + platform::ToUtf8(strMember));
            return true;
        });
}

class BrokenSurroundings : public ProgramTest {
  protected:
    BrokenSurroundings() {
        PutData(L"data.ini", L"[1,1]a,65\r\n[2,1]b,66\r\n[3,1]c,67\r\n[1,2]d,68\r\n");
        PutData(L"setting.ini", L"[Info]\r\nLog=1\r\n");
    }
    ~BrokenSurroundings() override { Speech = {}; }

    /// One cell to the right by the stick, then its key.
    static void MoveAndPress() {
        TiltRight();
        Ticks(1);
        CentreStick();
        PressButton(0);
        Ticks(1);
        ReleaseButtons();
        Ticks(1);
    }
    static void ExpectMapWorks() {
        const int32_t nColumn = Cursor.nColumn;
        const std::wstring strTyped = Desktop.Keyboard.strTyped;
        const std::wstring strLog = EventLog.strLog;
        MoveAndPress();
        std::wstring strCell;
        CellText(nColumn + 1, 1, strCell);
        EXPECT_EQ(Cursor.nColumn, nColumn + 1);
        EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), strCell);
        EXPECT_EQ(Desktop.Keyboard.strTyped, strTyped + strCell);
        EXPECT_EQ(EventLog.strLog.substr(strLog.size()),
                  L"\r\n" + EventLog.strLog.substr(strLog.size() + 2, 8) + L" Say: " + strCell +
                      L"\r\n" + EventLog.strLog.substr(EventLog.strLog.size() - 14, 8) + L" Say: ")
            << "the log tells what would have been said";
    }
};

TEST_F(BrokenSurroundings, Map_GoesOnInSilence_WhenTheVoiceFailsFromTheStart) {
    Desktop.Classes[SPEECH_ENGINE] = [] { return MakeFailing(0); };
    Start();
    ExpectMapWorks();
    ExpectMapWorks();
}

TEST_F(BrokenSurroundings, Map_GoesOnInSilence_WhenTheVoiceHangsUpAtAnyCall) {
    for (int nAnswered = 0; nAnswered <= 6; ++nAnswered) {
        SCOPED_TRACE(nAnswered);
        StartAnew();
        Speech = {};
        Cursor = {};
        Desktop.Classes[SPEECH_ENGINE] = [nAnswered] { return MakeFailing(nAnswered); };
        Start();
        ExpectMapWorks();
        ExpectMapWorks();
        forms::FrmMain->mnuExit.Click();
    }
}

TEST_F(BrokenSurroundings, Voice_IsHeardUntilItHangsUp_AndNeverAskedForAgain) {
    int nCreated = 0;
    Desktop.Classes[SPEECH_ENGINE] = [&] {
        ++nCreated;
        return MakeFailing(1 << 10);
    };
    Start();
    SpeakIt(L"a");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"answered Speak"});
    Speech.objVoice = MakeFailing(1);
    SpeakIt(L"b");
    SpeakIt(L"c");
    SpeakIt(L"d", true);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"answered Speak"});
    EXPECT_EQ(nCreated, 1) << "the engine is made once";
}

TEST_F(BrokenSurroundings, Map_GoesOnInSilence_WhenTheVoiceDisappears) {
    InstallEngine();
    Start();
    Desktop.Classes.clear();  // taken off the system in the run
    FrmVoice->Unload();
    SpeakIt(L"");  // loads the form again, which finds no engine
    EXPECT_EQ(Speech.objVoice, nullptr);
    ExpectMapWorks();
}

TEST_F(BrokenSurroundings, Map_GoesOnInSilence_WhenTheReaderHangsUp) {
    PutData(L"setting.ini", L"[Info]\r\nLog=1\r\n[Voice]\r\nName=Kestrel\r\n");
    Desktop.Classes[L"Parlex.app"] = [] { return MakeFailing(1 << 10); };
    Start();
    Desktop.TakeEffects();
    SpeakIt(L"a");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"answered Sayit"});
    Speech.objSpeechReader = MakeFailing(0);
    ExpectMapWorks();
}

TEST_F(BrokenSurroundings, Speech_GoesOn_WhenTheHostRelayHangsUp) {
    InstallEngine();
    Start();
    Desktop.Windows = {{77, L"HOSTWATCH", L"ThunderRT6Main", 1, 1}};
    Desktop.Classes[L"Relayer.Voice"] = [] { return MakeFailing(0); };
    Desktop.TakeEffects();
    SpeakIt(L"a");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{Said("a")});
}

TEST_F(BrokenSurroundings, Search_EndsAtAVoiceThatCannotBeAsked_AndKeepsTheCurrentOne) {
    const auto pEngine = InstallEngine();
    pEngine->Voices = {L"Jana", L"", L"Zuzana"};
    pEngine->nBrokenToken = 1;
    PutData(L"setting.ini", L"[Voice]\r\nName=Zuzana\r\n");
    PrepareBare();
    ASSERT_TRUE(platform::CreateAutomationObject(SPEECH_ENGINE, Speech.objVoice));
    Desktop.TakeEffects();
    CheckSAPI();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    objSetting.VoiceName(L"Jana");
    CheckSAPI();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"Voice = \"Jana\""});
}

TEST_F(BrokenSurroundings, Typing_GoesOnWithoutOffers_WhenTheDictionaryHangsUp) {
    Desktop.Classes[L"Presager.Dict"] = [] { return MakeFailing(1); };
    Start();
    ExpectMapWorks();
    ExpectMapWorks();
    EXPECT_EQ(Prediction.strPrefix, L"bc");
    EXPECT_NE(Prediction.objDictionary, nullptr) << "kept for the whole run";
    EXPECT_FALSE(Modes.bListMode);
}

TEST_F(BrokenSurroundings, Run_GoesOnAndEnds_WhenTheLogFileIsHeldThroughout) {
    InstallEngine();
    PutData(L"log.txt", L"old\r\n");
    Desktop.Files.Lock(DATA_PATH + L"\\log.txt");
    Start();
    ExpectMapWorks();
    forms::FrmMain->mnuLog.Click();
    MoveAndPress();
    EXPECT_EQ(Cursor.nColumn, 3);
    forms::FrmMain->mnuExit.Click();
    Desktop.Files.Lock(DATA_PATH + L"\\log.txt", false);
    EXPECT_EQ(DataText(L"log.txt"), L"old\r\n");
    EXPECT_NE(DataText(L"setting.ini").find(L"Log=0"), std::wstring::npos);
}

// In application mode, over an editor with a map of its own, another window comes to the front.
struct FrontCase {
    const char* szName;
    platform::headless::VirtualWindow Window;
    platform::ProcessEntry Process;
};

TEST_F(BrokenSurroundings, ApplicationMode_EndsInSelection_WhenTheProgramInFrontCannotBeNamed) {
    const FrontCase CASES[] = {
        {"process ended before it was looked up", {60, L"Gone", L"", 600, 700}, {1, L"x.exe"}},
        {"window ended before it was asked", {61, L"Gone", L"", 0, 0}, {1, L"x.exe"}},
        {"process that may not be opened", {62, L"Guard", L"", 4, 5}, {4, L"System"}},
        {"process without a file name", {63, L"Hidden", L"", 8, 9}, {8, L""}},
    };
    PutData(L"data_EDITOR.EXE.ini", L"[1,1]X,88\r\n[2,1]Y,89\r\n");
    for (const FrontCase& Case : CASES) {
        SCOPED_TRACE(Case.szName);
        StartAnew();
        Desktop.Windows = {{50, L"Text", L"", 500, 600}, Case.Window};
        Desktop.Processes = {{500, L"C:\\Apps\\Editor.exe"}, Case.Process};
        Desktop.hForeground = 50;
        Start();
        Modes.Set(Mode::Application);
        Ticks(1);
        ASSERT_TRUE(Foreground.bAppMapShown);
        Desktop.hForeground = Case.Window.hWindow;
        Ticks(1);
        EXPECT_TRUE(Modes.bSelectMode);
        EXPECT_FALSE(Foreground.bAppMapShown);
        EXPECT_EQ(Foreground.strCurrentAppName, L"");
        ExpectMapWorks();
    }
}

TEST_F(BrokenSurroundings, ApplicationMode_ShowsTheMap_WhenTheProcessMayNotBeOpened) {
    // The name is the snapshot's alone, so a program with higher rights has its map as well.
    PutData(L"data_SETUP.EXE.ini", L"[1,1]X,88\r\n");
    Desktop.Windows = {{62, L"Guard", L"", 4, 5}};
    Desktop.Processes = {{4, L"setup.exe"}};
    Desktop.hForeground = 62;
    Start();
    Modes.Set(Mode::Application);
    Ticks(1);
    EXPECT_TRUE(Foreground.bAppMapShown);
    EXPECT_EQ(Foreground.strCurrentAppName, L"SETUP.EXE");
}

TEST_F(BrokenSurroundings, CursorBeyondAFullRow_ComesBackByTheStick) {
    std::wstring strMap;
    for (int n = 1; n <= 40; ++n)
        strMap += L"[" + std::to_wstring(n) + L",1]x" + std::to_wstring(n) + L",65\r\n";
    PutData(L"data.ini", strMap);
    Start();
    Cursor.nColumn = 40;
    MoveAndPress();
    EXPECT_EQ(Cursor.nColumn, 41);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"") << "there is no cell to press";
    TiltLeft();
    Ticks(1);
    EXPECT_EQ(Cursor.nColumn, 40);
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"x40");
}

}  // namespace
}  // namespace taviro
