// SPDX-License-Identifier: MIT
// The virtual desktop's keyboard: what sent and physical keys type, which keys stay down, and what
// the Czech layout says of characters and keys.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/headless/desktop.h"
#include "platform/keys.h"
#include "platform/map_keyboard.h"
#include "platform/text.h"
#include "platform/unneeded.h"

namespace taviro::platform {
namespace {

using headless::Desktop;
using Keys = std::vector<int>;

constexpr uint16_t VK_BACKSPACE = 8, VK_TAB = 9, VK_ENTER = 13, VK_SHIFT = 16, VK_CONTROL = 17,
                   VK_ALT = 18, VK_CAPS = 20, VK_ESCAPE = 27, VK_WIN = 91, VK_DEAD = 191;

class VirtualKeyboardTest : public ::testing::Test {
  protected:
    VirtualKeyboardTest() { Desktop = headless::DesktopState{}; }
    ~VirtualKeyboardTest() override { Desktop = headless::DesktopState{}; }

    static void Down(uint16_t nVk) { Send({.wVk = nVk}); }
    static void Up(uint16_t nVk) { Send({.wVk = nVk, .dwFlags = KEY_FLAG_UP}); }
    static void Tap(uint16_t nVk) {
        Down(nVk);
        Up(nVk);
    }
    static void TapWith(uint16_t nModifier, uint16_t nVk) {
        Down(nModifier);
        Tap(nVk);
        Up(nModifier);
    }
    static std::wstring TakeTyped() { return std::exchange(Desktop.Keyboard.strTyped, L""); }

  private:
    static void Send(const KeyRecord& Key) {
        const InputRecord Record = Key;
        Unneeded(SendInputRecords({&Record, 1}));  // one test blocks it
    }
};

TEST_F(VirtualKeyboardTest, Key_TypesOnceAndGoesUp_WhenTapped) {
    Tap('A');
    EXPECT_EQ(TakeTyped(), L"a");
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
}

TEST_F(VirtualKeyboardTest, Key_StaysDownForTheUser_WhenItsUpIsMissing) {
    Down('A');
    EXPECT_EQ(Desktop.KeysDown(), Keys{'A'});
    Up('A');
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
}

struct ModifierCase {
    const char* szName;
    uint16_t nVk;
    Keys WhileDown;
};

TEST_F(VirtualKeyboardTest, Modifier_KeepsSidesInStep_WhenPressed) {
    const ModifierCase CASES[] = {
        {"Shift means the left one", VK_SHIFT, {16, 160}},
        {"left Shift", 160, {16, 160}},
        {"right Shift", 161, {16, 161}},
        {"Ctrl", VK_CONTROL, {17, 162}},
        {"right Ctrl", 163, {17, 163}},
        {"Alt", VK_ALT, {18, 164}},
        {"right Alt", 165, {18, 165}},
        {"Windows", VK_WIN, {91}},
    };
    for (const ModifierCase& Case : CASES) {
        Down(Case.nVk);
        EXPECT_EQ(Desktop.KeysDown(), Case.WhileDown) << Case.szName;
        Up(Case.nVk);
        EXPECT_EQ(Desktop.KeysDown(), Keys{}) << Case.szName;
    }
}

TEST_F(VirtualKeyboardTest, GenericModifier_StaysDown_WhileOtherSideIsHeld) {
    Down(160);
    Down(161);
    Up(160);
    EXPECT_EQ(Desktop.KeysDown(), (Keys{16, 161}));
    Up(161);
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
}

TEST_F(VirtualKeyboardTest, Key_TypesCzechLayout_WhenModifiersAreHeld) {
    Tap('2');
    TapWith(VK_SHIFT, '2');
    TapWith(161, 'Z');
    Down(VK_CONTROL);
    TapWith(VK_ALT, 'V');
    Up(VK_CONTROL);
    Tap(32);
    Tap(VK_TAB);
    EXPECT_EQ(TakeTyped(), L"ě2Z@ \t");
}

TEST_F(VirtualKeyboardTest, Key_TypesNothing_WhenItIsAShortcutOrHasNoText) {
    TapWith(VK_CONTROL, 'C');
    TapWith(VK_ALT, 'F');
    TapWith(VK_WIN, 'E');
    Down(VK_CONTROL);
    TapWith(VK_ALT, 'A');  // no third character on that key
    Up(VK_CONTROL);
    Tap(VK_ESCAPE);
    Tap(112);
    Tap(39);
    Tap(250);  // a key that the layout does not have
    EXPECT_EQ(TakeTyped(), L"");
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
}

TEST_F(VirtualKeyboardTest, CapsLock_TurnsLettersOnly_WhenOn) {
    Tap(VK_CAPS);
    EXPECT_TRUE(Desktop.Keyboard.bCapsLock);
    Tap('A');
    Tap('2');
    Tap('1');
    TapWith(VK_SHIFT, 'A');
    TapWith(VK_SHIFT, '2');
    EXPECT_EQ(TakeTyped(), L"AĚ+a2");
    Tap(VK_CAPS);
    Tap('A');
    EXPECT_EQ(TakeTyped(), L"a");
}

TEST_F(VirtualKeyboardTest, DeadKey_JoinsNextLetter_WhenTheyFormOne) {
    Tap(VK_DEAD);
    EXPECT_EQ(TakeTyped(), L"");
    Tap('O');
    TapWith(VK_SHIFT, VK_DEAD);
    Tap('D');
    TapWith(VK_SHIFT, VK_DEAD);
    TapWith(VK_SHIFT, 'N');
    EXPECT_EQ(TakeTyped(), L"óďŇ");
}

TEST_F(VirtualKeyboardTest, DeadKey_StandsAlone_WhenNextCharacterDoesNotJoin) {
    Tap(VK_DEAD);
    Tap('Q');
    Tap('O');
    EXPECT_EQ(TakeTyped(), L"\u00B4qo");
}

TEST_F(VirtualKeyboardTest, TextField_HasEnterAndBackspace_WhenTapped) {
    Tap(VK_BACKSPACE);
    Tap('A');
    Tap('B');
    Tap(VK_BACKSPACE);
    Tap(VK_ENTER);
    EXPECT_EQ(TakeTyped(), L"a\n");
}

TEST_F(VirtualKeyboardTest, ScanCode_PressesItsKey_WhenRecordHasNoVirtualKey) {
    const InputRecord Records[] = {
        KeyRecord{.wScan = 42, .dwFlags = KEY_FLAG_SCANCODE},
        KeyRecord{.wScan = 0x1E, .dwFlags = KEY_FLAG_SCANCODE},
        KeyRecord{.wScan = 0x1E, .dwFlags = KEY_FLAG_SCANCODE | KEY_FLAG_UP},
        KeyRecord{.wScan = 42, .dwFlags = KEY_FLAG_SCANCODE | KEY_FLAG_UP},
        KeyRecord{.wScan = 0x7F, .dwFlags = KEY_FLAG_SCANCODE},  // no such key
    };
    EXPECT_EQ(SendInputRecords(Records), 5U);
    EXPECT_EQ(TakeTyped(), L"A");
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
}

TEST_F(VirtualKeyboardTest, SendInput_NotesOneCallAndItsRecords_WhenSent) {
    const InputRecord Records[] = {KeyRecord{.wVk = 65},
                                   KeyRecord{.wScan = 30, .dwFlags = KEY_FLAG_UP},
                                   MouseRecord{.nDx = 3, .nDy = -4, .dwFlags = MOUSE_FLAG_MOVE}};
    EXPECT_EQ(SendInputRecords(Records), 3U);
    EXPECT_EQ(Desktop.TakeEffects(),
              std::vector<std::string>{"SendInput: vk 65 down, scan 30 up, mouse (3, -4) flags 1"});
    EXPECT_EQ(Desktop.Sent, (std::vector<InputRecord>{Records[0], Records[1], Records[2]}));
    EXPECT_EQ(Desktop.Pointer, (ScreenPoint{3, -4}));
}

TEST_F(VirtualKeyboardTest, SendInput_TakesNothing_WhenBlocked) {
    Desktop.Failures.Always("SendInputRecords");
    Tap('A');
    EXPECT_EQ(TakeTyped(), L"");
    EXPECT_TRUE(Desktop.Sent.empty());
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
}

TEST_F(VirtualKeyboardTest, KeybdEvent_PressesKeyAndIsNoted_WhenCalled) {
    KeybdEvent('A', 30, KEY_FLAG_DOWN, 0);
    KeybdEvent('A', 30, KEY_FLAG_UP, 7);
    EXPECT_EQ(TakeTyped(), L"a");
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
    EXPECT_EQ(Desktop.TakeEffects(),
              (std::vector<std::string>{"keybd_event: vk 65 scan 30 flags 0",
                                        "keybd_event: vk 65 scan 30 flags 2 extra 7"}));
}

// The hook of these tests: notes what it saw and swallows Right.
std::vector<KeyHookRecord> Seen;
std::vector<uintptr_t> Messages;
intptr_t SwallowRight(int32_t /*nCode*/, uintptr_t wParam, const KeyHookRecord& Record) {
    Seen.push_back(Record);
    Messages.push_back(wParam);
    return Record.vkCode == 39 ? 1 : CallNextHook(1, 0, wParam, Record);
}

class HookedKeyboardTest : public VirtualKeyboardTest {
  protected:
    HookedKeyboardTest() {
        Seen.clear();
        Messages.clear();
        hHook = InstallHook(HOOK_KEYBOARD_LL, SwallowRight);
    }
    uintptr_t hHook = 0;
};

TEST_F(HookedKeyboardTest, Hook_SeesEveryKey_WhenPhysicalOrSent) {
    Desktop.PhysicalKey('A', true);
    Desktop.PhysicalKey('A', false);
    Tap('B');
    KeybdEvent('C', 0x2E, KEY_FLAG_UP, 0);
    ASSERT_EQ(Seen.size(), 5U);
    constexpr uint32_t INJECTED = 0x10;
    EXPECT_EQ(Seen[0].vkCode, 65U);
    EXPECT_EQ(Seen[0].scanCode, 0x1EU);
    EXPECT_EQ(Seen[0].flags, 0U);
    EXPECT_EQ(Seen[0].time, Desktop.nNow);
    EXPECT_EQ(Seen[1].flags, HOOK_FLAG_UP);
    EXPECT_EQ(Seen[2].vkCode, 66U);
    EXPECT_EQ(Seen[2].flags, INJECTED);
    EXPECT_EQ(Seen[4].flags, INJECTED | HOOK_FLAG_UP);
    EXPECT_EQ(Messages, (std::vector<uintptr_t>{0x100, 0x101, 0x100, 0x101, 0x101}));
}

TEST_F(HookedKeyboardTest, Hook_KeepsSwallowedKeyFromEverybody_WhenItReturnsNonZero) {
    Desktop.Keyboard.bPassedOn = false;
    Tap(39);
    EXPECT_FALSE(Desktop.Keyboard.bPassedOn);
    Down(39);
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
    Tap('A');
    EXPECT_TRUE(Desktop.Keyboard.bPassedOn);
    EXPECT_EQ(TakeTyped(), L"a");
}

TEST_F(HookedKeyboardTest, RemoveHook_WantsItsHandle_WhenCalled) {
    EXPECT_FALSE(RemoveHook(0));
    EXPECT_FALSE(RemoveHook(hHook + 1));
    EXPECT_TRUE(RemoveHook(hHook));
    EXPECT_FALSE(RemoveHook(hHook));
    Tap(39);
    EXPECT_TRUE(Seen.empty());
}

TEST_F(VirtualKeyboardTest, InstallHook_Fails_WhenRefusedOrOfAnotherType) {
    EXPECT_EQ(InstallHook(2, SwallowRight), 0U);
    Desktop.Failures.Always("InstallHook");
    EXPECT_EQ(InstallHook(HOOK_KEYBOARD_LL, SwallowRight), 0U);
    EXPECT_EQ(Desktop.TakeEffects(), std::vector<std::string>{});
}

struct ScanCase {
    const char* szCharacter;
    int16_t nKey;
};

TEST_F(VirtualKeyboardTest, VkKeyScan_NamesKeyAndModifiers_WhenLayoutHasTheCharacter) {
    constexpr ScanCase CASES[] = {
        {"a", 'A'},         {"A", 0x100 | 'A'}, {"č", '4'},          {"4", 0x100 | '4'},
        {"@", 0x600 | 'V'}, {"ů", 186},         {"\"", 0x100 | 186}, {" ", 32},
        {"\r", 13},         {"ó", -1},          {"Č", -1},
    };
    for (const ScanCase& Case : CASES) {
        const auto nByte = static_cast<uint8_t>(ToAnsi(FromUtf8(Case.szCharacter)).front());
        EXPECT_EQ(VkKeyScanAnsi(nByte), Case.nKey) << Case.szCharacter;
    }
}

TEST_F(VirtualKeyboardTest, LayoutQueries_Agree_WhenAskedForOneKey) {
    EXPECT_EQ(MapVirtualKeyCode('A', 0), 0x1EU);
    EXPECT_EQ(MapVirtualKeyCode('A', 2), uint32_t{'A'});
    EXPECT_EQ(MapVirtualKeyCode(250, 0), 0U);
    EXPECT_EQ(MapVirtualKeyCode('A', 1), 0U) << "not translated on this desktop";
    EXPECT_EQ(OemKeyScanCode('A'), 0x1001EU);
    EXPECT_EQ(OemKeyScanCode(0xF3), 0xFFFFFFFF) << "ó needs the dead key";
    std::array<uint8_t, 256> State{};
    uint16_t nCharacter = 99;
    EXPECT_EQ(KeyToAnsi('2', 3, State, nCharacter), 1);
    EXPECT_EQ(nCharacter, 0xEC);
    State[16] = 0x80;
    EXPECT_EQ(KeyToAnsi('2', 3, State, nCharacter), 1);
    EXPECT_EQ(nCharacter, '2');
    EXPECT_EQ(KeyToAnsi(VK_DEAD, 13, State, nCharacter), -1);
    EXPECT_EQ(KeyToAnsi(39, 0x4D, State, nCharacter), 0);
    EXPECT_EQ(KeyToAnsi(250, 0, State, nCharacter), 0);
}

TEST_F(VirtualKeyboardTest, Layout_TypesEveryCharacterItNames_WhenAskedBackAndForth) {
    for (int nByte = 33; nByte < 256; ++nByte) {
        const int16_t nKey = VkKeyScanAnsi(static_cast<uint8_t>(nByte));
        if (nKey == -1) continue;
        const auto nVk = static_cast<uint16_t>(nKey & 0xFF);
        if ((nKey & 0x100) != 0) Down(VK_SHIFT);
        if ((nKey & 0x200) != 0) Down(VK_CONTROL);
        if ((nKey & 0x400) != 0) Down(VK_ALT);
        Tap(nVk);
        for (const uint16_t nModifier : {VK_SHIFT, VK_CONTROL, VK_ALT})
            Up(nModifier);
        const std::wstring strWanted = FromAnsi(std::string(1, static_cast<char>(nByte)));
        if (Desktop.Keyboard.nPendingDeadKey != 0) {
            EXPECT_EQ(std::wstring(1, Desktop.Keyboard.nPendingDeadKey), strWanted) << nByte;
            Desktop.Keyboard.nPendingDeadKey = 0;
        } else {
            EXPECT_EQ(TakeTyped(), strWanted) << nByte;
        }
    }
}

TEST_F(VirtualKeyboardTest, NumLock_LiftsShiftAroundAKeyOfTheNumberPadOnly) {
    constexpr uint32_t LEFT = 37, SHIFT = 16, EXTENDED = 1;
    const struct {
        bool bNumLock;
        uint32_t nVk, nFlags;
        bool bShift;
    } ROWS[] = {{true, LEFT, 0, false},
                {true, LEFT, EXTENDED, true},
                {false, LEFT, 0, true},
                {true, 'A', 0, true}};
    for (const auto& Row : ROWS) {
        Desktop.Keyboard.bNumLock = Row.bNumLock;
        Desktop.DeliverKey(SHIFT, 0, KEY_FLAG_DOWN, true);
        Desktop.Keyboard.Received.clear();
        Desktop.DeliverKey(Row.nVk, 0, Row.nFlags, true);
        ASSERT_EQ(Desktop.Keyboard.Received.size(), 1U);
        EXPECT_EQ(Desktop.Keyboard.Received.front().bShift, Row.bShift) << Row.nVk;
        Desktop.DeliverKey(Row.nVk, 0, KEY_FLAG_UP | Row.nFlags, true);
        Desktop.DeliverKey(SHIFT, 0, KEY_FLAG_UP, true);
    }
}

}  // namespace
}  // namespace taviro::platform
