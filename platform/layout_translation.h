// SPDX-License-Identifier: MIT
// Between what the rules send and what the system gets: a key that types a character on the
// keyboard of the maps, and does not type the same on the layout in front, is replaced by that
// character itself. So a cell types its caption whatever layout the program in front has.
// Shortcuts, and keys without a character, stay the keys that they are.
#pragma once

#include <cstdint>
#include <set>
#include <span>
#include <vector>

#include "platform/front_layout.h"
#include "platform/keys.h"
#include "platform/map_keyboard.h"

namespace taviro::platform {

/// Key and modifiers that the rules send for a character, in the form of VkKeyScanAnsi. While the
/// layout in front is the one of the maps it is asked: not all systems have every sign of it at the
/// same key.
int16_t KeyForCharacter(wchar_t nCharacter);

/// Follows the keys that are sent, in their order; one for all of them.
class LayoutTranslation {
  public:
    /// What the system gets in place of one record: mostly the record itself; the character (flag
    /// KEY_FLAG_UNICODE); nothing for a dead key that is kept until its letter comes.
    std::vector<KeyRecord> Of(const KeyRecord& Record);

  private:
    /// A modifier that is down, as it was sent.
    struct Held {
        int32_t nVk;
        KeyRecord Down;
    };
    bool IsHeld(int32_t nGeneric) const;
    bool NoteModifier(int32_t nVk, const KeyRecord& Record);
    bool IsShortcut() const;
    bool TypesTheSame(const LayoutKey& Key, const KeyRecord& Record, wchar_t nTyped,
                      LayoutHandle hLayout) const;
    wchar_t TypedBy(const LayoutKey& Key) const;
    std::vector<KeyRecord> Press(const LayoutKey& Key, const KeyRecord& Record,
                                 LayoutHandle hLayout);
    void AppendCharacter(std::vector<KeyRecord>& Sent, wchar_t nCharacter) const;

    std::vector<Held> m_Held;
    std::set<uint32_t> m_Replaced;  // keys that are down, and were not sent as keys
    wchar_t m_nDeadKey = 0;
};

/// The records of one call and what is sent for them.
struct TranslatedRecords {
    std::vector<InputRecord> Sent;
    std::vector<size_t> Ends;  ///< for each record, how many are sent up to its end
};

TranslatedRecords Translate(LayoutTranslation& Translation, std::span<const InputRecord> Records);

/// How many of the records were sent, when the system took only some of what was sent for them.
uint32_t RecordsTaken(const TranslatedRecords& Records, size_t nSentTaken);

}  // namespace taviro::platform
