// SPDX-License-Identifier: MIT
#include "actions/key_synthesis.h"

#include <array>
#include <span>

#include "actions/key_action.h"
#include "platform/clock.h"
#include "platform/keys.h"
#include "platform/messages.h"
#include "vocabulary/action_code.h"
#include "vocabulary/key_code.h"

namespace taviro {

namespace {

using platform::InputRecord;
using platform::KEY_FLAG_DOWN;
using platform::KEY_FLAG_SCANCODE;
using platform::KEY_FLAG_UP;
using platform::KeyRecord;

// Programs that poll the keys' state need to see Shift down before Delete and still after it.
constexpr uint32_t SHIFT_DELETE_PAUSE_MS = 10;

constexpr uint8_t SHIFT_AS_CHARACTER = KeyCode::Shift;  // where a character belongs

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
    KeyDownVk(KeyCode::Shift);
    KeyDownScan(ScanCode::RightShift);
    platform::SleepMs(SHIFT_DELETE_PAUSE_MS);
    SendVirtualKey(KeyCode::Delete);
    platform::SleepMs(SHIFT_DELETE_PAUSE_MS);
    KeyUpVk(KeyCode::Shift);
    KeyUpScan(ScanCode::RightShift);
}

void PressModifiers(const ActionCode& Action) {
    if (HasModifier(Action, Modifier::Windows)) {
        platform::KeybdEvent(KeyCode::LeftWindows, 0, KEY_FLAG_DOWN, 0);
        return;
    }
    if (HasModifier(Action, Modifier::Alt)) KeyDownVk(KeyCode::Alt);
    if (HasModifier(Action, Modifier::Ctrl)) KeyDownScan(ScanCode::Ctrl);
    if (HasModifier(Action, Modifier::Shift)) {
        KeyDownScan(ScanCode::RightShift);
        platform::RunPendingMessages();
    }
}

void ReleaseModifiers(const ActionCode& Action) {
    if (HasModifier(Action, Modifier::Windows)) {
        platform::KeybdEvent(KeyCode::LeftWindows, 0, KEY_FLAG_UP, 0);
        return;
    }
    if (HasModifier(Action, Modifier::Shift)) {
        KeyUpScan(ScanCode::RightShift);
        // The release by scan code can leave the sided Shift down; this tap lifts it for certain.
        SendVirtualKey(KeyCode::RightShift);
    }
    if (HasModifier(Action, Modifier::Ctrl)) KeyUpScan(ScanCode::Ctrl);
    if (HasModifier(Action, Modifier::Alt)) KeyUpVk(KeyCode::Alt);
}

void SendEvents(std::span<const ScanEvent> Events) {
    for (const ScanEvent& Event : Events)
        Send(ScanRecord(Event.nScan, Event.bDown ? KEY_FLAG_DOWN : KEY_FLAG_UP));
}

void SendKey(KeyRoute nRoute, int32_t nKey) {
    switch (nRoute) {
        case KeyRoute::VirtualKey:
            SendVirtualKey(static_cast<uint16_t>(nKey));
            break;
        case KeyRoute::Character:
            TypeCharacter(static_cast<uint8_t>(nKey));
            break;
        case KeyRoute::ScanCode:
            KeyTapScan(static_cast<uint16_t>(nKey));
            break;
    }
}

}  // namespace

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
    const bool bShift = (nFound & platform::LAYOUT_SHIFT) != 0;
    // Shift's scan code is what the layout answers for its key code taken as a character.
    const auto nShiftScan = static_cast<uint8_t>(platform::VkKeyScanAnsi(SHIFT_AS_CHARACTER));
    if (bShift) platform::KeybdEvent(KeyCode::Shift, nShiftScan, KEY_FLAG_DOWN, 0);
    platform::KeybdEvent(nVk, nScan, KEY_FLAG_DOWN, 0);
    // Shift goes up before the key does, so that it is never down longer than the press needs.
    if (bShift) platform::KeybdEvent(KeyCode::Shift, nShiftScan, KEY_FLAG_UP, 0);
    platform::KeybdEvent(nVk, nScan, KEY_FLAG_UP, 0);
}

void PressActionCode(int32_t nCode) {
    const KeyAction Underway;
    const ActionCode Action = ParseActionCode(nCode);
    if (IsShiftDelete(Action)) return SendShiftDelete();
    const ActionKind& Kind = KindOf(Action);
    PressModifiers(Action);
    SendEvents(Kind.Before);
    SendKey(Kind.nRoute, Action.nKey);
    SendEvents(Kind.After);
    ReleaseModifiers(Action);
}

}  // namespace taviro
