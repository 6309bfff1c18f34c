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
     .strMeaning = L"Joystick smí přijít a odejít za běhu: připojený později začne ovládat mapu, "
                   L"odpojený nebo usnulý platí za puštěný a ovládání převezme klávesnice. Jinak "
                   L"se joystick hledá jen při spuštění."},
};

}  // namespace

std::span<const ComfortKey> ComfortKeys() {
    return COMFORT_KEYS;
}

}  // namespace taviro
