// SPDX-License-Identifier: MIT
// Keys on the virtual desktop: a sent key goes through the hook, as on Windows, changes the state
// of the 256 keys and types into the text field of the program in front.
#include <algorithm>

#include "platform/headless/desktop.h"
#include "platform/headless/keyboard_layout.h"
#include "platform/key_flags.h"
#include "platform/text.h"
#include "vocabulary/key_code.h"

namespace taviro::platform {

namespace headless {

namespace {

// The sided keys of a generic modifier: left, right.
struct ModifierKeys {
    int nGeneric, nLeft, nRight;
};
constexpr ModifierKeys MODIFIERS[] = {{KeyCode::Shift, KeyCode::LeftShift, KeyCode::RightShift},
                                      {KeyCode::Ctrl, KeyCode::LeftCtrl, KeyCode::RightCtrl},
                                      {KeyCode::Alt, KeyCode::LeftAlt, KeyCode::RightAlt}};

void SetKeyState(std::array<bool, 256>& bDown, uint32_t nVk, bool bNowDown) {
    bDown[nVk & 0xFF] = bNowDown;
    for (const ModifierKeys& Keys : MODIFIERS) {
        auto& bLeft = bDown[static_cast<size_t>(Keys.nLeft)];
        auto& bRight = bDown[static_cast<size_t>(Keys.nRight)];
        if (static_cast<int>(nVk) == Keys.nGeneric) bLeft = bNowDown;
        bDown[static_cast<size_t>(Keys.nGeneric)] = bLeft || bRight;
    }
}

std::string KeyName(uint32_t nVk, uint32_t nScan) {
    if (nVk != 0) return "vk " + std::to_string(nVk);
    return "scan " + std::to_string(nScan);
}

}  // namespace

void DesktopState::TypeKey(uint32_t nVk) {
    const LayoutKey* pKey = KeyOfVk(nVk);
    if (pKey == nullptr) return;
    const auto& bDown = Keyboard.bDown;
    const bool bShift = bDown[KeyCode::Shift];
    const bool bAltGr = bDown[KeyCode::Ctrl] && bDown[KeyCode::Alt];
    if (!bAltGr && (bDown[KeyCode::Ctrl] || bDown[KeyCode::Alt] || bDown[KeyCode::LeftWindows]))
        return;  // a shortcut, not a text
    wchar_t nTyped = bAltGr ? pKey->nAltGr : (bShift ? pKey->nShift : pKey->nPlain);
    if (nTyped == 0) return;
    if (Keyboard.bCapsLock && !bAltGr) {
        const std::wstring strTyped(1, nTyped);
        nTyped = (bShift ? ToLower(strTyped) : ToUpper(strTyped)).front();
    }
    if (nTyped == DEAD_ACUTE || nTyped == DEAD_CARON) {
        Keyboard.nPendingDeadKey = nTyped;
        return;
    }
    if (Keyboard.nPendingDeadKey != 0) {
        const wchar_t nLetter = Compose(Keyboard.nPendingDeadKey, nTyped);
        if (nLetter == 0) Keyboard.strTyped += Keyboard.nPendingDeadKey;
        if (nLetter != 0) nTyped = nLetter;
        Keyboard.nPendingDeadKey = 0;
    }
    if (nTyped == L'\b') {
        if (!Keyboard.strTyped.empty()) Keyboard.strTyped.pop_back();
    } else if (nTyped == L'\r') {
        Keyboard.strTyped += L'\n';
    } else if (nTyped >= L' ' || nTyped == L'\t') {
        Keyboard.strTyped += nTyped;
    }
}

void DesktopState::DeliverKey(uint32_t nVk, uint32_t nScan, uint32_t dwFlags, bool bInjected) {
    if (nVk == 0) {
        const LayoutKey* pKey = KeyOfScan(nScan);
        if (pKey == nullptr) return;
        nVk = pKey->nVk;
    }
    const bool bUp = (dwFlags & KEY_FLAG_UP) != 0;
    if (Keyboard.pHook != nullptr) {
        KeyHookRecord Info{.vkCode = nVk, .scanCode = nScan, .time = nNow};
        Info.flags = (bUp ? HOOK_FLAG_UP : 0) | (bInjected ? HOOK_FLAG_INJECTED : 0);
        constexpr uintptr_t KEYDOWN_MESSAGE = 0x100, KEYUP_MESSAGE = 0x101;
        const Within Hook(nNoCallsOut);
        if (Keyboard.pHook(0, bUp ? KEYUP_MESSAGE : KEYDOWN_MESSAGE, Info) != 0) return;
    }
    SetKeyState(Keyboard.bDown, nVk, !bUp);
    if (bUp) return;
    if (nVk == KeyCode::CapsLock) Keyboard.bCapsLock = !Keyboard.bCapsLock;
    const auto& bDown = Keyboard.bDown;
    // Shift is lifted around a key of the number pad, so that it has its meaning without NumLock.
    const bool bOfPad =
        IsAlsoOnNumberPad(static_cast<int32_t>(nVk)) && (dwFlags & KEY_FLAG_EXTENDED) == 0;
    const bool bLifted = bOfPad && Keyboard.bNumLock;
    Keyboard.Received.push_back({.nVk = nVk,
                                 .bShift = bDown[KeyCode::Shift] && !bLifted,
                                 .bCtrl = bDown[KeyCode::Ctrl],
                                 .bAlt = bDown[KeyCode::Alt]});
    TypeKey(nVk);
}

void DesktopState::PhysicalKey(uint8_t nVk, bool bDown) {
    const LayoutKey* pKey = KeyOfVk(nVk);
    DeliverKey(nVk, pKey == nullptr ? 0 : pKey->nScan,
               FlagsForSystem(nVk, bDown ? KEY_FLAG_DOWN : KEY_FLAG_UP), false);
    if (nBusy == 0) RunDue();
}

std::vector<int> DesktopState::KeysDown() const {
    std::vector<int> Keys;
    for (int n = 0; n < 256; ++n) {
        if (Keyboard.bDown[static_cast<size_t>(n)]) Keys.push_back(n);
    }
    return Keys;
}

}  // namespace headless

using headless::Desktop;

namespace {

std::string TextOf(const InputRecord& Record) {
    if (const auto* pKey = std::get_if<KeyRecord>(&Record)) {
        const bool bUp = (pKey->dwFlags & KEY_FLAG_UP) != 0;
        return headless::KeyName(pKey->wVk, pKey->wScan) + (bUp ? " up" : " down");
    }
    const auto& Mouse = std::get<MouseRecord>(Record);
    return "mouse (" + std::to_string(Mouse.nDx) + ", " + std::to_string(Mouse.nDy) + ") flags " +
           std::to_string(Mouse.dwFlags);
}

int16_t FindKey(uint8_t nCharacter) {
    constexpr int16_t SHIFT_BIT = 0x100, ALTGR_BITS = 0x600;
    const std::string strByte(1, static_cast<char>(nCharacter));
    const wchar_t nWanted = FromAnsi(strByte).front();
    for (const auto& Key : headless::LayoutKeys()) {
        if (nWanted == Key.nPlain && Key.nPlain != 0) return Key.nVk;
        if (nWanted == Key.nShift && Key.nShift != 0)
            return static_cast<int16_t>(Key.nVk | SHIFT_BIT);
        if (nWanted == Key.nAltGr && Key.nAltGr != 0)
            return static_cast<int16_t>(Key.nVk | ALTGR_BITS);
    }
    return -1;
}

}  // namespace

uint32_t SendInputRecords(std::span<const InputRecord> Records) {
    std::string strText = "SendInput";
    for (const InputRecord& Record : Records) {
        strText += (strText.back() == 't' ? ": " : ", ") + TextOf(Record);
    }
    Desktop.Record(strText);
    size_t nTaken = Records.size();
    if (Desktop.Refuses(__func__, {}, &nTaken)) nTaken = std::min(nTaken, Records.size());
    for (const InputRecord& Record : Records.first(nTaken)) {
        Desktop.Sent.push_back(Record);
        if (const auto* pKey = std::get_if<KeyRecord>(&Record)) {
            Desktop.DeliverKey(pKey->wVk, pKey->wScan, FlagsForSystem(pKey->wVk, pKey->dwFlags),
                               true);
        } else {
            const auto& Mouse = std::get<MouseRecord>(Record);
            Desktop.Pointer.nX += Mouse.nDx;
            Desktop.Pointer.nY += Mouse.nDy;
        }
    }
    return static_cast<uint32_t>(nTaken);
}

void KeybdEvent(uint8_t nVk, uint8_t nScan, uint32_t dwFlags, uint32_t dwExtraInfo) {
    Desktop.Record("keybd_event: vk " + std::to_string(nVk) + " scan " + std::to_string(nScan) +
                   " flags " + std::to_string(dwFlags) +
                   (dwExtraInfo == 0 ? "" : " extra " + std::to_string(dwExtraInfo)));
    if (Desktop.Refuses(__func__)) return;
    Desktop.DeliverKey(nVk, nScan, FlagsForSystem(nVk, dwFlags), true);
}

int16_t VkKeyScanAnsi(uint8_t nCharacter) {
    return Desktop.Refuses(__func__) ? int16_t{-1} : FindKey(nCharacter);
}

uint32_t OemKeyScanCode(uint8_t nOemCharacter) {
    const int16_t nKey = Desktop.Refuses(__func__) ? int16_t{-1} : FindKey(nOemCharacter);
    if (nKey == -1) return 0xFFFFFFFF;
    const auto* pKey = headless::KeyOfVk(static_cast<uint32_t>(nKey & 0xFF));
    return static_cast<uint32_t>(pKey->nScan) | (static_cast<uint32_t>(nKey >> 8) << 16);
}

// The virtual desktop has one code page: the OEM character is the Windows-1250 one.
uint8_t CharToOemAnsi(uint8_t nCharacter) {
    return nCharacter;
}

uint32_t MapVirtualKeyCode(uint32_t nCode, uint32_t nMapType) {
    constexpr uint32_t TO_SCAN = 0, TO_CHARACTER = 2, DEAD_KEY_BIT = 0x80000000;
    const auto* pKey = headless::KeyOfVk(nCode);
    if (pKey == nullptr || Desktop.Refuses(__func__)) return 0;
    if (nMapType == TO_SCAN) return pKey->nScan;
    if (nMapType != TO_CHARACTER) return 0;
    if (pKey->nPlain == headless::DEAD_ACUTE) return DEAD_KEY_BIT | headless::DEAD_ACUTE;
    return static_cast<uint8_t>(ToAnsi(ToUpper(std::wstring(1, pKey->nPlain))).front());
}

int32_t KeyToAnsi(uint32_t nVk, uint32_t /*nScan*/, const std::array<uint8_t, 256>& KeyState,
                  uint16_t& nCharacter) {
    constexpr uint8_t DOWN = 0x80;
    const auto* pKey = headless::KeyOfVk(nVk);
    if (pKey == nullptr || Desktop.Refuses(__func__)) return 0;
    const bool bShift = (KeyState[KeyCode::Shift] & DOWN) != 0;
    const wchar_t nTyped = bShift ? pKey->nShift : pKey->nPlain;
    if (nTyped == 0) return 0;
    if (nTyped == headless::DEAD_ACUTE || nTyped == headless::DEAD_CARON) return -1;
    nCharacter = static_cast<uint8_t>(ToAnsi(std::wstring(1, nTyped)).front());
    return 1;
}

uintptr_t InstallHook(int32_t nHookType, KeyHookProcedure pProcedure) {
    if (nHookType != HOOK_KEYBOARD_LL || Desktop.Refuses(__func__)) return 0;
    if (Desktop.Keyboard.pHook != nullptr) return 0;
    Desktop.Record("keyboard hook installed");
    Desktop.Keyboard.pHook = pProcedure;
    Desktop.Keyboard.hHook = 1;
    return 1;
}

bool RemoveHook(uintptr_t hHook) {
    if (hHook == 0 || hHook != Desktop.Keyboard.hHook || Desktop.Refuses(__func__)) return false;
    Desktop.Record("keyboard hook removed");
    Desktop.Keyboard.pHook = nullptr;
    Desktop.Keyboard.hHook = 0;
    return true;
}

intptr_t CallNextHook(uintptr_t /*hHook*/, int32_t /*nCode*/, uintptr_t /*wParam*/,
                      const KeyHookRecord& /*Record*/) {
    Desktop.Keyboard.bPassedOn = true;
    return 0;
}

}  // namespace taviro::platform
