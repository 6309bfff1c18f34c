// SPDX-License-Identifier: MIT
#include "maps/key_names.h"

#include <algorithm>

namespace taviro {

namespace {

struct KeyNameText {
    const wchar_t* szName;
    int32_t nCode;
};

// Code below 1000: virtual key; 1xxx a character; 2xxx acute, 3xxx caron dead key and a scan code;
// 4xxx a scan code; 5xxx a scan code with AltGr.
constexpr KeyNameText KEY_NAMES[KEY_NAME_COUNT] = {
    {L"A", 65},
    {L"Á", 56},
    {L"B", 66},
    {L"C", 67},
    {L"Č", 52},
    {L"D", 68},
    {L"ď", 3032},
    {L"E", 69},
    {L"É", 48},
    {L"Ě", 50},
    {L"F", 70},
    {L"G", 71},
    {L"H", 72},
    {L"I", 73},
    {L"Í", 57},
    {L"J", 74},
    {L"K", 75},
    {L"L", 76},
    {L"M", 77},
    {L"N", 78},
    {L"ň", 3049},
    {L"O", 79},
    {L"Ó", 2024},
    {L"P", 80},
    {L"Q", 81},
    {L"R", 82},
    {L"Ř", 53},
    {L"S", 83},
    {L"Š", 51},
    {L"T", 84},
    {L"Ť", 3020},
    {L"U", 85},
    {L"Ú", 219},
    {L"Ů", 186},
    {L"V", 86},
    {L"W", 87},
    {L"X", 88},
    {L"Y", 89},
    {L"Ý", 55},
    {L"Z", 90},
    {L"Ž", 54},
    {L"0", 1048},
    {L"1", 1049},
    {L"2", 1050},
    {L"3", 1051},
    {L"4", 1052},
    {L"5", 1053},
    {L"6", 1054},
    {L"7", 1055},
    {L"8", 1056},
    {L"9", 1057},
    {L"F1", 112},
    {L"F2", 113},
    {L"F3", 114},
    {L"F4", 115},
    {L"F5", 116},
    {L"F6", 117},
    {L"F7", 118},
    {L"F8", 119},
    {L"F9", 120},
    {L"F10", 121},
    {L"F11", 122},
    {L"F12", 123},
    {L"mezera", 32},
    {L"čárka", 188},
    {L"tečka", 190},
    {L"dvojtečka", 1058},
    {L"otazník", 1063},
    {L"středník", 192},
    {L"vykřičník", 1033},
    {L"levá závorka", 1040},
    {L"pravá závorka", 1041},
    {L"rovno", 1061},
    {L"plus", 1043},
    {L"mínus", 1045},
    {L"hvězdička", 4055},
    {L"lomítko", 1047},
    {L"zavináč", 5047},
    {L"number", 5045},
    {L"procento", 1037},
    {L"ampersand", 5046},
    {L"CAPS", 20},
    {L"ENTER", 13},
    {L"DELETE", 46},
    {L"BACKSPACE", 8},
    {L"ESCAPE", 27},
    {L"ALT", 4056},
    {L"TAB", 9},
    {L"CONTROL", 4029},
    {L"CONTEXT", 93},
    {L"HOME", 36},
    {L"END", 35},
    {L"PAGE UP", 33},
    {L"PAGE DOWN", 34},
    {L"INSERT", 45},
    {L"šipka vlevo", 37},
    {L"šipka vpravo", 39},
    {L"šipka nahoru", 38},
    {L"šipka dolů", 40},
    {L"menší", 1060},
    {L"větší", 1062},
};

}  // namespace

void InitKeyTable() {
    std::transform(std::begin(KEY_NAMES), std::end(KEY_NAMES), KeyTable.begin(),
                   [](const KeyNameText& Entry) {
                       return KeyName{Entry.szName, Entry.nCode};
                   });
}

std::vector<std::wstring> KeyNames() {
    std::vector<std::wstring> Names;
    for (const KeyName& Entry : KeyTable) {
        if (Entry.Name.empty()) break;
        Names.push_back(Entry.Name);
    }
    return Names;
}

bool KeyCodeAt(int32_t nIndex, int32_t& nCode) {
    if (nIndex < 0 || nIndex >= KEY_NAME_COUNT) return false;
    nCode = KeyTable[static_cast<size_t>(nIndex)].Code;
    return true;
}

int32_t KeyIndexOf(int32_t nCode) {
    const auto it = std::find_if(KeyTable.begin(), KeyTable.end(),
                                 [&](const KeyName& Entry) { return Entry.Code == nCode; });
    return it == KeyTable.end() ? -1 : static_cast<int32_t>(it - KeyTable.begin());
}

}  // namespace taviro
