// SPDX-License-Identifier: MIT
// Measuring, the clock, the shell, windows, processes and metrics on the real desktop.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "platform/metrics.h"
#include "platform/pointer.h"
#include "platform/shell.h"
#include "platform/sound.h"
#include "platform/text_extent.h"
#include "platform/windows_and_processes.h"
#include "tests/win32/test_support.h"

namespace taviro::platform {
namespace {

LogicalFont ArialBold(int32_t nHeight) {
    return {.strFaceName = L"Arial", .nHeight = nHeight, .nWeight = 800};
}

TEST(Measure_GrowsWithTextAndFont, WhenAContextExists) {
    if (!tests::HasDrawing()) GTEST_SKIP() << "no device context on this desktop";
    ASSERT_TRUE(CreateMeasureContext(ArialBold(-20)));
    EXPECT_TRUE(HasMeasureContext());
    const TextSize One = MeasureInContext(L"Ž");
    const TextSize Two = MeasureInContext(L"ŽŽ");
    EXPECT_GT(One.nWidth, 0);
    EXPECT_EQ(Two.nWidth, 2 * One.nWidth);
    EXPECT_EQ(MeasureInContext(L"\x4E2D"), MeasureInContext(L"?")) << "as it would be stored";
    ASSERT_TRUE(CreateMeasureContext(ArialBold(-40)));
    EXPECT_GT(MeasureInContext(L"Ž").nWidth, One.nWidth);
    EXPECT_GT(MeasureInContext(L"Ž").nHeight, One.nHeight);
    DeleteMeasureContext();
}

TEST(Measure_IsNothing, WhenNoContextExists) {
    DeleteMeasureContext();
    DeleteMeasureContext();
    EXPECT_FALSE(HasMeasureContext());
    EXPECT_EQ(MeasureInContext(L"text"), TextSize{});
}

TEST(Measure_TakesLongFaceNames, WhenCutTo32Characters) {
    if (!tests::HasDrawing()) GTEST_SKIP() << "no device context on this desktop";
    EXPECT_TRUE(CreateMeasureContext({.strFaceName = std::wstring(50, L'x'), .nHeight = -12}));
    DeleteMeasureContext();
}

/// Groups of digits in the text, in their order.
std::vector<int> NumbersIn(const std::wstring& strText) {
    std::vector<int> Numbers;
    bool bInside = false;
    for (const wchar_t c : strText) {
        const bool bDigit = c >= L'0' && c <= L'9';
        if (bDigit && !bInside) Numbers.push_back(0);
        if (bDigit) Numbers.back() = Numbers.back() * 10 + (c - L'0');
        bInside = bDigit;
    }
    return Numbers;
}

/// Asks until both clock readings around the answer agree, so that no second passes meanwhile.
template <class TAsk>
std::pair<SYSTEMTIME, std::wstring> AskWithinOneSecond(TAsk Ask) {
    while (true) {
        SYSTEMTIME Before{};
        SYSTEMTIME After{};
        GetLocalTime(&Before);
        std::wstring strAnswer = Ask();
        GetLocalTime(&After);
        if (Before.wSecond == After.wSecond) return {Before, strAnswer};
    }
}

TEST(TimeOfDay_HasTwoDigitsEach, WhenAsked) {
    const auto [Now, strText] = AskWithinOneSecond(TimeOfDayText);
    ASSERT_EQ(strText.size(), 8U);
    EXPECT_EQ(strText[2], L':');
    EXPECT_EQ(strText[5], L':');
    EXPECT_EQ(NumbersIn(strText), (std::vector<int>{Now.wHour, Now.wMinute, Now.wSecond}));
}

TEST(DateTime_FollowsTheUsersFormat, WhenAsked) {
    const auto [Now, strText] = AskWithinOneSecond(DateTimeText);
    const std::vector<int> Numbers = NumbersIn(strText);
    ASSERT_GE(Numbers.size(), 6U);
    wchar_t strLocale[LOCALE_NAME_MAX_LENGTH] = {};
    ASSERT_GT(GetUserDefaultLocaleName(strLocale, LOCALE_NAME_MAX_LENGTH), 0);
    if (std::wstring(strLocale) == L"cs-CZ") {
        EXPECT_EQ(Numbers, (std::vector<int>{Now.wDay, Now.wMonth, Now.wYear, Now.wHour,
                                             Now.wMinute, Now.wSecond}));
    }
    for (const int nPart : {Now.wYear % 100, int{Now.wDay}, int{Now.wMinute}, int{Now.wSecond}}) {
        EXPECT_TRUE(std::ranges::any_of(Numbers, [&](int n) { return n % 100 == nPart; })) << nPart;
    }
}

TEST(SleepMs_TakesItsTime, WhenMeasuredByTickCount) {
    const uint32_t nStart = TickCount();
    SleepMs(50);
    EXPECT_GE(TickCount() - nStart + 16, 50U) << "the system's clock is 16 ms coarse";
}

TEST(SpecialFolder_IsTheRoamingFolder, WhenAskedFor26) {
    ItemIdList* pList = nullptr;
    ASSERT_EQ(SpecialFolderLocation(100, 26, pList), 0U);
    std::array<wchar_t, 512> Buffer{};
    ASSERT_TRUE(PathFromItemIdList(pList, Buffer));
    EXPECT_STREQ(Buffer.data(), _wgetenv(L"APPDATA"));
}

TEST(SpecialFolder_Fails, WhenTheNumberIsUnknown) {
    ItemIdList* pList = nullptr;
    EXPECT_NE(SpecialFolderLocation(100, 0x7F, pList), 0U);
    EXPECT_EQ(pList, nullptr);
    std::array<wchar_t, 512> Buffer{};
    EXPECT_FALSE(PathFromItemIdList(pList, Buffer));
}

TEST(ShellExecute_ReportsFailure, WhenTheFileIsMissing) {
    tests::TestFolder Folder;
    EXPECT_LE(ShellExecuteOnDesktop(L"", Folder / L"missing.exe", L"", SW_SHOWNORMAL), 32);
    EXPECT_LE(ShellExecuteOnDesktop(L"", L"", L"", SW_SHOWNORMAL), 32);
    for (const size_t nLength : {size_t{1000}, size_t{1'000'000}}) {
        EXPECT_LE(ShellExecuteOnDesktop(L"", std::wstring(nLength, L'x'), L"", SW_SHOWNORMAL), 32);
    }
}

TEST(ProgramFolder_HoldsThisProgram, WhenAsked) {
    const std::wstring strFolder = ProgramFolder();
    ASSERT_FALSE(strFolder.empty());
    EXPECT_NE(strFolder.back(), L'\\');
    wchar_t strPath[MAX_PATH + 1] = {};
    GetModuleFileNameW(nullptr, strPath, MAX_PATH);
    EXPECT_EQ(std::wstring(strPath).substr(0, strFolder.size() + 1), strFolder + L"\\");
}

TEST(SingleInstance_IsRefusedToAnother, WhenThisProcessHoldsIt) {
    ASSERT_TRUE(ClaimSingleInstance());
    EXPECT_TRUE(ClaimSingleInstance()) << "asked again by the holder";
    const auto hSecond = tests::StartInRole(tests::ROLE_CLAIM, L"now");
    ASSERT_TRUE(hSecond);
    EXPECT_EQ(tests::ExitCodeOf(hSecond.get()), DWORD{tests::CLAIM_REFUSED});
}

TEST(Processes_HoldThisOne, WhenSnapped) {
    const auto Processes = SnapshotProcesses();
    const auto pOwn =
        std::ranges::find(Processes, GetCurrentProcessId(), &ProcessEntry::nProcessId);
    ASSERT_NE(pOwn, Processes.end());
    const std::wstring& strName = pOwn->strExecutable;
    EXPECT_EQ(strName.substr(strName.rfind(L'\\') + 1), L"taviro_win32_tests.exe");
}

TEST(Windows_TellNothing, WhenTheHandleIsNone) {
    EXPECT_EQ(WindowProcess(0), 0U);
    EXPECT_EQ(WindowThread(0), 0U);
    EXPECT_FALSE(IsWindowHandle(0));
    EXPECT_EQ(WindowClassName(0), L"");
    EXPECT_EQ(FindTopWindow(L"", L"no window has this title"), 0U);
    EXPECT_FALSE(SetForeground(0));
    EXPECT_FALSE(AttachInput(GetCurrentThreadId(), 1, true));
}

TEST(Windows_AreFoundByTitleAndClass, WhenThere) {
    const HWND hWindow = CreateWindowExW(0, L"STATIC", L"HOSTWATCH žába", WS_POPUP, 0, 0, 9, 9,
                                         nullptr, nullptr, nullptr, nullptr);
    const auto nWindow = reinterpret_cast<WindowHandle>(hWindow);
    EXPECT_EQ(FindTopWindow(L"", L"HOSTWATCH žába"), nWindow);
    EXPECT_EQ(FindTopWindow(L"STATIC", L"HOSTWATCH žába"), nWindow);
    EXPECT_EQ(FindTopWindow(L"EDIT", L"HOSTWATCH žába"), 0U);
    EXPECT_EQ(WindowClassName(nWindow), L"Static");
    EXPECT_EQ(WindowProcess(nWindow), GetCurrentProcessId());
    EXPECT_EQ(WindowThread(nWindow), GetCurrentThreadId());
    DestroyWindow(hWindow);
    EXPECT_FALSE(IsWindowHandle(nWindow));
}

TEST(TaskWindows_AreThoseTheUserCanChangeTo, WhenAsked) {
    const auto Open = [](DWORD nExtended, DWORD nStyle) {
        return CreateWindowExW(nExtended, L"STATIC", L"", WS_POPUP | nStyle, 0, 0, 9, 9, nullptr,
                               nullptr, nullptr, nullptr);
    };
    const HWND hSeen = Open(0, WS_VISIBLE);
    const HWND OTHERS[] = {Open(0, 0), Open(WS_EX_TOOLWINDOW, WS_VISIBLE),
                           Open(WS_EX_NOACTIVATE, WS_VISIBLE),
                           CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9,
                                           hSeen, nullptr, nullptr, nullptr)};
    const std::vector<WindowHandle> Found = TaskWindows();
    EXPECT_EQ(std::ranges::count(Found, reinterpret_cast<WindowHandle>(hSeen)), 1);
    for (const HWND hOther : OTHERS) {
        EXPECT_EQ(std::ranges::count(Found, reinterpret_cast<WindowHandle>(hOther)), 0);
        DestroyWindow(hOther);
    }
    DestroyWindow(hSeen);
}

TEST(Foreground_IsLetToOthers, AndOurInputIsOursAgain) {
    LetOthersComeToFront();
    const DWORD nInFront = GetWindowThreadProcessId(GetForegroundWindow(), nullptr);
    if (nInFront == 0 || nInFront == GetCurrentThreadId()) return;  // nothing was shared
    EXPECT_EQ(AttachThreadInput(GetCurrentThreadId(), nInFront, FALSE), FALSE);
}

TEST(LastInput_IsThatOfASentKey, WhenOneWasSent) {
    const uint32_t nBefore = LastInputTick();
    EXPECT_TRUE(tests::RunMessagesUntil([nBefore] {
        INPUT Key{};
        Key.type = INPUT_KEYBOARD;
        Key.ki.wVk = VK_F24;
        Key.ki.dwFlags = KEYEVENTF_KEYUP;
        SendInput(1, &Key, sizeof(Key));
        return LastInputTick() != nBefore;
    }));
}

TEST(Metrics_AreThoseOfTheScreen, WhenAsked) {
    EXPECT_GT(SystemMetric(Metric::CaptionHeight), 0);
    EXPECT_GT(SystemMetric(Metric::MenuHeight), 0);
    EXPECT_GE(ScreenDpiX(), 96);
    EXPECT_EQ(TwipsPerPixelY(), 1440 / ScreenDpiY());
}

TEST(Pointer_IsWhereItWasSet, WhenAskedAgain) {
    ASSERT_TRUE(SetPointer({.nX = 123, .nY = 45}));
    ScreenPoint Point;
    ASSERT_TRUE(GetPointer(Point));
    EXPECT_EQ(Point, (ScreenPoint{.nX = 123, .nY = 45}));
}

TEST(MouseAcceleration_IsKept, WhenSetAndRead) {
    std::array<int32_t, 3> Earlier{};
    ASSERT_TRUE(GetMouseAcceleration(Earlier));
    const std::array<int32_t, 3> Wanted{4, 9, 1};
    EXPECT_TRUE(SetMouseAcceleration(Wanted));
    std::array<int32_t, 3> Read{};
    EXPECT_TRUE(GetMouseAcceleration(Read));
    EXPECT_EQ(Read, Wanted);
    EXPECT_TRUE(SetMouseAcceleration(Earlier));
}

}  // namespace
}  // namespace taviro::platform
