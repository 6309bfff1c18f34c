// SPDX-License-Identifier: MIT
#include "platform/input_ledger.h"

#include <algorithm>

#include "platform/key_flags.h"

namespace taviro::platform {

namespace {

constexpr uint32_t BUTTON_DOWN = MOUSE_FLAG_LEFTDOWN | MOUSE_FLAG_RIGHTDOWN;
constexpr uint32_t BUTTON_UP = MOUSE_FLAG_LEFTUP | MOUSE_FLAG_RIGHTUP;
static_assert(MOUSE_FLAG_LEFTUP == MOUSE_FLAG_LEFTDOWN << 1 &&
              MOUSE_FLAG_RIGHTUP == MOUSE_FLAG_RIGHTDOWN << 1);

bool IsPress(const InputRecord& Record) {
    if (const auto* pKey = std::get_if<KeyRecord>(&Record))
        return (pKey->dwFlags & KEY_FLAG_UP) == 0;
    return (std::get<MouseRecord>(Record).dwFlags & BUTTON_DOWN) != 0;
}

bool IsRelease(const InputRecord& Record) {
    if (const auto* pKey = std::get_if<KeyRecord>(&Record))
        return (pKey->dwFlags & KEY_FLAG_UP) != 0;
    return (std::get<MouseRecord>(Record).dwFlags & BUTTON_UP) != 0;
}

InputRecord ReleaseOf(const InputRecord& Press) {
    if (const auto* pKey = std::get_if<KeyRecord>(&Press)) {
        KeyRecord Up = *pKey;
        Up.dwFlags |= KEY_FLAG_UP;
        return Up;
    }
    return MouseRecord{.dwFlags = (std::get<MouseRecord>(Press).dwFlags & BUTTON_DOWN) << 1};
}

// A key is named by its virtual key, or without one by its scan code or character.
bool LiftsTheSame(const KeyRecord& One, const KeyRecord& Other) {
    if (One.wVk != 0 || Other.wVk != 0) return One.wVk == Other.wVk;
    return One.wScan == Other.wScan &&
           (One.dwFlags & KEY_FLAG_UNICODE) == (Other.dwFlags & KEY_FLAG_UNICODE);
}

bool LiftsTheSame(const InputRecord& One, const InputRecord& Other) {
    const auto* pOne = std::get_if<KeyRecord>(&One);
    const auto* pOther = std::get_if<KeyRecord>(&Other);
    if (pOne != nullptr && pOther != nullptr) return LiftsTheSame(*pOne, *pOther);
    if (pOne != nullptr || pOther != nullptr) return false;
    return (std::get<MouseRecord>(One).dwFlags & std::get<MouseRecord>(Other).dwFlags &
            BUTTON_UP) != 0;
}

}  // namespace

void InputLedger::Note(std::span<const InputRecord> Sent, size_t nTaken) {
    for (const InputRecord& Taken : Sent.first(std::min(nTaken, Sent.size())))
        Note(Taken);
}

void InputLedger::Note(const InputRecord& Taken) {
    const bool bPress = IsPress(Taken);
    if (!bPress && !IsRelease(Taken)) return;  // a movement
    const InputRecord Release = bPress ? ReleaseOf(Taken) : Taken;
    std::erase_if(m_Releases, [&](const InputRecord& Owed) { return LiftsTheSame(Owed, Release); });
    if (bPress) m_Releases.push_back(Release);
}

std::vector<InputRecord> InputLedger::Releases() const {
    return {m_Releases.rbegin(), m_Releases.rend()};
}

}  // namespace taviro::platform
