// SPDX-License-Identifier: MIT
// The keyboard hook: which keys drive the map, which pass, and when.
#include "input/keyboard_hook.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "input/joystick_reader.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

constexpr uint8_t VK_ENTER = 13;
constexpr uint8_t VK_RIGHT = 39;
constexpr uint8_t VK_A = 'A';

// What the hook called back, in order: "Enter", "Arrow 39".
class KeyboardHookTest : public ProgramTest {
  protected:
    KeyboardHookTest() {
        Desktop.Joystick.bPresent = false;
        KeyboardHook.Enter = [this] { Called.emplace_back("Enter"); };
        KeyboardHook.Arrow = [this](int32_t nVk) {
            Called.push_back("Arrow " + std::to_string(nVk));
        };
        InstallKeyboardHook();
        Desktop.TakeEffects();
    }
    /// A joystick is plugged in or out, and the keyboard knows it.
    static void Plug(bool bIn) {
        Desktop.Joystick.bPresent = bIn;
        Program.bJoystickAnswers = bIn;
    }
    /// One key event; returns whether it went on to the next hook.
    static bool KeyPasses(uint8_t nVk, bool bDown) {
        Desktop.Keyboard.bPassedOn = false;
        Desktop.PhysicalKey(nVk, bDown);
        return Desktop.Keyboard.bPassedOn;
    }
    Effects Called;
};

TEST_F(KeyboardHookTest, InstallKeyboardHook_KeepsHandle_WhenSystemGivesOne) {
    EXPECT_TRUE(IsHooked());
    EXPECT_EQ(KeyboardHook.hKeyboardHook, Desktop.Keyboard.hHook);
    EXPECT_EQ(Desktop.Keyboard.pHook, &KeyboardProc);
}

TEST_F(KeyboardHookTest, InstallKeyboardHook_LeavesKeyboardUnused_WhenSystemRefuses) {
    RemoveKeyboardHook();
    Desktop.Failures.Always("InstallHook");
    InstallKeyboardHook();
    EXPECT_FALSE(IsHooked());
    Desktop.TakeEffects();
    RemoveKeyboardHook();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    Desktop.PhysicalKey(VK_RIGHT, true);
    EXPECT_EQ(Called, Effects{});
}

TEST_F(KeyboardHookTest, RemoveKeyboardHook_LetsKeysThrough_WhenHooked) {
    RemoveKeyboardHook();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"keyboard hook removed"});
    Desktop.PhysicalKey(VK_RIGHT, true);
    EXPECT_EQ(Called, Effects{});
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{VK_RIGHT});
}

struct KeyCase {
    const char* szName;
    uint8_t nVk;
    bool bDown;
    bool bPasses;
    const char* szCalled;  // nullptr: nothing
};

TEST_F(KeyboardHookTest, KeyboardProc_SortsKeys_WhenNoJoystickAnswers) {
    constexpr KeyCase CASES[] = {
        {"Enter pressed", VK_ENTER, true, false, nullptr},
        {"Enter released", VK_ENTER, false, false, "Enter"},
        {"Left pressed", 37, true, false, "Arrow 37"},
        {"Left released", 37, false, false, nullptr},
        {"Up pressed", 38, true, false, "Arrow 38"},
        {"Up released", 38, false, false, nullptr},
        {"Right pressed", 39, true, false, "Arrow 39"},
        {"Right released", 39, false, false, nullptr},
        {"Down pressed", 40, true, false, "Arrow 40"},
        {"Down released", 40, false, false, nullptr},
        // Neighbours of these keys, and a letter.
        {"Home pressed", 36, true, true, nullptr},
        {"Home released", 36, false, true, nullptr},
        {"Insert pressed", 45, true, true, nullptr},
        {"code 41 pressed", 41, true, true, nullptr},
        {"code 12 pressed", 12, true, true, nullptr},
        {"code 14 pressed", 14, true, true, nullptr},
        {"A pressed", VK_A, true, true, nullptr},
        {"A released", VK_A, false, true, nullptr},
    };
    for (const KeyCase& Case : CASES) {
        Called.clear();
        EXPECT_EQ(KeyPasses(Case.nVk, Case.bDown), Case.bPasses) << Case.szName;
        EXPECT_EQ(Called, Case.szCalled == nullptr ? Effects{} : Effects{Case.szCalled})
            << Case.szName;
    }
}

TEST_F(KeyboardHookTest, KeyboardProc_ReturnsOneForSwallowedKey_WhenKeyDrivesMap) {
    const platform::KeyHookRecord Right{.vkCode = VK_RIGHT};
    EXPECT_EQ(KeyboardProc(0, 0x100, Right), 1);
    EXPECT_FALSE(Desktop.Keyboard.bPassedOn);
}

TEST_F(KeyboardHookTest, KeyboardProc_TouchesNothing_WhenCodeIsNotZero) {
    const platform::KeyHookRecord Right{.vkCode = VK_RIGHT, .scanCode = 0x4D};
    for (const int32_t nCode : {-1, 1, 3}) {
        Desktop.Keyboard.bPassedOn = false;
        EXPECT_EQ(KeyboardProc(nCode, 0x100, Right), 0) << nCode;
        EXPECT_TRUE(Desktop.Keyboard.bPassedOn) << nCode;
    }
    EXPECT_EQ(Called, Effects{});
    EXPECT_EQ(KeyboardHook.KeyInfo.vkCode, 0U);
    EXPECT_EQ(KeyboardHook.nHookVkCode, 0U);
    EXPECT_EQ(KeyboardHook.nHookScanCode, 0U);
}

TEST_F(KeyboardHookTest, KeyboardProc_CopiesEvent_WhenAJoystickTakesTheKeyAway) {
    Desktop.Joystick.bPresent = true;
    const platform::KeyHookRecord Event{
        .vkCode = VK_RIGHT, .scanCode = 0x4D, .flags = 1, .time = 77, .dwExtraInfo = 5};
    KeyboardProc(0, 0x100, Event);
    EXPECT_EQ(KeyboardHook.KeyInfo.vkCode, 39U);
    EXPECT_EQ(KeyboardHook.KeyInfo.scanCode, 0x4DU);
    EXPECT_EQ(KeyboardHook.KeyInfo.flags, 1U);
    EXPECT_EQ(KeyboardHook.KeyInfo.time, 77U);
    EXPECT_EQ(KeyboardHook.KeyInfo.dwExtraInfo, 5U);
    EXPECT_EQ(KeyboardHook.nHookVkCode, 39U);
    EXPECT_EQ(KeyboardHook.nHookScanCode, 0x4DU);
}

TEST_F(KeyboardHookTest, KeyboardProc_PassesEverything_WhenAJoystickAnswers) {
    Plug(true);
    for (const uint8_t nVk : {uint8_t{37}, uint8_t{38}, VK_RIGHT, uint8_t{40}, VK_ENTER, VK_A}) {
        EXPECT_TRUE(KeyPasses(nVk, true)) << int{nVk};
        EXPECT_TRUE(KeyPasses(nVk, false)) << int{nVk};
    }
    EXPECT_EQ(Called, Effects{});
    EXPECT_EQ(KeyboardHook.LastKeyUp, 0U);
}

TEST_F(KeyboardHookTest, KeyboardProc_SamplesCentreAnew_WhenAKeyComes) {
    Desktop.Joystick.bPresent = true;
    Desktop.Joystick.nX = 40000;
    Desktop.PhysicalKey(VK_A, true);
    EXPECT_EQ(Joystick.nJoyCenterX, 40000);
    Desktop.Joystick.nX = 20000;
    Desktop.PhysicalKey(VK_A, false);
    EXPECT_EQ(Joystick.nJoyCenterX, 20000);
}

TEST_F(KeyboardHookTest, KeyboardProc_OpensJoystickAnew_WhateverTheKey) {
    Desktop.Joystick.bPresent = true;
    const struct {
        const char* szName;
        platform::KeyHookRecord Event;
        bool bDialog, bIgnore;
    } CASES[] = {
        {"letter pressed", {.vkCode = VK_A}, false, false},
        {"letter released", {.vkCode = VK_A, .flags = platform::HOOK_FLAG_UP}, false, false},
        {"arrow", {.vkCode = VK_RIGHT}, false, false},
        {"Enter released", {.vkCode = VK_ENTER, .flags = platform::HOOK_FLAG_UP}, false, false},
        {"key that a program sent",
         {.vkCode = VK_A, .flags = platform::HOOK_FLAG_INJECTED},
         false,
         false},
        {"key typed in a dialog", {.vkCode = VK_A}, true, false},
        {"ignored key", {.vkCode = VK_A}, false, true},
    };
    for (const auto& Case : CASES) {
        Program.bDialogActive = Case.bDialog;
        KeyboardHook.bIgnoreKeys = Case.bIgnore;
        Joystick.nJoyId = 5;
        const uint32_t nReads = Desktop.Joystick.nReads;
        KeyboardProc(0, 0x100, Case.Event);
        EXPECT_EQ(Desktop.Joystick.nReads, nReads) << Case.szName << ": a device may be slow";
        Desktop.RunDue();
        EXPECT_EQ(Joystick.nJoyId, 0U) << Case.szName;
        EXPECT_EQ(Desktop.Joystick.nReads, nReads + 1) << Case.szName;
    }
}

TEST_F(KeyboardHookTest, KeyboardProc_AsksTheFirstJoystick_WhenAnotherWasOpened) {
    Joystick.nJoyId = 5;
    Desktop.PhysicalKey(VK_A, true);
    EXPECT_EQ(Joystick.nJoyId, 0U);
}

// Each key lets the joystick be asked, and goes by the answer that the key before it got.
TEST_F(KeyboardHookTest, KeyboardProc_FollowsJoystick_WhenItIsPluggedInAndOut) {
    EXPECT_FALSE(KeyPasses(VK_RIGHT, true));
    Desktop.Joystick.bPresent = true;
    EXPECT_FALSE(KeyPasses(VK_RIGHT, true));
    EXPECT_TRUE(KeyPasses(VK_RIGHT, true));
    Desktop.Joystick.bPresent = false;
    EXPECT_TRUE(KeyPasses(VK_RIGHT, true));
    EXPECT_FALSE(KeyPasses(VK_RIGHT, true));
    EXPECT_EQ(Called, (Effects{"Arrow 39", "Arrow 39", "Arrow 39"}));
}

TEST_F(KeyboardHookTest, Joystick_IsAskedOnceForManyKeys_WhenTheProgramIsBusy) {
    Desktop.Joystick.bPresent = true;
    for (int n = 0; n < 50; ++n)
        KeyboardProc(0, 0x100, {.vkCode = VK_A});
    Desktop.RunDue();
    EXPECT_EQ(Desktop.Joystick.nReads, 1U);
    KeyboardProc(0, 0x100, {.vkCode = VK_A});
    Desktop.RunDue();
    EXPECT_EQ(Desktop.Joystick.nReads, 2U);
}

TEST_F(KeyboardHookTest, Keys_ActInTheirOrder_WhenTheProgramWasBusy) {
    for (const uint8_t nVk : {uint8_t{37}, uint8_t{40}, VK_ENTER, VK_RIGHT}) {
        KeyboardProc(0, 0x100, {.vkCode = nVk});
        KeyboardProc(0, 0x101, {.vkCode = nVk, .flags = platform::HOOK_FLAG_UP});
    }
    EXPECT_EQ(Called, Effects{}) << "the hook only decides";
    Desktop.RunDue();
    EXPECT_EQ(Called, (Effects{"Arrow 37", "Arrow 40", "Enter", "Arrow 39"}));
}

TEST_F(KeyboardHookTest, Keys_DoNothing_WhenTheHookIsGoneBeforeTheirTurn) {
    KeyboardProc(0, 0x100, {.vkCode = VK_RIGHT});
    KeyboardProc(0, 0x100, {.vkCode = VK_ENTER});
    KeyboardProc(0, 0x101, {.vkCode = VK_ENTER, .flags = platform::HOOK_FLAG_UP});
    RemoveKeyboardHook();
    Desktop.RunDue();
    EXPECT_EQ(Called, Effects{});
}

TEST_F(KeyboardHookTest, KeyboardProc_PassesEverything_WhenADialogIsActive) {
    Program.bDialogActive = true;
    for (const uint8_t nVk : {VK_RIGHT, VK_ENTER, VK_A}) {
        EXPECT_TRUE(KeyPasses(nVk, true)) << int{nVk};
        EXPECT_TRUE(KeyPasses(nVk, false)) << int{nVk};
    }
    EXPECT_EQ(Called, Effects{});
    EXPECT_EQ(KeyboardHook.LastKeyUp, 0U);
    Program.bDialogActive = false;
    EXPECT_FALSE(KeyPasses(VK_RIGHT, true));
}

TEST_F(KeyboardHookTest, KeyboardProc_PassesUntilNextRelease_WhenKeysAreIgnored) {
    KeyboardHook.bIgnoreKeys = true;
    EXPECT_TRUE(KeyPasses(VK_RIGHT, true));
    EXPECT_TRUE(KeyboardHook.bIgnoreKeys);
    EXPECT_EQ(KeyboardHook.LastKeyUp, 0U);
    EXPECT_TRUE(KeyPasses(VK_RIGHT, false));
    EXPECT_FALSE(KeyboardHook.bIgnoreKeys);
    EXPECT_EQ(KeyboardHook.LastKeyUp, 39U);
    EXPECT_EQ(Called, Effects{});
    EXPECT_FALSE(KeyPasses(VK_RIGHT, true));
}

void SetDialog(bool bActive) {
    Program.bDialogActive = bActive;
}

void SetMessage(bool bShown) {
    Program.bMessageShown = bShown;
}

TEST_F(KeyboardHookTest, Release_GoesWhereItsPressWent_WhateverHappenedBetween) {
    const struct {
        const char* szName;
        void (*Set)(bool bElsewhere);
        bool bOnPress, bOnRelease;
    } ROWS[] = {
        {"a dialog closed by the press", SetDialog, true, false},
        {"a dialog opened meanwhile", SetDialog, false, true},
        {"a message closed by the press", SetMessage, true, false},
        {"a joystick unplugged meanwhile", Plug, true, false},
        {"a joystick plugged in meanwhile", Plug, false, true},
    };
    for (const auto& Row : ROWS) {
        for (const uint8_t nVk : {VK_ENTER, VK_RIGHT}) {
            SCOPED_TRACE(Row.szName + std::string(" ") + std::to_string(nVk));
            Row.Set(Row.bOnPress);
            EXPECT_EQ(KeyPasses(nVk, true), Row.bOnPress);
            Called.clear();
            Row.Set(Row.bOnRelease);
            EXPECT_EQ(KeyPasses(nVk, false), Row.bOnPress);
            const bool bRuns = nVk == VK_ENTER && !Row.bOnPress;
            EXPECT_EQ(Called, bRuns ? Effects{"Enter"} : Effects{});
            EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{}) << "nobody is left with a held key";
            Row.Set(false);
        }
    }
}

// Held so long that it repeats: whoever got one of the presses gets the release.
TEST_F(KeyboardHookTest, Release_IsNotKept_WhenTheProgramInFrontGotOneOfThePresses) {
    for (const bool bFirst : {true, false}) {
        Program.bDialogActive = bFirst;
        EXPECT_EQ(KeyPasses(VK_ENTER, true), bFirst);
        Program.bDialogActive = !bFirst;
        EXPECT_EQ(KeyPasses(VK_ENTER, true), !bFirst);
        Program.bDialogActive = false;
        EXPECT_TRUE(KeyPasses(VK_ENTER, false));
        EXPECT_EQ(Called, Effects{});
        EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{});
    }
}

TEST_F(KeyboardHookTest, Release_Passes_WhenItsPressWasBeforeTheHook) {
    EXPECT_TRUE(KeyPasses(VK_ENTER, false)) << "it started the program";
    EXPECT_EQ(Called, Effects{});
    KeyPasses(VK_ENTER, true);
    RemoveKeyboardHook();
    InstallKeyboardHook();
    EXPECT_TRUE(KeyPasses(VK_ENTER, false));
    EXPECT_EQ(Called, Effects{});
}

TEST_F(KeyboardHookTest, LastKeyUp_HoldsLastReleasedKeyThatPassed_WhenKeysComeAndGo) {
    Desktop.PhysicalKey(VK_A, true);
    EXPECT_EQ(KeyboardHook.LastKeyUp, 0U);
    Desktop.PhysicalKey(VK_A, false);
    EXPECT_EQ(KeyboardHook.LastKeyUp, 65U);
    for (const uint8_t nVk : {VK_RIGHT, VK_ENTER}) {
        Desktop.PhysicalKey(nVk, true);
        Desktop.PhysicalKey(nVk, false);
        EXPECT_EQ(KeyboardHook.LastKeyUp, 65U) << int{nVk};
    }
}

TEST_F(KeyboardHookTest, Arrow_MovesOncePerRepeat_WhenHeld) {
    Desktop.PhysicalKey(VK_RIGHT, true);
    Desktop.PhysicalKey(VK_RIGHT, true);
    Desktop.PhysicalKey(VK_RIGHT, true);
    Desktop.PhysicalKey(VK_RIGHT, false);
    EXPECT_EQ(Called, (Effects{"Arrow 39", "Arrow 39", "Arrow 39"}));
}

}  // namespace
}  // namespace taviro
