// SPDX-License-Identifier: MIT
#include "actions/key_synthesis.h"

#include <array>
#include <span>

#include "platform/clock.h"
#include "platform/keys.h"
#include "platform/messages.h"

namespace taviro {

namespace {

using platform::InputRecord;
using platform::KEY_FLAG_DOWN;
using platform::KEY_FLAG_SCANCODE;
using platform::KEY_FLAG_UP;
using platform::KeyRecord;

// Parts of an action code.
constexpr int32_t MODIFIER_UNIT = 10000;
constexpr int32_t KIND_UNIT = 1000;
constexpr int32_t MODIFIER_SHIFT = 1;
constexpr int32_t MODIFIER_CTRL = 2;
constexpr int32_t MODIFIER_ALT = 4;
constexpr int32_t MODIFIER_WINDOWS = 9;  // not a sum of bits: the Windows key alone
constexpr int32_t KIND_CHARACTER = 1;
constexpr int32_t KIND_ACUTE = 2;
constexpr int32_t KIND_CARON = 3;
constexpr int32_t KIND_SCAN = 4;
constexpr int32_t KIND_ALTGR = 5;
constexpr int32_t KIND_SHIFTED_KEY = 10;  // modifier digit 1, kind 0

constexpr uint8_t VK_SHIFT = 16;
constexpr uint8_t VK_ALT = 18;
constexpr int32_t VK_DELETE = 46;
constexpr uint8_t VK_LEFT_WINDOWS = 91;
constexpr uint16_t VK_RIGHT_SHIFT = 161;

constexpr uint16_t SCAN_DEAD_KEY = 13;  // right of the digit row: acute, with Shift caron
constexpr uint16_t SCAN_CTRL = 29;
constexpr uint16_t SCAN_LEFT_SHIFT = 42;
constexpr uint16_t SCAN_RIGHT_SHIFT = 54;
constexpr uint16_t SCAN_ALT = 56;
constexpr uint16_t SCAN_ALTGR_CTRL = 541;  // the Ctrl that a keyboard sends ahead of AltGr

// Programs that poll the keys' state need to see Shift down before Delete and still after it.
constexpr uint32_t SHIFT_DELETE_PAUSE_MS = 10;

constexpr int32_t SCAN_NEEDS_SHIFT = 0x100;  // bit of the layout's answer for a character
constexpr uint8_t SHIFT_AS_CHARACTER = 16;   // Shift's key code where a character belongs

KeyRecord VkRecord(uint16_t nVk, uint32_t dwFlags) {
    return {.wVk = nVk, .dwFlags = dwFlags};
}

KeyRecord ScanRecord(uint16_t nScan, uint32_t dwFlags) {
    return {.wScan = nScan, .dwFlags = dwFlags | KEY_FLAG_SCANCODE};
}

uint32_t Send(const KeyRecord& Record) {
    const InputRecord Single = Record;
    return platform::SendInputRecords({&Single, 1});
}

uint32_t Send(const KeyRecord& First, const KeyRecord& Second) {
    const std::array<InputRecord, 2> Records{First, Second};
    return platform::SendInputRecords(Records);
}

void SendShiftDelete() {
    KeyDownVk(VK_SHIFT);
    KeyDownScan(SCAN_RIGHT_SHIFT);
    platform::SleepMs(SHIFT_DELETE_PAUSE_MS);
    SendVirtualKey(VK_DELETE);
    platform::SleepMs(SHIFT_DELETE_PAUSE_MS);
    KeyUpVk(VK_SHIFT);
    KeyUpScan(SCAN_RIGHT_SHIFT);
}

void PressModifiers(int32_t nModifiers) {
    if (nModifiers == MODIFIER_WINDOWS) {
        platform::KeybdEvent(VK_LEFT_WINDOWS, 0, KEY_FLAG_DOWN, 0);
        return;
    }
    if ((nModifiers & MODIFIER_ALT) != 0) KeyDownVk(VK_ALT);
    if ((nModifiers & MODIFIER_CTRL) != 0) KeyDownScan(SCAN_CTRL);
    if ((nModifiers & MODIFIER_SHIFT) != 0) {
        KeyDownScan(SCAN_RIGHT_SHIFT);
        platform::RunPendingMessages();
    }
}

void ReleaseModifiers(int32_t nModifiers) {
    if (nModifiers == MODIFIER_WINDOWS) {
        platform::KeybdEvent(VK_LEFT_WINDOWS, 0, KEY_FLAG_UP, 0);
        return;
    }
    if ((nModifiers & MODIFIER_SHIFT) != 0) {
        KeyUpScan(SCAN_RIGHT_SHIFT);
        // The release by scan code can leave the sided Shift down; this tap lifts it for certain.
        SendVirtualKey(VK_RIGHT_SHIFT);
    }
    if ((nModifiers & MODIFIER_CTRL) != 0) KeyUpScan(SCAN_CTRL);
    if ((nModifiers & MODIFIER_ALT) != 0) KeyUpVk(VK_ALT);
}

void TapAfterAcute(uint16_t nScan) {
    KeyDownScan(SCAN_DEAD_KEY);
    KeyUpScan(SCAN_DEAD_KEY);
    KeyTapScan(nScan);
}

void TapAfterCaron(uint16_t nScan) {
    KeyDownScan(SCAN_LEFT_SHIFT);
    KeyDownScan(SCAN_DEAD_KEY);
    KeyUpScan(SCAN_DEAD_KEY);
    KeyUpScan(SCAN_LEFT_SHIFT);
    KeyTapScan(nScan);
}

void TapWithAltGr(uint16_t nScan) {
    KeyDownScan(SCAN_ALTGR_CTRL);
    KeyDownScan(SCAN_ALT);
    KeyTapScan(nScan);
    KeyUpScan(SCAN_ALTGR_CTRL);
    KeyUpScan(SCAN_ALT);
}

void SendKeyOfKind(int32_t nKind, int32_t nKey) {
    const auto nCode = static_cast<uint16_t>(nKey);
    switch (nKind) {
        case KIND_CHARACTER:
            return TypeCharacter(static_cast<uint8_t>(nKey));
        case KIND_ACUTE:
            return TapAfterAcute(nCode);
        case KIND_CARON:
            return TapAfterCaron(nCode);
        case KIND_SCAN:
            KeyTapScan(nCode);
            return;
        case KIND_ALTGR:
            return TapWithAltGr(nCode);
        default:
            SendVirtualKey(nCode);
            return;
    }
}

}  // namespace

ActionCode DecodeActionCode(int32_t nCode) {
    return {
        .nModifiers = nCode / MODIFIER_UNIT, .nKind = nCode / KIND_UNIT, .nKey = nCode % KIND_UNIT};
}

bool IsShiftDelete(const ActionCode& Action) {
    return Action.nModifiers == MODIFIER_SHIFT && Action.nKind == KIND_SHIFTED_KEY &&
           Action.nKey == VK_DELETE;
}

uint32_t SendVirtualKey(uint16_t nVk) {
    return Send(VkRecord(nVk, KEY_FLAG_DOWN), VkRecord(nVk, KEY_FLAG_UP));
}

uint32_t KeyDownVk(uint16_t nVk) {
    return Send(VkRecord(nVk, KEY_FLAG_DOWN));
}

uint32_t KeyUpVk(uint16_t nVk) {
    return Send(VkRecord(nVk, KEY_FLAG_UP));
}

uint32_t KeyTapScan(uint16_t nScan) {
    return Send(ScanRecord(nScan, KEY_FLAG_DOWN), ScanRecord(nScan, KEY_FLAG_UP));
}

uint32_t KeyDownScan(uint16_t nScan) {
    return Send(ScanRecord(nScan, KEY_FLAG_DOWN));
}

uint32_t KeyUpScan(uint16_t nScan) {
    return Send(ScanRecord(nScan, KEY_FLAG_UP));
}

void TypeCharacter(uint8_t nCharacter) {
    const int32_t nFound = platform::VkKeyScanAnsi(nCharacter);
    const auto nVk = static_cast<uint8_t>(nFound);
    const auto nScan = static_cast<uint8_t>(platform::OemKeyScanCode(nCharacter));
    const bool bShift = (nFound & SCAN_NEEDS_SHIFT) != 0;
    // Shift's scan code is what the layout answers for its key code taken as a character.
    uint8_t nShiftScan = 0;
    if (bShift) {
        nShiftScan = static_cast<uint8_t>(platform::VkKeyScanAnsi(SHIFT_AS_CHARACTER));
        platform::KeybdEvent(VK_SHIFT, nShiftScan, KEY_FLAG_DOWN, 0);
    }
    platform::KeybdEvent(nVk, nScan, KEY_FLAG_DOWN, 0);
    // Shift goes up before the key does, so that it is never down longer than the press needs.
    if (bShift) platform::KeybdEvent(VK_SHIFT, nShiftScan, KEY_FLAG_UP, 0);
    platform::KeybdEvent(nVk, nScan, KEY_FLAG_UP, 0);
}

void PressActionCode(int32_t nCode) {
    const ActionCode Action = DecodeActionCode(nCode);
    if (IsShiftDelete(Action)) return SendShiftDelete();
    PressModifiers(Action.nModifiers);
    SendKeyOfKind(Action.nKind, Action.nKey);
    ReleaseModifiers(Action.nModifiers);
}

}  // namespace taviro
