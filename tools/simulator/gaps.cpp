// SPDX-License-Identifier: MIT
#include "tools/simulator/gaps.h"

#include <span>

namespace taviro::simulator {

namespace {

constexpr size_t MOST_DIGITS = 9;  // fits 32 bits

bool ReadNumber(std::wstring_view strText, int32_t& nNumber) {
    const bool bDigits = strText.find_first_not_of(L"0123456789") == std::wstring_view::npos;
    if (strText.empty() || strText.size() > MOST_DIGITS || !bDigits) return false;
    nNumber = 0;
    for (const wchar_t nDigit : strText)
        nNumber = nNumber * 10 + (nDigit - L'0');
    return true;
}

bool TakeNumber(const Word& Found, Step& Filled) {
    int32_t nNumber = 0;
    if (Found.bQuoted || !ReadNumber(Found.strText, nNumber)) return false;
    Filled.Numbers.push_back(nNumber);
    return true;
}

bool TakeButton(const Word& Found, Step& Filled) {
    return TakeNumber(Found, Filled) && Filled.Numbers.back() <= LAST_BUTTON;
}

// Two numbers with a comma between them.
bool TakePair(const Word& Found, Step& Filled) {
    const auto nComma = Found.strText.find(L',');
    if (Found.bQuoted || nComma == std::wstring::npos) return false;
    const std::wstring_view strText = Found.strText;
    int32_t nFirst = 0;
    int32_t nSecond = 0;
    if (!ReadNumber(strText.substr(0, nComma), nFirst)) return false;
    if (!ReadNumber(strText.substr(nComma + 1), nSecond)) return false;
    Filled.Numbers.insert(Filled.Numbers.end(), {nFirst, nSecond});
    return true;
}

bool TakeText(const Word& Found, Step& Filled) {
    if (!Found.bQuoted) return false;
    Filled.Texts.push_back(Found.strText);
    return true;
}

bool TakeName(const Word& Found, Step& Filled) {
    if (Found.strText.empty()) return false;
    Filled.Texts.push_back(Found.strText);
    return true;
}

struct NamedNumber {
    std::wstring_view strName;
    int32_t nNumber;
};

bool FindNumber(std::span<const NamedNumber> Names, std::wstring_view strName, int32_t& nNumber) {
    for (const NamedNumber& Named : Names) {
        if (Named.strName != strName) continue;
        nNumber = Named.nNumber;
        return true;
    }
    return false;
}

constexpr NamedNumber DIRECTIONS[] = {
    {L"right", StickRight}, {L"left", StickLeft}, {L"down", StickDown}, {L"up", StickUp}};

bool TakeDirection(const Word& Found, Step& Filled) {
    const std::wstring_view strText = Found.strText;
    if (strText == L"centre") {
        Filled.Numbers.push_back(0);
        return true;
    }
    const auto nPlus = strText.find(L'+');
    int32_t nFirst = 0;
    int32_t nSecond = 0;
    if (!FindNumber(DIRECTIONS, strText.substr(0, nPlus), nFirst)) return false;
    if (nPlus != std::wstring_view::npos) {
        if (!FindNumber(DIRECTIONS, strText.substr(nPlus + 1), nSecond)) return false;
        constexpr int32_t SIDEWAYS = StickRight | StickLeft;
        // A diagonal needs one direction of each axis.
        if (((nFirst & SIDEWAYS) != 0) == ((nSecond & SIDEWAYS) != 0)) return false;
    }
    Filled.Numbers.push_back(nFirst | nSecond);
    return true;
}

constexpr NamedNumber MODES[] = {{L"select", static_cast<int32_t>(ModeWord::Select)},
                                 {L"scan", static_cast<int32_t>(ModeWord::Scan)},
                                 {L"arrow", static_cast<int32_t>(ModeWord::Arrow)},
                                 {L"application", static_cast<int32_t>(ModeWord::Application)},
                                 {L"list", static_cast<int32_t>(ModeWord::List)}};

bool TakeMode(const Word& Found, Step& Filled) {
    int32_t nMode = 0;
    if (!FindNumber(MODES, Found.strText, nMode)) return false;
    Filled.Numbers.push_back(nMode);
    return true;
}

// Virtual-key codes.
constexpr NamedNumber KEYS[] = {
    {L"Backspace", 8}, {L"Tab", 9},     {L"Enter", 13},  {L"Shift", 16},  {L"Ctrl", 17},
    {L"Alt", 18},      {L"Escape", 27}, {L"Space", 32},  {L"PageUp", 33}, {L"PageDown", 34},
    {L"End", 35},      {L"Home", 36},   {L"Left", 37},   {L"Up", 38},     {L"Right", 39},
    {L"Down", 40},     {L"Insert", 45}, {L"Delete", 46}, {L"F1", 112},    {L"F2", 113},
    {L"F3", 114},      {L"F4", 115},    {L"F5", 116},    {L"F6", 117},    {L"F7", 118},
    {L"F8", 119},      {L"F9", 120},    {L"F10", 121},   {L"F11", 122},   {L"F12", 123}};

bool TakeKey(const Word& Found, Step& Filled) {
    const std::wstring& strText = Found.strText;
    int32_t nKey = 0;
    if (strText.size() == 1) {
        const wchar_t nOnly = strText.front();
        const bool bLetter = nOnly >= L'A' && nOnly <= L'Z';
        const bool bDigit = nOnly >= L'0' && nOnly <= L'9';
        if (!bLetter && !bDigit) return false;
        nKey = bLetter ? 'A' + (nOnly - L'A') : '0' + (nOnly - L'0');
    } else if (!FindNumber(KEYS, strText, nKey)) {
        return false;
    }
    Filled.Numbers.push_back(nKey);
    return true;
}

constexpr Gap GAPS[] = {
    {"DIRECTION", L"a direction (right, left, up, down, centre, or a diagonal such as right+down)",
     TakeDirection},
    {"NUMBER", L"a number", TakeNumber},
    {"TIME", L"a time in milliseconds", TakeNumber},
    {"BUTTON", L"a button number (0 to 31)", TakeButton},
    {"CELL", L"a cell (column,row)", TakePair},
    {"POINT", L"a position of the stick (x,y)", TakePair},
    {"KEY", L"a key (A to Z, 0 to 9, F1 to F12, Enter, Left, Shift and the like)", TakeKey},
    {"MODE", L"a mode (select, scan, arrow, application, list)", TakeMode},
    {"TEXT", L"a text in quotation marks", TakeText},
    {"NAME", L"a name", TakeName},
    {"FILE", L"a file name", TakeName},
    {"FOLDER", L"a folder name", TakeName},
};

}  // namespace

const Gap* FindGap(std::string_view strName) {
    for (const Gap& Known : GAPS) {
        if (Known.strName == strName) return &Known;
    }
    return nullptr;
}

}  // namespace taviro::simulator
