// SPDX-License-Identifier: MIT
#include "actions/standing_word.h"

#include <algorithm>
#include <array>

#include "platform/keys.h"
#include "platform/text.h"
#include "vocabulary/key_code.h"

namespace taviro {

namespace {

constexpr wchar_t BACKSPACE = 8;
constexpr wchar_t FIRST_PRINTED = 32;

constexpr uint32_t DEAD_KEY_BIT = 0x80000000;
constexpr uint32_t CHARACTER_BITS = 0xFFFF;
constexpr uint32_t LOW_BYTE = 0xFF;
constexpr int32_t NEEDS_ALTGR = platform::LAYOUT_CTRL | platform::LAYOUT_ALT;

void AppendCharacter(StandingWord& Word, wchar_t nCharacter) {
    Word.strText += Word.bDeadKey || Word.bCapsLock ? UNKNOWN_CHARACTER : nCharacter;
    Word.bDeadKey = false;
}

// A Backspace behind a dead key only takes that one back.
void TakeBack(StandingWord& Word) {
    if (!Word.bDeadKey && !Word.strText.empty()) Word.strText.pop_back();
    Word.bDeadKey = false;
}

// A character of the layout: printed, or what its key does instead.
void TakeCharacter(StandingWord& Word, wchar_t nCharacter) {
    if (nCharacter == BACKSPACE) return TakeBack(Word);
    if (nCharacter >= FIRST_PRINTED) return AppendCharacter(Word, nCharacter);
    LosePlace(Word);
}

void TakeKeyWithoutCharacter(StandingWord& Word, int32_t nVk) {
    if (nVk == KeyCode::CapsLock) Word.bCapsLock = !Word.bCapsLock;
    if (MovesTextCursor(nVk)) LosePlace(Word);
}

// The virtual key of a scan code, 0 when the layout has none. Of the two keys that share the codes
// of the number pad it is the one that moves the cursor: then nothing is erased by mistake.
int32_t VkOfScan(int32_t nScan) {
    for (int32_t nVk = 1; nVk < KeyCode::Count; ++nVk) {
        const uint32_t nFound =
            platform::MapVirtualKeyCode(static_cast<uint32_t>(nVk), platform::MAP_VK_TO_SCAN) &
            LOW_BYTE;
        if (nFound != 0 && nFound == (static_cast<uint32_t>(nScan) & LOW_BYTE)) {
            return nVk;
        }
    }
    return 0;
}

// A key of which only the unshifted character can be had without disturbing the layout's memory of
// dead keys; of that only A to Z are sure in either case.
void TakeMappedKey(StandingWord& Word, int32_t nVk, bool bShift) {
    const uint32_t nFound =
        platform::MapVirtualKeyCode(static_cast<uint32_t>(nVk), platform::MAP_VK_TO_CHARACTER);
    if (nFound == 0) {
        if (bShift) return LosePlace(Word);  // it selects
        return TakeKeyWithoutCharacter(Word, nVk);
    }
    if ((nFound & DEAD_KEY_BIT) != 0) {
        Word.bDeadKey = true;
        return;
    }
    const auto nCharacter = static_cast<wchar_t>(nFound & CHARACTER_BITS);
    if (nCharacter < FIRST_PRINTED) return TakeCharacter(Word, nCharacter);
    const bool bSure = nCharacter >= L'A' && nCharacter <= L'Z';
    const auto nSmall = static_cast<wchar_t>(nCharacter - L'A' + L'a');
    AppendCharacter(Word, bSure ? (bShift ? nCharacter : nSmall) : UNKNOWN_CHARACTER);
}

void TakePlainKey(StandingWord& Word, int32_t nVk, KeyAnswer Plain) {
    if (Plain.nCount < 0) {
        Word.bDeadKey = true;
    } else if (Plain.nCount == 0) {
        TakeKeyWithoutCharacter(Word, nVk);
    } else {
        TakeCharacter(Word, Plain.nCharacter);
    }
}

void TakeTypedCharacter(StandingWord& Word, int32_t nCharacter) {
    const auto nByte = static_cast<uint8_t>(nCharacter);
    const int32_t nFound = platform::VkKeyScanAnsi(nByte);
    if (nFound == platform::LAYOUT_NO_KEY) return;  // no key types it
    // Sent without AltGr, the key types another character.
    if ((nFound & NEEDS_ALTGR) != 0) return AppendCharacter(Word, UNKNOWN_CHARACTER);
    TakeCharacter(Word, platform::FromAnsi(std::string(1, static_cast<char>(nByte))).front());
}

void TakeModified(StandingWord& Word, const ActionCode& Action) {
    if (Action.nModifiers != Modifier::Shift) return LosePlace(Word);  // a shortcut may do anything
    TakeMappedKey(Word, Action.nKey, true);
}

}  // namespace

void NoteAction(StandingWord& Word, const ActionCode& Action, KeyAnswer Plain) {
    SetStanding(Word, StandingText(Word));
    if (Action.nKey < 1) return;  // a command
    switch (KindOf(Action).nEffect) {
        case WordEffect::LayoutCharacter:
            return TakePlainKey(Word, Action.nKey, Plain);
        case WordEffect::TypedCharacter:
            return TakeTypedCharacter(Word, Action.nKey);
        case WordEffect::UnknownCharacter:
            return AppendCharacter(Word, UNKNOWN_CHARACTER);
        case WordEffect::CaronLetter:
            return AppendCharacter(Word, Plain.nCharacter);
        case WordEffect::ScannedKey:
            return TakeMappedKey(Word, VkOfScan(Action.nKey), false);
        case WordEffect::SilentKey:
            return TakeMappedKey(Word, Action.nKey, false);
        case WordEffect::ModifiedKey:
            return TakeModified(Word, Action);
    }
}

std::wstring StandingText(const StandingWord& Word) {
    const platform::WindowHandle hNow = platform::ForegroundActiveWindow();
    const bool bElsewhere = hNow != 0 && hNow != Word.hWindow;  // 0 tells nothing
    return bElsewhere ? std::wstring{} : Word.strText;
}

void SetStanding(StandingWord& Word, std::wstring_view strText) {
    Word.strText = strText;
    Word.hWindow = platform::ForegroundActiveWindow();
}

void LosePlace(StandingWord& Word) {
    Word.strText.clear();
    Word.bDeadKey = false;
}

}  // namespace taviro
