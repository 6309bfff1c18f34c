// SPDX-License-Identifier: MIT
// Types a text in key-sequence notation (key_sequence_text.h) into the program in front.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace taviro {

/// The key that types a character, and what it needs.
struct CharacterKey {
    uint8_t nVk;
    uint8_t nScan;
    bool bShift;
    bool bCtrl;
    bool bAlt;
};

/// Built from the live layout on first use and kept: both tables as the layout was then.
struct KeySequenceTables {
    bool bBuilt = false;
    std::array<CharacterKey, 256> Characters{};  ///< by Windows-1250 code
    std::array<uint8_t, 256> ScanCodes{};        ///< by virtual key
};
inline KeySequenceTables SequenceTables;

/// Sends the text. Nothing happens when it is empty.
void vbSendKey(const std::wstring& strText);

}  // namespace taviro
