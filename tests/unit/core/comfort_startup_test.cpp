// SPDX-License-Identifier: MIT
// Where start-up finds comfort.ini, what is told of it, and that it is not seeded.
#include <gtest/gtest.h>

#include "feedback/event_log.h"
#include "forms/main_form.h"
#include "settings/comfort_store.h"
#include "tests/unit/core/startup_fixture.h"

namespace taviro {
namespace {

using forms::FrmMain;

const std::wstring PROGRAM_COMFORT = L"C:\\Program Files\\Taviro\\comfort.ini";
const std::wstring USER_COMFORT = DATA_PATH + L"\\comfort.ini";

using ComfortStartup = StartupTest;

TEST_F(ComfortStartup, RulesHold_WithoutTheFile) {
    Start();
    EXPECT_FALSE(Comfort.bWatch);
    FrmMain->mnuExit.Click();
    EXPECT_FALSE(Desktop.Files.FileExists(USER_COMFORT));
}

TEST_F(ComfortStartup, DeliveredFile_IsInForceAndNotCopied) {
    Desktop.Files.Put(PROGRAM_COMFORT, "[Stick]\r\nWatch=1\r\n");
    Start();
    EXPECT_TRUE(Comfort.bWatch);
    EXPECT_TRUE(Desktop.Files.FileExists(DATA_PATH + L"\\setting.ini"));
    FrmMain->mnuExit.Click();
    EXPECT_FALSE(Desktop.Files.FileExists(USER_COMFORT));
}

TEST_F(ComfortStartup, UsersFile_IsTheOneInTheDataFolder) {
    Desktop.Files.Put(PROGRAM_COMFORT, "[Stick]\r\nWatch=1\r\n");
    PutData(L"comfort.ini", L"[Stick]\r\nWatch=0\r\n");
    Start();
    EXPECT_FALSE(Comfort.bWatch);
    ASSERT_EQ(objComfort.Set(*objComfort.Find(L"Watch"), L"1"), ComfortOutcome::Taken);
    EXPECT_TRUE(objComfort.Save());
    EXPECT_EQ(DataText(L"comfort.ini"), L"[Stick]\r\n");
}

TEST_F(ComfortStartup, WhatCouldNotBeSaved_IsSavedAtTheEnd) {
    Start();
    Desktop.Files.Put(USER_COMFORT, "");
    Desktop.Files.Lock(USER_COMFORT);
    ASSERT_EQ(objComfort.Set(*objComfort.Find(L"Watch"), L"1"), ComfortOutcome::Taken);
    EXPECT_FALSE(objComfort.Save());
    Desktop.Files.Lock(USER_COMFORT, false);
    FrmMain->mnuExit.Click();
    EXPECT_EQ(DataText(L"comfort.ini"), L"[Stick]\r\nWatch=1\r\n");
}

TEST_F(ComfortStartup, Faults_StandInTheLogAndReachTheDebugger) {
    PutData(L"comfort.ini", L"[Stick]\r\nWatch=5\r\n");
    Start();  // the seeded settings switch the log on
    const std::wstring strFault =
        USER_COMFORT + L", line 2: [Stick] Watch=5 is out of range, 1 counts (0 or 1)";
    EXPECT_NE(EventLog.strLog.find(strFault), std::wstring::npos);
    EXPECT_EQ(Desktop.DebuggerLines, std::vector<std::wstring>{strFault});
    EXPECT_TRUE(Comfort.bWatch);
}

}  // namespace
}  // namespace taviro
