// SPDX-License-Identifier: MIT
// The notation of texts that are typed: plain characters, "+", "^" and "%" for Shift, Ctrl and Alt
// with the next step, names of keys in braces with an optional count.
#pragma once

#include <cstdint>
#include <string_view>

namespace taviro {

struct HeldModifiers {
    bool bShift = false;
    bool bCtrl = false;
    bool bAlt = false;
};

/// One step of a text: a key or some characters, with modifiers around all its repetitions.
struct SequenceStep {
    HeldModifiers Held;
    int16_t nRepeat = 1;
    std::string_view strToken;  ///< a key's name, else characters, each to be typed
};

/// Takes steps off a text in Windows-1250, which must outlive them.
class SequenceReader {
  public:
    explicit SequenceReader(std::string_view strText);

    bool IsAtEnd() const { return m_strRest.empty(); }
    /// At the end an empty step.
    SequenceStep TakeStep();

  private:
    std::string_view TakeCharacter();
    bool TakeModifier(std::string_view strCharacter, HeldModifiers& Held) const;
    bool HasClosingBrace() const;

    std::string_view m_strRest;
    size_t m_nAfterLastBrace;  // characters behind the last "}"; all of them when there is none
};

/// The virtual key of a name, in any case; 0 when it is no key's.
uint8_t NamedVk(std::string_view strToken);

/// Whether a text means the characters that it shows: no mark of the notation is in it.
bool IsPlainText(std::wstring_view strText);

}  // namespace taviro
