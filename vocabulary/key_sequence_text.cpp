// SPDX-License-Identifier: MIT
#include "vocabulary/key_sequence_text.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace taviro {

namespace {

constexpr std::string_view SHIFT_MARK = "+";
constexpr std::string_view CTRL_MARK = "^";
constexpr std::string_view ALT_MARK = "%";
constexpr std::string_view OPEN_BRACE = "{";
constexpr char CLOSE_BRACE = '}';
constexpr std::wstring_view MARKS = L"+^%~{";

struct NamedKey {
    std::string_view strName;
    uint8_t nVk;
};

constexpr NamedKey NAMED_KEYS[] = {
    {"LBUTTON", 1},     {"RBUTTON", 2},      {"BREAK", 3},     {"CANCEL", 3},     {"MBUTTON", 4},
    {"BACKSPACE", 8},   {"BS", 8},           {"BKSP", 8},      {"TAB", 9},        {"CLEAR", 12},
    {"ENTER", 13},      {"~", 13},           {"SHIFT", 16},    {"CONTROL", 17},   {"MENU", 18},
    {"ALT", 18},        {"PAUSE", 19},       {"CAPSLOCK", 20}, {"ESCAPE", 27},    {"ESC", 27},
    {"SPACE", 32},      {"PGUP", 33},        {"PGDN", 34},     {"END", 35},       {"HOME", 36},
    {"LEFT", 37},       {"UP", 38},          {"RIGHT", 39},    {"DOWN", 40},      {"SELECT", 41},
    {"PRTSC", 42},      {"EXECUTE", 43},     {"SNAPSHOT", 44}, {"INSERT", 45},    {"INS", 45},
    {"DELETE", 46},     {"DEL", 46},         {"HELP", 47},     {"NUMPAD0", 96},   {"NUMPAD1", 97},
    {"NUMPAD2", 98},    {"NUMPAD3", 99},     {"NUMPAD4", 100}, {"NUMPAD5", 101},  {"NUMPAD6", 102},
    {"NUMPAD7", 103},   {"NUMPAD8", 104},    {"NUMPAD9", 105}, {"MULTIPLY", 106}, {"ADD", 107},
    {"SEPARATOR", 108}, {"SUBTRACT", 109},   {"DECIMAL", 110}, {"DIVIDE", 111},   {"F1", 112},
    {"F2", 113},        {"F3", 114},         {"F4", 115},      {"F5", 116},       {"F6", 117},
    {"F7", 118},        {"F8", 119},         {"F9", 120},      {"F10", 121},      {"F11", 122},
    {"F12", 123},       {"F13", 124},        {"F14", 125},     {"F15", 126},      {"F16", 127},
    {"NUMLOCK", 144},   {"SCROLLLOCK", 145},
};

char UpperLetter(char n) {
    return n >= 'a' && n <= 'z' ? static_cast<char>(n - 'a' + 'A') : n;
}

// Splits "a 10" into the token and its count. A number that does not fit 16 bits is no count: it is
// a slip of the hand that would keep the keyboard busy for hours.
void SplitCount(SequenceStep& Taken) {
    const std::string_view strInside = Taken.strToken;
    size_t n = strInside.size();
    while (n >= 3 && strInside[n - 1] >= '0' && strInside[n - 1] <= '9')
        --n;
    if (n == strInside.size() || n < 2 || strInside[n - 1] != ' ') return;
    // Unread, the count stays 1.
    (void)std::from_chars(strInside.data() + n, strInside.data() + strInside.size(), Taken.nRepeat);
    Taken.strToken = strInside.substr(0, n - 1);
}

}  // namespace

SequenceReader::SequenceReader(std::string_view strText)
    : m_strRest(strText), m_nAfterLastBrace(strText.size() - (strText.rfind(CLOSE_BRACE) + 1)) {}

std::string_view SequenceReader::TakeCharacter() {
    const std::string_view strTaken = m_strRest.substr(0, 1);
    m_strRest.remove_prefix(strTaken.size());
    return strTaken;
}

// Asked of every "{": must not search a long text again for each of them.
bool SequenceReader::HasClosingBrace() const {
    return m_strRest.size() > m_nAfterLastBrace;
}

bool SequenceReader::TakeModifier(std::string_view strCharacter, HeldModifiers& Held) const {
    if (strCharacter == SHIFT_MARK) return Held.bShift = true;
    if (strCharacter == CTRL_MARK) return Held.bCtrl = true;
    if (strCharacter == ALT_MARK) return Held.bAlt = true;
    return false;
}

SequenceStep SequenceReader::TakeStep() {
    SequenceStep Taken;
    Taken.strToken = TakeCharacter();
    while (TakeModifier(Taken.strToken, Taken.Held))
        Taken.strToken = TakeCharacter();
    if (Taken.strToken != OPEN_BRACE || !HasClosingBrace()) return Taken;
    const size_t nClose = m_strRest.find(CLOSE_BRACE);
    Taken.strToken = m_strRest.substr(0, nClose);
    m_strRest.remove_prefix(nClose + 1);
    SplitCount(Taken);
    return Taken;
}

uint8_t NamedVk(std::string_view strToken) {
    std::string strUpper(strToken);
    std::transform(strUpper.begin(), strUpper.end(), strUpper.begin(), UpperLetter);
    const auto* pKey = std::find_if(std::begin(NAMED_KEYS), std::end(NAMED_KEYS),
                                    [&](const NamedKey& Key) { return Key.strName == strUpper; });
    return pKey == std::end(NAMED_KEYS) ? uint8_t{0} : pKey->nVk;
}

bool IsPlainText(std::wstring_view strText) {
    return strText.find_first_of(MARKS) == std::wstring_view::npos;
}

}  // namespace taviro
