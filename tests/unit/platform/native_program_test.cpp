// SPDX-License-Identifier: MIT
// Which of the system's programs a program of 32 bits opens on a system of 64.
#include "platform/native_program.h"

#include <gtest/gtest.h>
#include <string>

#include "platform/headless/desktop.h"
#include "platform/shell.h"

namespace taviro::platform {
namespace {

using headless::Desktop;

const SystemFolders NARROW_ON_WIDE{.strShown = L"C:\\Windows\\system32",
                                   .strNative = L"C:\\Windows\\Sysnative"};

class NativeProgramTest : public ::testing::Test {
  protected:
    NativeProgramTest() {
        Desktop = headless::DesktopState{};
        Desktop.Files.Put(L"C:\\Windows\\Sysnative\\osk.exe", "");
        Desktop.Files.Put(L"C:\\Windows\\Sysnative\\sub\\inner.exe", "");
    }
};

TEST_F(NativeProgramTest, SystemsOwnProgram_IsOpened_HoweverItIsNamed) {
    const std::wstring OWN = L"C:\\Windows\\Sysnative\\osk.exe";
    const struct {
        const wchar_t* szFile;
        std::wstring strOpened;
    } ROWS[] = {
        {L"osk", OWN},
        {L"osk.exe", OWN},
        {L"OSK.EXE", L"C:\\Windows\\Sysnative\\OSK.EXE"},
        {L"\"osk.exe\"", OWN},
        {L"\"C:\\WINDOWS\\System32\\osk.exe\"", OWN},
        {L"C:\\Windows\\system32\\osk", OWN},
        {L"magnify", L"magnify"},  // not there
        {L"C:\\Games\\osk.exe", L"C:\\Games\\osk.exe"},
        {L"C:\\Windows\\system32old\\osk.exe", L"C:\\Windows\\system32old\\osk.exe"},
        {L"C:\\Windows\\system32\\sub\\inner.exe", L"C:\\Windows\\system32\\sub\\inner.exe"},
        {L"https://osk", L"https://osk"},
        {L"osk.txt", L"osk.txt"},
        {L"\"", L"\""},
        {L"", L""},
    };
    for (const auto& Row : ROWS) {
        EXPECT_EQ(NativeProgram(Row.szFile, NARROW_ON_WIDE), Row.strOpened) << Row.szFile;
        EXPECT_EQ(NativeProgram(Row.szFile, {.strShown = L"C:\\Windows\\system32"}), Row.szFile);
    }
}

// The screen keyboard of the folder that it is shown refuses to start.
TEST_F(NativeProgramTest, ScreenKeyboard_Starts_FromAProgramOf32BitsToo) {
    Desktop.Programs[L"C:\\Windows\\Sysnative\\osk.exe"] = {.Window = {.hWindow = 5}};
    Desktop.Folders = NARROW_ON_WIDE;
    EXPECT_GT(ShellExecuteOnDesktop(L"", L"osk", L"", 1), 32);
    Desktop.RunFor(100);
    EXPECT_EQ(Desktop.Windows.size(), 1U);
}

}  // namespace
}  // namespace taviro::platform
