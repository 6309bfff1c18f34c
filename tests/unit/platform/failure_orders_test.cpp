// SPDX-License-Identifier: MIT
// What a test can order of failures: how many, from which call on, about what, how much of it.
#include "platform/headless/failure_orders.h"

#include <array>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "forms/main_form.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/headless/desktop.h"
#include "platform/keys.h"
#include "platform/main_window.h"
#include "platform/pointer.h"

namespace taviro::platform {
namespace {

using headless::Desktop;
using headless::PowerCut;

const std::wstring FILE_PATH = L"C:\\d\\file";

void SetScene() {
    Desktop = headless::DesktopState{};
    Reports = {};
    Desktop.Files.Put(FILE_PATH, "old");
    Desktop.Files.Put(L"C:\\s\\seed", "seed");
}

std::string ContentOf(const std::wstring& strPath) {
    std::string strBytes = "(cannot be read)";
    Desktop.Files.Read(strPath, strBytes);
    return strBytes;
}

class FailureOrdersTest : public ::testing::Test {
  protected:
    FailureOrdersTest() { SetScene(); }
    ~FailureOrdersTest() override {
        Desktop = headless::DesktopState{};
        Reports = {};
    }
};

TEST_F(FailureOrdersTest, MainWindowTimer_StandsStill_UntilItsNextChange_WhenRefused) {
    forms::MainForm Form;
    ASSERT_TRUE(OpenMainWindow(Form));
    int nTicks = 0;
    Form.Timer1.OnTimer = [&] { ++nTicks; };
    Desktop.Failures.Add({.strCall = "SetTimer", .strSubject = L"timer1", .nFrom = 3});
    Form.Timer1.Enabled = true;
    Desktop.RunFor(1000);
    EXPECT_EQ(nTicks, 2) << "the third setting was refused";
    Form.Timer1.Enabled = false;
    Form.Timer1.Enabled = true;
    Desktop.RunFor(1000);
    EXPECT_EQ(nTicks, 12);
    CloseMainWindow();
}

TEST_F(FailureOrdersTest, Calls_FailByCount_WhenOrderedSo) {
    ScreenPoint Point;
    const auto Answers = [&] {
        std::string strAnswers;
        for (int n = 0; n < 5; ++n)
            strAnswers += GetPointer(Point) ? '+' : '-';
        return strAnswers;
    };
    Desktop.Failures.Next("GetPointer", 2);
    EXPECT_EQ(Answers(), "--+++");
    Desktop.Failures.Add({.strCall = "GetPointer", .nFrom = 2, .nCount = 3});
    EXPECT_EQ(Answers(), "+---+");
    Desktop.Failures.Add({.strCall = "GetPointer", .nFrom = 4, .nCount = headless::ALL_CALLS});
    EXPECT_EQ(Answers(), "+++--");
    EXPECT_EQ(Answers(), "-----");
    Desktop.Failures.Clear();
    EXPECT_EQ(Answers(), "+++++");
}

TEST_F(FailureOrdersTest, AnyCall_Fails_WhenOrderedByItsNumberAlone) {
    ScreenPoint Point;
    Desktop.Failures.Add({.nFrom = 3});
    EXPECT_TRUE(GetPointer(Point));
    EXPECT_TRUE(FileExists(FILE_PATH));
    EXPECT_FALSE(SetPointer({}));
    EXPECT_TRUE(GetPointer(Point));
    EXPECT_EQ(Desktop.Failures.Asked(), 4U);
}

TEST_F(FailureOrdersTest, OtherPaths_AreLeftAlone_WhenOnePathFails) {
    Desktop.Failures.Always("ReadFileBytes", L"c:\\D\\FILE");
    std::string strBytes;
    EXPECT_FALSE(ReadFileBytes(FILE_PATH, strBytes));
    EXPECT_EQ(strBytes, "");
    EXPECT_TRUE(ReadFileBytes(L"C:\\s\\seed", strBytes));
    EXPECT_TRUE(ReplaceFileBytes(FILE_PATH, "new")) << "only reading fails";
    EXPECT_TRUE(MoveFileTo(FILE_PATH, L"C:\\d\\to"));
}

TEST_F(FailureOrdersTest, CopyFolderFiles_StopsAtTheFile_WhoseCopyFails) {
    Desktop.Files.Put(L"C:\\s\\b", "1");
    Desktop.Files.Put(L"C:\\s\\c", "2");
    Desktop.Failures.Next("CopyFolderFiles", 1);
    EXPECT_FALSE(CopyFolderFiles(L"C:\\s", L"C:\\d"));
    EXPECT_FALSE(FileExists(L"C:\\d\\b"));
    Desktop.Failures.Always("CopyFolderFiles", L"C:\\s\\c");
    EXPECT_FALSE(CopyFolderFiles(L"C:\\s", L"C:\\d"));
    EXPECT_TRUE(FileExists(L"C:\\d\\b"));
    EXPECT_FALSE(FileExists(L"C:\\d\\c"));
    EXPECT_FALSE(FileExists(L"C:\\d\\seed"));
}

TEST_F(FailureOrdersTest, Input_IsTakenInPart_WhenOrderedSo) {
    const std::array<InputRecord, 4> Records{
        KeyRecord{.wVk = 'A'}, KeyRecord{.wVk = 'A', .dwFlags = KEY_FLAG_UP}, KeyRecord{.wVk = 'B'},
        KeyRecord{.wVk = 'B', .dwFlags = KEY_FLAG_UP}};
    Desktop.Failures.Add({.strCall = "SendInputRecords", .nDone = 3});
    EXPECT_EQ(SendInputRecords(Records), 3U);
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{'B'}) << "its up was not taken";
    EXPECT_EQ(Desktop.Sent.size(), 3U);
}

TEST_F(FailureOrdersTest, SecondEvent_IsLost_WhenTheOlderCallIsRefusedOnce) {
    Desktop.Failures.Add({.strCall = "KeybdEvent", .nFrom = 2});
    KeybdEvent('A', 30, KEY_FLAG_DOWN, 0);
    KeybdEvent('A', 30, KEY_FLAG_UP, 0);
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{'A'});
    KeybdEvent('A', 30, KEY_FLAG_UP, 0);
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
}

TEST_F(FailureOrdersTest, MisspeltOrder_IsRefused) {
    EXPECT_THROW(Desktop.Failures.Next("GetPointers"), std::invalid_argument);
    EXPECT_THROW(Desktop.Failures.Always("getpointer"), std::invalid_argument);
}

// Whenever the power goes while a file is replaced, the old content or the new one is there, whole.
TEST_F(FailureOrdersTest, ReplacedFile_IsOldOrNew_WhereverThePowerGoes) {
    bool bDone = false;
    for (size_t nCall = 1; !bDone; ++nCall) {
        SetScene();
        Desktop.Failures.Add({.nFrom = nCall, .bPowerCut = true});
        try {
            bDone = ReplaceFileBytes(FILE_PATH, "the new content");
        } catch (const PowerCut&) {
            bDone = false;
        }
        Desktop.Files.CutPower();
        EXPECT_EQ(ContentOf(FILE_PATH), bDone ? "the new content" : "old")
            << "power cut at call " << nCall;
        ASSERT_LT(nCall, 10U);
    }
}

}  // namespace
}  // namespace taviro::platform
