// SPDX-License-Identifier: MIT
#include "platform/layout_translation.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/key_flags.h"
#include "vocabulary/key_code.h"

namespace taviro::platform {

namespace {

bool IsUp(const KeyRecord& Record) {
    return (Record.dwFlags & KEY_FLAG_UP) != 0;
}

// The modifier that a key is, whatever its side; 0 for any other key.
int32_t ModifierOf(int32_t nVk) {
    constexpr int32_t RIGHT_WINDOWS = 92;
    switch (nVk) {
        case KeyCode::Shift:
        case KeyCode::LeftShift:
        case KeyCode::RightShift:
            return KeyCode::Shift;
        case KeyCode::Ctrl:
        case KeyCode::LeftCtrl:
        case KeyCode::RightCtrl:
            return KeyCode::Ctrl;
        case KeyCode::Alt:
        case KeyCode::LeftAlt:
        case KeyCode::RightAlt:
            return KeyCode::Alt;
        case KeyCode::LeftWindows:
        case RIGHT_WINDOWS:
            return KeyCode::LeftWindows;
        default:
            return 0;
    }
}

const LayoutKey* KeyOfRecord(const KeyRecord& Record) {
    return Record.wVk != 0 ? KeyOfVk(MapKeys(), Record.wVk) : KeyOfScan(MapKeys(), Record.wScan);
}

bool IsCommon(const LayoutKey& Key) {
    const auto Common = CommonKeys();
    return &Key >= Common.data() && &Key < Common.data() + Common.size();
}

// A key that is sent as it is carries the scan code that it has in front: some programs read that.
KeyRecord WithScanOf(LayoutHandle hLayout, const LayoutKey& Key, KeyRecord Record) {
    if (Record.wVk != 0 && Record.wScan != 0 && !IsCommon(Key))
        Record.wScan = static_cast<uint16_t>(ScanOnLayout(hLayout, Record.wVk));
    return Record;
}

}  // namespace

int16_t KeyForCharacter(wchar_t nCharacter) {
    const LayoutHandle hLayout = LayoutInFront();
    const int16_t nFound = IsLayoutOfMaps(hLayout) ? KeyOnLayout(hLayout, nCharacter)
                                                   : static_cast<int16_t>(LAYOUT_NO_KEY);
    return nFound != LAYOUT_NO_KEY ? nFound : MapKeyOf(nCharacter);
}

bool LayoutTranslation::IsHeld(int32_t nGeneric) const {
    return std::ranges::any_of(m_Held,
                               [&](const Held& Key) { return ModifierOf(Key.nVk) == nGeneric; });
}

// Returns whether the key is a modifier.
bool LayoutTranslation::NoteModifier(int32_t nVk, const KeyRecord& Record) {
    if (ModifierOf(nVk) == 0) return false;
    std::erase_if(m_Held, [&](const Held& Key) { return Key.nVk == nVk; });
    if (!IsUp(Record)) m_Held.push_back({.nVk = nVk, .Down = Record});
    return true;
}

bool LayoutTranslation::IsShortcut() const {
    return IsHeld(KeyCode::LeftWindows) || IsHeld(KeyCode::Ctrl) != IsHeld(KeyCode::Alt);
}

// The character that the rules mean with the key, Caps Lock aside.
wchar_t LayoutTranslation::TypedBy(const LayoutKey& Key) const {
    if (IsHeld(KeyCode::Ctrl) && IsHeld(KeyCode::Alt)) return Key.nAltGr;
    return IsHeld(KeyCode::Shift) ? Key.nShift : Key.nPlain;
}

bool LayoutTranslation::TypesTheSame(const LayoutKey& Key, const KeyRecord& Record, wchar_t nTyped,
                                     LayoutHandle hLayout) const {
    if (IsCommon(Key)) return true;
    const uint32_t nVk = Record.wVk != 0 ? Record.wVk : VkAtScan(hLayout, Record.wScan & 0xFFU);
    int32_t nNeeded = IsHeld(KeyCode::Shift) ? LAYOUT_SHIFT : 0;
    if (IsHeld(KeyCode::Ctrl)) nNeeded = LAYOUT_CTRL | LAYOUT_ALT;
    return KeyOnLayout(hLayout, nTyped) ==
           static_cast<int16_t>(static_cast<int32_t>(nVk) | nNeeded);
}

// Ctrl and Alt are lifted first: with them a program would take the character for a shortcut. Their
// own release, which follows, then changes nothing.
void LayoutTranslation::AppendCharacter(std::vector<KeyRecord>& Sent, wchar_t nCharacter) const {
    for (size_t n = m_Held.size(); n-- > 0;) {
        const Held& Key = m_Held[n];
        if (ModifierOf(Key.nVk) == KeyCode::Shift) continue;
        Sent.push_back(Key.Down);
        Sent.back().dwFlags |= KEY_FLAG_UP;
    }
    for (const uint32_t nFlag : {KEY_FLAG_DOWN, KEY_FLAG_UP}) {
        Sent.push_back(
            {.wScan = static_cast<uint16_t>(nCharacter), .dwFlags = KEY_FLAG_UNICODE | nFlag});
    }
}

std::vector<KeyRecord> LayoutTranslation::Press(const LayoutKey& Key, const KeyRecord& Record,
                                                LayoutHandle hLayout) {
    std::vector<KeyRecord> Sent;
    wchar_t nTyped = TypedBy(Key);
    if (nTyped == 0) return {WithScanOf(hLayout, Key, Record)};
    const wchar_t nDeadKey = std::exchange(m_nDeadKey, L'\0');
    const bool bDead = IsDeadKey(nTyped);
    if (bDead && nDeadKey == 0) {
        m_nDeadKey = nTyped;
        m_Replaced.insert(Key.nVk);
        return {};
    }
    const bool bSame = !bDead && TypesTheSame(Key, Record, nTyped, hLayout);
    if (IsCapsLockOn() && !IsHeld(KeyCode::Ctrl))
        nTyped = InCapsLock(nTyped, IsHeld(KeyCode::Shift));
    const wchar_t nComposed = nDeadKey == 0 ? L'\0' : Compose(nDeadKey, nTyped);
    if (nDeadKey != 0 && nComposed == 0) AppendCharacter(Sent, nDeadKey);
    if (bSame && nComposed == 0) {
        Sent.push_back(WithScanOf(hLayout, Key, Record));
        return Sent;
    }
    AppendCharacter(Sent, nComposed != 0 ? nComposed : nTyped);
    m_Replaced.insert(Key.nVk);
    return Sent;
}

std::vector<KeyRecord> LayoutTranslation::Of(const KeyRecord& Record) {
    const LayoutKey* pKey = KeyOfRecord(Record);
    const int32_t nVk = pKey != nullptr ? pKey->nVk : Record.wVk;
    if (NoteModifier(nVk, Record)) return {Record};
    if (IsUp(Record) && m_Replaced.erase(static_cast<uint32_t>(nVk)) != 0) return {};
    if (pKey == nullptr) return {Record};
    const LayoutHandle hLayout = LayoutInFront();
    if (IsLayoutOfMaps(hLayout) && m_nDeadKey == 0) return {Record};
    if (IsUp(Record) || IsShortcut()) return {WithScanOf(hLayout, *pKey, Record)};
    return Press(*pKey, Record, hLayout);
}

TranslatedRecords Translate(LayoutTranslation& Translation, std::span<const InputRecord> Records) {
    TranslatedRecords Result;
    for (const InputRecord& Record : Records) {
        if (const auto* pKey = std::get_if<KeyRecord>(&Record)) {
            for (const KeyRecord& Sent : Translation.Of(*pKey))
                Result.Sent.emplace_back(Sent);
        } else {
            Result.Sent.push_back(Record);
        }
        Result.Ends.push_back(Result.Sent.size());
    }
    return Result;
}

uint32_t RecordsTaken(const TranslatedRecords& Records, size_t nSentTaken) {
    return static_cast<uint32_t>(
        std::ranges::count_if(Records.Ends, [&](size_t nEnd) { return nEnd <= nSentTaken; }));
}

}  // namespace taviro::platform
