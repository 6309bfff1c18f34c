// SPDX-License-Identifier: MIT
// What of the word that is being typed really stands in the text, directly in front of the cursor.
// The typed prefix cannot tell: it holds a NUL for every key whose character is not known, be it a
// letter or Home, and keeps the Backspaces. A chosen completion may only erase what is known here.
//
// Every action is one of: a character (known or not), a Backspace, a dead key that waits for its
// letter, a key that leaves the text alone (Shift, Caps Lock, F5, a command), or one after which
// nobody knows what stands in front of the cursor (arrows, Home, Tab, Esc, Ctrl with a letter).
// After the last kind, and in another window, nothing of the word counts as standing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/windows_and_processes.h"
#include "vocabulary/action_code.h"

namespace taviro {

/// A character that is not known, in the typed prefix and in the standing text.
inline constexpr wchar_t UNKNOWN_CHARACTER = L'\0';

/// What the layout says of a plain virtual key (the system's count and character).
struct KeyAnswer {
    int32_t nCount = 0;  ///< 1 a character, 0 none, negative a dead key
    wchar_t nCharacter = 0;
};

struct StandingWord {
    std::wstring strText;    ///< one element for each character that a Backspace erases
    bool bDeadKey = false;   ///< the next letter is composed, so it is not known
    bool bCapsLock = false;  ///< a cell turned Caps Lock on, and none turned it off again
    platform::WindowHandle hWindow = 0;  ///< the active window in which it was typed
};

/// Takes an action into the word; for a plain virtual key with what the layout answered, for a
/// caron key with the letter that it is known to type.
void NoteAction(StandingWord& Word, const ActionCode& Action, KeyAnswer Plain);

/// What stands in front of the cursor now: nothing when another window is active.
[[nodiscard]] std::wstring StandingText(const StandingWord& Word);

/// The word in front of the cursor is this one, typed into the active window.
void SetStanding(StandingWord& Word, std::wstring_view strText);

/// The cursor may be anywhere. Caps Lock stays as it is.
void LosePlace(StandingWord& Word);

}  // namespace taviro
