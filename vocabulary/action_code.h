// SPDX-License-Identifier: MIT
// The number that a cell or a button stores for the key that it presses: modifiers x 10000 + kind x
// 1000 + key. What the parts mean, and what each kind does, stands here alone; a new kind is a row
// of the table in action_code.cpp and a test.
#pragma once

#include <cstdint>
#include <span>

namespace taviro {

/// Digits of the modifiers. Shift, Ctrl and Alt add up; the Windows key goes with no other.
namespace Modifier {
inline constexpr int32_t Shift = 1;
inline constexpr int32_t Ctrl = 2;
inline constexpr int32_t Alt = 4;
inline constexpr int32_t Windows = 9;
}  // namespace Modifier

/// An action code taken apart. Of a negative code every part is negative or 0.
struct ActionCode {
    int32_t nModifiers = 0;  ///< a sum of Modifier's digits; greater in a code of any size
    int32_t nKind = 0;       ///< the digit of the thousands
    int32_t nKey = 0;  ///< the last three digits: virtual key, character or scan code; below 1 the
                       ///< command is carried out instead
    bool operator==(const ActionCode&) const = default;
};

/// Every number has its parts, and their number is that number again.
ActionCode ParseActionCode(int32_t nCode);
int32_t ComposeActionCode(const ActionCode& Action);

bool HasModifier(const ActionCode& Action, int32_t nModifier);

/// The code of the same key without modifiers.
int32_t UnmodifiedCode(int32_t nCode);

/// Kind and modifiers as one number, as the rules of prediction count kinds: 10 and more with a
/// modifier.
int32_t WholeKind(const ActionCode& Action);
ActionCode FromWholeKind(int32_t nKey, int32_t nWholeKind);

/// Whether the code is Shift+Delete, which is sent its own way.
bool IsShiftDelete(const ActionCode& Action);

/// How the key of a kind is pressed.
enum class KeyRoute {
    VirtualKey,  ///< as a virtual key
    Character,   ///< the number is a Windows-1250 character; the key that types it is looked up
    ScanCode,    ///< as a scan code
};

/// What the key does to the word that is being typed.
enum class WordEffect {
    LayoutCharacter,   ///< what the layout says of the plain virtual key
    TypedCharacter,    ///< the character of the number
    UnknownCharacter,  ///< one character, which is not known
    CaronLetter,       ///< the letter that the table of composed letters has, else one not known
    ScannedKey,        ///< what the layout says of the key at the place of the scan code
    SilentKey,         ///< a virtual key of which the layout must be asked without side effects
    ModifiedKey,       ///< the same with modifiers: a shortcut, but for Shift
};

/// A key that goes down or up around the key itself, by scan code.
struct ScanEvent {
    uint16_t nScan;
    bool bDown;
};

struct ActionKind {
    const char* szName;  ///< for tests and messages of the tools
    KeyRoute nRoute;
    std::span<const ScanEvent> Before;  ///< sent one by one before the key, and after it
    std::span<const ScanEvent> After;
    WordEffect nEffect;
};

/// The kind of an action. With modifiers every key is a virtual key, whatever the digit says, and
/// so is that of a digit without a meaning.
const ActionKind& KindOf(const ActionCode& Action);

/// A letter that is typed as a dead key and a letter: the Czech layout has no key for it.
struct ComposedLetter {
    wchar_t nLetter;
    ActionCode Action;
};

/// The composed letters that cells type. Other letters can be typed so as well, but are not known
/// by their codes.
std::span<const ComposedLetter> ComposedLetters();

/// The composed letter that an action types, 0 when it is not known.
wchar_t ComposedLetterOf(const ActionCode& Action);

}  // namespace taviro
