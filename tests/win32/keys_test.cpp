// SPDX-License-Identifier: MIT
// Synthetic input arrives in a window of our own, and the hook sees it on its way.
#include "platform/keys.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "platform/keyboard_hook.h"
#include "platform/messages.h"
#include "tests/win32/test_support.h"

namespace taviro::platform {
namespace {

constexpr DWORD BLOCKED_DEADLINE_MS = 5000;

std::vector<std::string> Received;  // "down 65", "up 65", "hook 65"

LRESULT CALLBACK OnReceiverMessage(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    if (nMessage == WM_KEYDOWN) Received.push_back("down " + std::to_string(wParam));
    if (nMessage == WM_KEYUP) Received.push_back("up " + std::to_string(wParam));
    return DefWindowProcW(hWindow, nMessage, wParam, lParam);
}

/// A window in front that has the focus.
class KeysTest : public testing::Test {
  protected:
    void SetUp() override {
        WNDCLASSW Class{};
        Class.lpfnWndProc = OnReceiverMessage;
        Class.lpszClassName = L"TaviroKeyReceiver";
        RegisterClassW(&Class);  // fails, harmlessly, from the second test on
        m_hWindow = CreateWindowExW(0, Class.lpszClassName, L"keys", WS_OVERLAPPEDWINDOW, 0, 400,
                                    200, 100, nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(m_hWindow, nullptr);
        ShowWindow(m_hWindow, SW_SHOW);
        ASSERT_TRUE(tests::RunMessagesUntil([this] {
            SetForegroundWindow(m_hWindow);
            return GetForegroundWindow() == m_hWindow && GetFocus() == m_hWindow;
        }));
        Received.clear();
    }
    void TearDown() override { DestroyWindow(m_hWindow); }

    static bool Arrives(const std::vector<std::string>& Expected) {
        return tests::RunMessagesUntil([&] { return Received.size() >= Expected.size(); }) &&
               Received == Expected;
    }

    HWND m_hWindow = nullptr;
};

KeyRecord Key(uint16_t nVk, uint32_t nFlags) {
    return {.wVk = nVk, .dwFlags = nFlags};
}

TEST_F(KeysTest, Keys_CarryTheExtendedMark_WhenTheNumberPadHasThemToo) {
    static std::vector<uint32_t> Extended;  // of the presses, in order
    Extended.clear();
    const auto Note = [](int32_t, uintptr_t, const KeyHookRecord& Record) -> intptr_t {
        if ((Record.flags & HOOK_FLAG_UP) != 0) return 1;
        Post([nMark = Record.flags & LLKHF_EXTENDED] { Extended.push_back(nMark); });
        return 1;
    };
    const uintptr_t hHook = InstallHook(HOOK_KEYBOARD_LL, Note);
    ASSERT_NE(hHook, 0U);
    const std::vector<InputRecord> Records{Key(VK_LEFT, KEY_FLAG_DOWN), Key(VK_LEFT, KEY_FLAG_UP),
                                           Key('A', KEY_FLAG_DOWN), Key('A', KEY_FLAG_UP)};
    EXPECT_EQ(SendInputRecords(Records), Records.size());
    KeybdEvent(VK_END, 0, KEY_FLAG_DOWN, 0);
    KeybdEvent(VK_END, 0, KEY_FLAG_UP, 0);
    EXPECT_TRUE(tests::RunMessagesUntil([&] { return Extended.size() >= 3; }));
    EXPECT_EQ(Extended, (std::vector<uint32_t>{LLKHF_EXTENDED, 0, LLKHF_EXTENDED}));
    EXPECT_TRUE(RemoveHook(hHook));
}

TEST_F(KeysTest, SendInput_ArrivesInOrder_WhenOfVirtualKeys) {
    const std::vector<InputRecord> Records{Key('A', KEY_FLAG_DOWN), Key('A', KEY_FLAG_UP),
                                           Key(VK_RIGHT, KEY_FLAG_DOWN),
                                           Key(VK_RIGHT, KEY_FLAG_UP)};
    EXPECT_EQ(SendInputRecords(Records), 4U);
    EXPECT_TRUE(Arrives({"down 65", "up 65", "down 39", "up 39"}))
        << testing::PrintToString(Received);
}

TEST_F(KeysTest, SendInput_SendsNothing_WhenEmpty) {
    EXPECT_EQ(SendInputRecords({}), 0U);
}

TEST_F(KeysTest, KeybdEvent_Arrives_WhenDownAndUp) {
    KeybdEvent('B', 0, KEY_FLAG_DOWN, 0);
    KeybdEvent('B', 0, KEY_FLAG_UP, 0);
    EXPECT_TRUE(Arrives({"down 66", "up 66"})) << testing::PrintToString(Received);
}

intptr_t SwallowB(int32_t nCode, uintptr_t wParam, const KeyHookRecord& Record) {
    Post([strSeen = "hook " + std::to_string(Record.vkCode) +
                    ((Record.flags & HOOK_FLAG_UP) != 0 ? " up" : " down")] {
        Received.push_back(strSeen);
    });
    if (Record.vkCode == 'B') return 1;
    return CallNextHook(0, nCode, wParam, Record);
}

TEST_F(KeysTest, Hook_SeesAllAndSwallows_WhenItSaysSo) {
    const uintptr_t hHook = InstallHook(HOOK_KEYBOARD_LL, SwallowB);
    ASSERT_NE(hHook, 0U);
    const std::vector<InputRecord> Records{Key('B', KEY_FLAG_DOWN), Key('B', KEY_FLAG_UP),
                                           Key('C', KEY_FLAG_DOWN), Key('C', KEY_FLAG_UP)};
    EXPECT_EQ(SendInputRecords(Records), 4U);
    ASSERT_TRUE(tests::RunMessagesUntil([] {
        return std::ranges::count(Received, "down 67") + std::ranges::count(Received, "up 67") == 2;
    })) << testing::PrintToString(Received);
    for (const char* pSeen : {"hook 66 down", "hook 66 up", "hook 67 down", "hook 67 up"}) {
        EXPECT_EQ(std::ranges::count(Received, pSeen), 1) << pSeen;
    }
    EXPECT_EQ(std::ranges::count(Received, "down 66"), 0) << "swallowed";
    EXPECT_TRUE(RemoveHook(hHook));
    EXPECT_FALSE(RemoveHook(hHook));
}

/// The keys that the hook below has seen, counted on the hook's own thread.
std::atomic<int> HookedKeys;
std::atomic<DWORD> nHookThread;

intptr_t CountAndPass(int32_t nCode, uintptr_t wParam, const KeyHookRecord& Record) {
    ++HookedKeys;
    nHookThread = GetCurrentThreadId();
    return CallNextHook(0, nCode, wParam, Record);
}

void TapA() {
    KeybdEvent('A', 0, KEY_FLAG_DOWN, 0);
    KeybdEvent('A', 0, KEY_FLAG_UP, 0);
}

/// Waits without letting messages run, as a program that hangs does.
bool ComesWhileNothingRuns(const std::function<bool()>& Condition) {
    for (const DWORD nStart = GetTickCount(); !Condition();) {
        if (GetTickCount() - nStart > BLOCKED_DEADLINE_MS) return false;
        Sleep(1);
    }
    return true;
}

TEST_F(KeysTest, Hook_AnswersOnAThreadOfItsOwn_WhileTheProgramHangs) {
    HookedKeys = 0;
    const uintptr_t hHook = InstallHook(HOOK_KEYBOARD_LL, CountAndPass);
    ASSERT_NE(hHook, 0U);
    EXPECT_EQ(InstallHook(HOOK_KEYBOARD_LL, CountAndPass), 0U) << "one is there";
    TapA();
    EXPECT_TRUE(ComesWhileNothingRuns([] { return HookedKeys >= 2; }));
    EXPECT_NE(nHookThread, GetCurrentThreadId());
    EXPECT_TRUE(Arrives({"down 65", "up 65"})) << testing::PrintToString(Received);
    EXPECT_TRUE(RemoveHook(hHook));
    TapA();
    EXPECT_TRUE(Arrives({"down 65", "up 65", "down 65", "up 65"}));
    EXPECT_EQ(HookedKeys, 2);
}

// The system takes a slow hook away and tells nobody; here the test does.
TEST_F(KeysTest, Hook_ComesBackByItself_WhenItWasTakenAway) {
    HookedKeys = 0;
    const uintptr_t hHook = InstallHook(HOOK_KEYBOARD_LL, CountAndPass);
    ASSERT_NE(hHook, 0U);
    ASSERT_NE(UnhookWindowsHookEx(reinterpret_cast<HHOOK>(hHook)), FALSE);
    TapA();
    EXPECT_TRUE(Arrives({"down 65", "up 65"}));
    EXPECT_EQ(HookedKeys, 0);
    EXPECT_TRUE(tests::RunMessagesUntil([] {
        TapA();
        return HookedKeys > 0;
    }));
    EXPECT_TRUE(RemoveHook(hHook));
}

TEST(PostedWork_RunsInOrderOnTheProgramsThread, WhicheverThreadPosts) {
    static std::vector<int> Done;  // of the program's thread alone
    Done.clear();
    const DWORD nThread = GetCurrentThreadId();
    Post([] { Done.push_back(0); });
    std::thread Other([nThread] {
        for (int n = 1; n <= 100; ++n) {
            Post([n, nThread] {
                EXPECT_EQ(GetCurrentThreadId(), nThread);
                EXPECT_FALSE(IsOutermostLoop()) << "something of the program is under way";
                Done.push_back(n);
            });
        }
    });
    Other.join();
    EXPECT_TRUE(Done.empty());
    RunPendingMessages();
    EXPECT_TRUE(std::ranges::is_sorted(Done));
    EXPECT_EQ(Done.size(), 101U);
}

}  // namespace
}  // namespace taviro::platform
