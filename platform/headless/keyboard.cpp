// SPDX-License-Identifier: MIT
// Keys on the virtual desktop: a sent key goes through the hook, as on Windows, changes the state
// of the 256 keys and types into the text field of the program in front.
#include <algorithm>

#include "platform/headless/desktop.h"
#include "platform/key_flags.h"
#include "platform/map_keyboard.h"
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
    const LayoutKey* pKey = KeyOfVk(KeysOfLayout(LayoutInFront()), nVk);
    if (pKey == nullptr) return;
    const auto& bDown = Keyboard.bDown;
    const bool bShift = bDown[KeyCode::Shift];
    const bool bAltGr = bDown[KeyCode::Ctrl] && bDown[KeyCode::Alt];
    if (!bAltGr && (bDown[KeyCode::Ctrl] || bDown[KeyCode::Alt] || bDown[KeyCode::LeftWindows]))
        return;  // a shortcut, not a text
    wchar_t nTyped = bAltGr ? pKey->nAltGr : (bShift ? pKey->nShift : pKey->nPlain);
    if (nTyped == 0) return;
    if (Keyboard.bCapsLock && !bAltGr) nTyped = InCapsLock(nTyped, bShift);
    if (IsDeadKey(nTyped) && Keyboard.nPendingDeadKey == 0) {
        Keyboard.nPendingDeadKey = nTyped;
        return;
    }
    if (Keyboard.nPendingDeadKey != 0) {
        const wchar_t nLetter = Compose(Keyboard.nPendingDeadKey, nTyped);
        if (nLetter == 0) Keyboard.strTyped += Keyboard.nPendingDeadKey;
        if (nLetter != 0) nTyped = nLetter;
        Keyboard.nPendingDeadKey = 0;
    }
    TypeCharacter(nTyped);
}

// Takes a character into the text field.
void DesktopState::TypeCharacter(wchar_t nTyped) {
    if (nTyped == L'\b') {
        if (!Keyboard.strTyped.empty()) Keyboard.strTyped.pop_back();
    } else if (nTyped == L'\r') {
        Keyboard.strTyped += L'\n';
    } else if (nTyped >= L' ' || nTyped == L'\t') {
        Keyboard.strTyped += nTyped;
    }
}

void DesktopState::DeliverKey(uint32_t nVk, uint32_t nScan, uint32_t dwFlags, bool bInjected) {
    if (bInjected && !MayDriveWindow(Desktop.hForeground)) return;  // swallowed without a word
    const bool bCharacter = (dwFlags & KEY_FLAG_UNICODE) != 0;
    if (bCharacter) {
        constexpr uint32_t VK_OF_CHARACTERS = 231;
        nVk = VK_OF_CHARACTERS;
    } else if (nVk == 0) {
        const LayoutKey* pKey = KeyOfScan(KeysOfLayout(LayoutInFront()), nScan);
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
    if (bCharacter) return TypeCharacter(static_cast<wchar_t>(nScan));
    TypeKey(nVk);
}

void DesktopState::PhysicalKey(uint8_t nVk, bool bDown) {
    nLastInput = nNow;
    bFrontIsOpen = false;
    const LayoutKey* pKey = KeyOfVk(KeysOfLayout(LayoutInFront()), nVk);
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

wchar_t FromByte(uint8_t nCharacter) {
    return FromAnsi(std::string(1, static_cast<char>(nCharacter))).front();
}

/// What the system has taken.
void Take(const InputRecord& Record) {
    Desktop.Keyboard.Ledger.Note({&Record, 1}, 1);
    if (const auto* pKey = std::get_if<KeyRecord>(&Record)) {
        Desktop.DeliverKey(pKey->wVk, pKey->wScan, FlagsForSystem(pKey->wVk, pKey->dwFlags), true);
        return;
    }
    const auto& Mouse = std::get<MouseRecord>(Record);
    Desktop.Pointer.nX += Mouse.nDx;
    Desktop.Pointer.nY += Mouse.nDy;
}

void Translate(const KeyRecord& Record) {
    for (const KeyRecord& Sent : Desktop.Keyboard.Translation.Of(Record))
        Take(Sent);
}

/// How many of the records the system takes.
size_t TakenOf(std::span<const InputRecord> Records) {
    std::string strText = "SendInput";
    for (const InputRecord& Record : Records) {
        strText += (strText.back() == 't' ? ": " : ", ") + TextOf(Record);
    }
    Desktop.Record(strText);
    size_t nTaken = Records.size();
    if (Desktop.Refuses("SendInputRecords", {}, &nTaken)) nTaken = std::min(nTaken, Records.size());
    return nTaken;
}

}  // namespace

uint32_t SendInputRecords(std::span<const InputRecord> Records) {
    const size_t nTaken = TakenOf(Records);
    for (const InputRecord& Record : Records.first(nTaken)) {
        Desktop.Sent.push_back(Record);
        const auto* pKey = std::get_if<KeyRecord>(&Record);
        pKey != nullptr ? Translate(*pKey) : Take(Record);
    }
    return static_cast<uint32_t>(nTaken);
}

void ReleaseHeldInput() {
    const std::vector<InputRecord> Releases = Desktop.Keyboard.Ledger.Releases();
    if (Releases.empty()) return;
    for (const InputRecord& Release : std::span(Releases).first(TakenOf(Releases)))
        Take(Release);
}

void KeybdEvent(uint8_t nVk, uint8_t nScan, uint32_t dwFlags, uint32_t dwExtraInfo) {
    Desktop.Record("keybd_event: vk " + std::to_string(nVk) + " scan " + std::to_string(nScan) +
                   " flags " + std::to_string(dwFlags) +
                   (dwExtraInfo == 0 ? "" : " extra " + std::to_string(dwExtraInfo)));
    if (Desktop.Refuses(__func__)) return;
    Translate({.wVk = nVk, .wScan = nScan, .dwFlags = dwFlags, .dwExtraInfo = dwExtraInfo});
}

int16_t VkKeyScanAnsi(uint8_t nCharacter) {
    return Desktop.Refuses(__func__) ? int16_t{-1} : KeyForCharacter(FromByte(nCharacter));
}

uint32_t OemKeyScanCode(uint8_t nOemCharacter) {
    return MapScanOf(Desktop.Refuses(__func__) ? L'\0' : FromByte(nOemCharacter));
}

// The virtual desktop has one code page: the OEM character is the Windows-1250 one.
uint8_t CharToOemAnsi(uint8_t nCharacter) {
    return nCharacter;
}

uint32_t MapVirtualKeyCode(uint32_t nCode, uint32_t nMapType) {
    return Desktop.Refuses(__func__) ? 0 : MapCodeOf(nCode, nMapType);
}

int32_t KeyToAnsi(uint32_t nVk, uint32_t /*nScan*/, const std::array<uint8_t, 256>& KeyState,
                  uint16_t& nCharacter) {
    return Desktop.Refuses(__func__) ? 0 : MapCharacterOf(nVk, KeyState, nCharacter);
}

LayoutHandle LayoutInFront() {
    const auto& Keyboard = Desktop.Keyboard;
    const auto Window =
        std::ranges::find(Desktop.Windows, Desktop.hForeground, &headless::VirtualWindow::hWindow);
    if (Window == Desktop.Windows.end()) return Keyboard.hLayout;
    const auto Layout = Keyboard.ThreadLayouts.find(Window->nThread);
    return Layout == Keyboard.ThreadLayouts.end() ? Keyboard.hLayout : Layout->second;
}

int16_t KeyOnLayout(LayoutHandle hLayout, wchar_t nCharacter) {
    return FindKey(headless::KeysOfLayout(hLayout), nCharacter);
}

uint32_t VkAtScan(LayoutHandle hLayout, uint32_t nScan) {
    const LayoutKey* pKey = KeyOfScan(headless::KeysOfLayout(hLayout), nScan);
    return pKey == nullptr ? 0 : pKey->nVk;
}

uint32_t ScanOnLayout(LayoutHandle hLayout, uint32_t nVk) {
    const LayoutKey* pKey = KeyOfVk(headless::KeysOfLayout(hLayout), nVk);
    return pKey == nullptr ? 0 : pKey->nScan;
}

bool IsCapsLockOn() {
    return Desktop.Keyboard.bCapsLock;
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
