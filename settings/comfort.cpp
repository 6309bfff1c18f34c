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
     .strMeaning = L"Joystick smí za běhu přijít a odejít. Odpojený platí za puštěný a mapu ovládá "
                   L"klávesnice; jakmile se některý ozve, ovládá ji zase on. Bez toho se joystick "
                   L"hledá jen při spuštění."},
    {.strSection = L"Windows",
     .strKey = L"Rights",
     .Target = &Comfort.bWindowRights,
     .strDefault = L"0",
     .strDelivered = L"1",
     .strMeaning = L"Řekne a ve stavovém řádku ukáže, když je v popředí okno programu spuštěného "
                   L"jako správce: takové okno Taviro ovládat nesmí."},
    {.strSection = L"Windows",
     .strKey = L"Front",
     .Target = &Comfort.bLaunchedInFront,
     .strDefault = L"0",
     .strDelivered = L"1",
     .strMeaning =
         L"Okno spuštěného programu přenese do popředí, když ho Windows otevřou za ostatními "
         L"a mezitím se nic jiného nestalo."},
};

}  // namespace

std::span<const ComfortKey> ComfortKeys() {
    return COMFORT_KEYS;
}

}  // namespace taviro
