// SPDX-License-Identifier: MIT
#include "actions/key_sequence.h"

#include "actions/key_action.h"
#include "platform/keys.h"
#include "platform/text.h"
#include "vocabulary/key_code.h"
#include "vocabulary/key_sequence_text.h"

namespace taviro {

namespace {

CharacterKey KeyOfCharacter(uint8_t nCharacter) {
    const int32_t nFound = platform::VkKeyScanAnsi(nCharacter);
    const uint32_t nScan = platform::OemKeyScanCode(platform::CharToOemAnsi(nCharacter));
    return {.nVk = static_cast<uint8_t>(nFound),
            .nScan = static_cast<uint8_t>(nScan),
            .bShift = (nFound & platform::LAYOUT_SHIFT) != 0,
            .bCtrl = (nFound & platform::LAYOUT_CTRL) != 0,
            .bAlt = (nFound & platform::LAYOUT_ALT) != 0};
}

void BuildTables() {
    if (SequenceTables.bBuilt) return;
    for (size_t n = 0; n < SequenceTables.Characters.size(); ++n) {
        SequenceTables.Characters[n] = KeyOfCharacter(static_cast<uint8_t>(n));
        SequenceTables.ScanCodes[n] = static_cast<uint8_t>(
            platform::MapVirtualKeyCode(static_cast<uint32_t>(n), platform::MAP_VK_TO_SCAN));
    }
    SequenceTables.bBuilt = true;
}

void SendVk(uint8_t nVk, uint32_t dwFlags) {
    platform::KeybdEvent(nVk, SequenceTables.ScanCodes[nVk], dwFlags, 0);
}

// Pressed and released in the same order, Shift first.
void SendModifiers(const HeldModifiers& Keys, uint32_t dwFlags) {
    if (Keys.bShift) SendVk(KeyCode::Shift, dwFlags);
    if (Keys.bCtrl) SendVk(KeyCode::Ctrl, dwFlags);
    if (Keys.bAlt) SendVk(KeyCode::Alt, dwFlags);
}

void SendCharacter(char nCharacter, const HeldModifiers& Held) {
    const CharacterKey& Key = SequenceTables.Characters[static_cast<uint8_t>(nCharacter)];
    const HeldModifiers Missing{.bShift = Key.bShift && !Held.bShift,
                                .bCtrl = Key.bCtrl && !Held.bCtrl,
                                .bAlt = Key.bAlt && !Held.bAlt};
    SendModifiers(Missing, platform::KEY_FLAG_DOWN);
    platform::KeybdEvent(Key.nVk, Key.nScan, platform::KEY_FLAG_DOWN, 0);
    platform::KeybdEvent(Key.nVk, Key.nScan, platform::KEY_FLAG_UP, 0);
    SendModifiers(Missing, platform::KEY_FLAG_UP);
}

void SendStep(const SequenceStep& Wanted) {
    const uint8_t nVk = NamedVk(Wanted.strToken);
    SendModifiers(Wanted.Held, platform::KEY_FLAG_DOWN);
    for (int16_t n = 0; n < Wanted.nRepeat; ++n) {
        if (nVk != 0) {
            SendVk(nVk, platform::KEY_FLAG_DOWN);
            SendVk(nVk, platform::KEY_FLAG_UP);
            continue;
        }
        for (const char nCharacter : Wanted.strToken)
            SendCharacter(nCharacter, Wanted.Held);
    }
    SendModifiers(Wanted.Held, platform::KEY_FLAG_UP);
}

}  // namespace

void vbSendKey(const std::wstring& strText) {
    if (strText.empty()) return;
    const KeyAction Underway;
    BuildTables();
    const std::string strBytes = platform::ToAnsi(strText);
    SequenceReader Reader(strBytes);
    while (!Reader.IsAtEnd())
        SendStep(Reader.TakeStep());
}

}  // namespace taviro
