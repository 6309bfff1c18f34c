// SPDX-License-Identifier: MIT
#include "settings/comfort.h"

namespace taviro {

namespace {

constexpr ComfortKey COMFORT_KEYS[] = {
    {.strSection = L"Stick",
     .strKey = L"Watch",
     .Target = &Comfort.bWatch,
     .strDefault = L"0",
     .strDelivered = L"1",
     .strMeaning = L"Připravuje se, zatím nic nemění: joystick bude smět přijít a odejít za běhu. "
                   L"Teď se hledá jen při spuštění."},
};

}  // namespace

std::span<const ComfortKey> ComfortKeys() {
    return COMFORT_KEYS;
}

}  // namespace taviro
