// SPDX-License-Identifier: MIT
// The event log: its lines, when it reaches the file, and what the next run finds.
#include "feedback/event_log.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "feedback/speech.h"
#include "forms/main_form.h"
#include "platform/clock.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

const std::wstring LOG_FILE = DATA_PATH + L"\\log.txt";

// The virtual clock starts at 1:59:52.
class EventLogTest : public ProgramTest {
  protected:
    EventLogTest() { PrepareBare(); }
    static bool HasFile() { return Desktop.Files.FileExists(LOG_FILE); }
};

TEST_F(EventLogTest, LogEvent_DoesNothing_WhenLoggingIsOff) {
    LogEvent(L"AppMode set");
    EXPECT_EQ(EventLog.strLog, L"");
}

TEST_F(EventLogTest, LogEvent_AddsLineWithTwoDigitTime_WhenLoggingIsOn) {
    StartLog();
    LogEvent(L"Arrow right");
    platform::SleepMs(8000);
    LogEvent(L"Arrow left");
    EXPECT_EQ(EventLog.strLog,
              L"16.11.2026 1:59:52\r\n01:59:52 Arrow right\r\n02:00:00 Arrow left");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{}) << "a line never writes the file";
}

TEST_F(EventLogTest, LogEvent_Counts24Hours_WhenAfternoon) {
    EventLog.bLog = true;
    platform::SleepMs(12 * 3600 * 1000);
    LogEvent(L"x");
    EXPECT_EQ(EventLog.strLog, L"\r\n13:59:52 x");
}

TEST_F(EventLogTest, LogEvent_AddsLine_WhenTextIsEmpty) {
    EventLog.bLog = true;
    LogEvent(L"");
    EXPECT_EQ(EventLog.strLog, L"\r\n01:59:52 ");
}

TEST_F(EventLogTest, MenuEntry_StartsBufferAnewAndTicks_WhenSwitchedOn) {
    EventLog.strLog = L"from before";
    forms::FrmMain->mnuLog.Click();
    EXPECT_TRUE(EventLog.bLog);
    EXPECT_TRUE(forms::FrmMain->mnuLog.Checked);
    EXPECT_EQ(EventLog.strLog, L"16.11.2026 1:59:52");
    EXPECT_FALSE(HasFile());
}

TEST_F(EventLogTest, MenuEntry_WritesBlockAndKeepsBuffer_WhenSwitchedOff) {
    forms::FrmMain->mnuLog.Click();
    LogEvent(L"ScanMode set");
    forms::FrmMain->mnuLog.Click();
    EXPECT_FALSE(EventLog.bLog);
    EXPECT_FALSE(forms::FrmMain->mnuLog.Checked);
    EXPECT_EQ(DataText(L"log.txt"), L"16.11.2026 1:59:52\r\n01:59:52 ScanMode set\r\n");
    EXPECT_EQ(EventLog.strLog, L"16.11.2026 1:59:52\r\n01:59:52 ScanMode set");
}

TEST_F(EventLogTest, FlushLog_WritesNothing_WhenBufferIsEmpty) {
    EventLog.bLog = true;
    FlushLog();
    EXPECT_FALSE(HasFile());
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(EventLogTest, FlushLog_AppendsOnly_WhenFileHoldsOlderBlocks) {
    PutData(L"log.txt", L"old\r\n");
    EventLog.strLog = L"new";
    FlushLog();
    EXPECT_EQ(DataText(L"log.txt"), L"old\r\nnew\r\n");
}

TEST_F(EventLogTest, FlushLog_WritesCzechAsEightBit_WhenTextHasAccents) {
    EventLog.strLog = L"Say: Výběr";
    FlushLog();
    std::string strBytes;
    ASSERT_TRUE(Desktop.Files.Read(LOG_FILE, strBytes));
    EXPECT_EQ(strBytes,
              "Say: V\xFD"
              "b\xEC"
              "r\r\n");
}

struct FailureCase {
    const char* szName;
    void (*Break)();
};

TEST_F(EventLogTest, FlushLog_LeavesFileAndBuffer_WhenWritingFails) {
    const FailureCase CASES[] = {
        {"held by another program", [] { Desktop.Files.Lock(LOG_FILE); }},
        {"read-only", [] { Desktop.Files.SetReadOnly(LOG_FILE); }},
        {"disk full", [] { Desktop.Files.nFreeBytes = 3; }},
    };
    for (const FailureCase& Case : CASES) {
        Desktop.Files = {};
        PutData(L"log.txt", L"old\r\n");
        Case.Break();
        EventLog.strLog = L"new";
        FlushLog();
        Desktop.Files.Lock(LOG_FILE, false);
        EXPECT_EQ(DataText(L"log.txt"), L"old\r\n") << Case.szName;
        EXPECT_EQ(EventLog.strLog, L"new") << Case.szName;
    }
}

// Whole runs of the program, from start to end.
class LoggedRunTest : public ProgramTest {
  protected:
    static void StartWithLog(const std::wstring& strValue) {
        PutData(L"data.ini", L"[1,1]A,65\r\n");
        PutData(L"setting.ini", L"[Info]\r\nLog=" + strValue + L"\r\n");
        Start();
    }
    static void End() { forms::FrmMain->mnuExit.Click(); }
    static bool SettingsHold(const std::wstring& strLine) {
        return DataText(L"setting.ini").find(strLine + L"\r\n") != std::wstring::npos;
    }
};

TEST_F(LoggedRunTest, Run_WritesOneBlockAtItsEnd_WhenLoggingIsOnThroughout) {
    StartWithLog(L"1");
    EXPECT_TRUE(forms::FrmMain->mnuLog.Checked);
    SpeakIt(L"ahoj");
    EXPECT_FALSE(Desktop.Files.FileExists(LOG_FILE));
    End();
    EXPECT_EQ(DataText(L"log.txt"), L"16.11.2026 1:59:52\r\n01:59:52 Say: ahoj\r\n");
    EXPECT_TRUE(SettingsHold(L"Log=1"));
}

TEST_F(LoggedRunTest, Run_WritesSecondBlockTwice_WhenSwitchedOnAndOffTwice) {
    StartWithLog(L"0");
    auto& Entry = forms::FrmMain->mnuLog;
    Entry.Click();
    LogEvent(L"one");
    Entry.Click();
    Desktop.RunFor(1000);
    Entry.Click();
    LogEvent(L"two");
    Entry.Click();
    const std::wstring strFirst = L"16.11.2026 1:59:52\r\n01:59:52 one\r\n";
    const std::wstring strSecond = L"16.11.2026 1:59:53\r\n01:59:53 two\r\n";
    EXPECT_EQ(DataText(L"log.txt"), strFirst + strSecond);
    End();
    EXPECT_EQ(DataText(L"log.txt"), strFirst + strSecond + strSecond);
    EXPECT_TRUE(SettingsHold(L"Log=0"));
}

TEST_F(LoggedRunTest, Run_WritesNothingAndStoresZero_WhenLoggingIsNeverOn) {
    StartWithLog(L"0");
    SpeakIt(L"ahoj");
    End();
    EXPECT_FALSE(Desktop.Files.FileExists(LOG_FILE));
    EXPECT_TRUE(SettingsHold(L"Log=0"));
}

TEST_F(LoggedRunTest, Run_StaysUnlogged_WhenSettingIsNotExactlyOne) {
    for (const wchar_t* szValue : {L"-1", L"2"}) {
        StartAnew();
        StartWithLog(szValue);
        EXPECT_FALSE(EventLog.bLog) << platform::ToUtf8(szValue);
        EXPECT_FALSE(forms::FrmMain->mnuLog.Checked) << platform::ToUtf8(szValue);
        End();
        EXPECT_TRUE(SettingsHold(L"Log=0")) << platform::ToUtf8(szValue);
        EXPECT_FALSE(Desktop.Files.FileExists(LOG_FILE)) << platform::ToUtf8(szValue);
    }
}

TEST_F(LoggedRunTest, Run_WritesLostBlockAtItsEnd_WhenFileWasHeldAtSwitchingOff) {
    StartWithLog(L"1");
    PutData(L"log.txt", L"");
    Desktop.Files.Lock(LOG_FILE);
    forms::FrmMain->mnuLog.Click();
    Desktop.Files.Lock(LOG_FILE, false);
    EXPECT_EQ(DataText(L"log.txt"), L"");
    End();
    EXPECT_EQ(DataText(L"log.txt"), L"16.11.2026 1:59:52\r\n");
}

}  // namespace
}  // namespace taviro
