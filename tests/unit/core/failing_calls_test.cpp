// SPDX-License-Identifier: MIT
// The whole program while single calls of the desktop fail: it goes on, loses nothing of the user's
// and tells the log.
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "core/main_window_events.h"
#include "feedback/event_log.h"
#include "forms/main_form.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "state/cursor_state.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

using forms::FrmMain;

const std::wstring SETTINGS = DATA_PATH + L"\\setting.ini";

class FailingCalls : public ProgramTest {
  protected:
    FailingCalls() {
        PutData(L"data.ini", L"[1,1]a,65\r\n[2,1]b,66\r\n[1,2]c,67\r\n[2,2]d,68\r\n");
        PutData(L"setting.ini", OWN_SETTINGS);
    }
    static size_t CountLogged(const std::wstring& strText) {
        size_t nFound = 0;
        for (size_t n = EventLog.strLog.find(strText); n != std::wstring::npos;
             n = EventLog.strLog.find(strText, n + 1))
            ++nFound;
        return nFound;
    }
    inline static const std::wstring OWN_SETTINGS =
        L"[Info]\r\nLog=1\r\nRowWrap=0\r\n[Voice]\r\nVolume=80\r\n[Mine]\r\nNote=kept\r\n";
};

// A system that refuses one call in a whole run: the start, a move, a key, the end. Whether the
// program may run at all is asked of two of them.
TEST_F(FailingCalls, Run_GoesFromStartToEnd_WhicheverCallFails) {
    for (const std::string_view strCall : platform::headless::FallibleCalls()) {
        if (strCall == "OpenMainWindow" || strCall == "ClaimSingleInstance") continue;
        SCOPED_TRACE(strCall);
        StartAnew();
        Desktop.Failures.Clear();
        Desktop.Failures.Always(strCall);
        Main();
        EXPECT_TRUE(FrmMain->IsLoaded());
        TiltRight();
        Ticks(2);
        CentreStick();
        PressButton(0);
        Ticks(2);
        ReleaseButtons();
        FrmMain->mnuExit.Click();
        EXPECT_FALSE(FrmMain->IsLoaded());
        const std::vector<int> Down = Desktop.KeysDown();
        EXPECT_TRUE(Down.empty()) << "a key stayed down: " << Down.front();
        EXPECT_EQ(DataText(L"data.ini"), L"[1,1]a,65\r\n[2,1]b,66\r\n[1,2]c,67\r\n[2,2]d,68\r\n");
    }
}

TEST_F(FailingCalls, Settings_AreNotOverwritten_WhenTheyCouldNotBeRead) {
    Desktop.Failures.Always("ReadFileBytes", SETTINGS);
    Start();
    objSetting.Volume(60);
    FrmMain->mnuExit.Click();
    EXPECT_EQ(DataText(L"setting.ini"), OWN_SETTINGS);
}

TEST_F(FailingCalls, Settings_KeepWhatTheUserLeft_WhenTheyCouldBeReadOnlyLater) {
    Desktop.Failures.Always("ReadFileBytes", SETTINGS);
    Start();
    Desktop.Failures.Clear();
    objSetting.Volume(60);
    FrmMain->mnuExit.Click();
    EXPECT_EQ(DataText(L"setting.ini"),
              L"[Info]\r\nLog=1\r\nRowWrap=0\r\n[Voice]\r\nVolume=60\r\n[Mine]\r\nNote=kept\r\n");
}

TEST_F(FailingCalls, Settings_AreWhole_WhenThePowerGoesAfterASave) {
    Start();
    objSetting.Volume(60);
    objSetting.SaveSetting();
    const std::wstring strSaved = DataText(L"setting.ini");
    Desktop.Files.CutPower();
    EXPECT_EQ(DataText(L"setting.ini"), strSaved);
    EXPECT_NE(strSaved.find(L"Volume=60\r\n"), std::wstring::npos);
}

TEST_F(FailingCalls, ClickOnTheMap_SelectsNothing_WhenThePointersPlaceIsUnknown) {
    Start();
    Desktop.Pointer = Desktop.MainInnerCorner();
    Desktop.Pointer.nX += Program.nCellWidth + 2;
    for (const char* szCall : {"GetPointer", "ScreenToClientPoint"}) {
        Desktop.Failures.Next(szCall);
        Label2_MouseUp(forms::MouseButton::Left);
        EXPECT_EQ(Cursor.nColumn, 1) << szCall;
    }
    Label2_MouseUp(forms::MouseButton::Left);
    EXPECT_EQ(Cursor.nColumn, 2);
}

TEST_F(FailingCalls, Log_NamesAFailureOnce_WhileItRepeatsWithEveryTick) {
    Start();
    Desktop.Failures.Always("JoyGetPosEx");
    Ticks(9);
    EXPECT_EQ(CountLogged(L"Failed: JoyGetPosEx"), 1U);
    Ticks(1200);  // a device that keeps failing is asked once a second
    EXPECT_EQ(CountLogged(L"Failed: JoyGetPosEx"), 3U) << "the first, the tenth, the hundredth";
}

TEST_F(FailingCalls, Log_HasTheFailureWithItsTime_WhenLoggingIsOn) {
    Start();
    Desktop.Failures.Next("MoveFileTo");
    EXPECT_FALSE(platform::MoveFileTo(L"C:\\a", L"C:\\b"));
    EXPECT_EQ(CountLogged(L"\r\n01:59:52 Failed: MoveFileTo, error 0x80004005"), 1U);
}

TEST_F(FailingCalls, Log_StaysEmpty_WhenLoggingIsOff) {
    PutData(L"setting.ini", L"[Info]\r\nLog=0\r\n");
    Start();
    platform::ReportFailure("SetTimer", 8);
    EXPECT_EQ(EventLog.strLog, L"");
}

}  // namespace
}  // namespace taviro
