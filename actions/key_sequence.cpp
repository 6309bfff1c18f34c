// SPDX-License-Identifier: MIT
#include "actions/key_sequence.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "platform/keys.h"
#include "platform/text.h"

namespace taviro {

namespace {

constexpr uint8_t VK_SHIFT = 16;
constexpr uint8_t VK_CTRL = 17;
constexpr uint8_t VK_ALT = 18;

// Bits of the layout's answer for a character.
constexpr int32_t NEEDS_SHIFT = 0x100;
constexpr int32_t NEEDS_CTRL = 0x200;
constexpr int32_t NEEDS_ALT = 0x400;

constexpr uint32_t VK_TO_SCAN = 0;

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
constexpr size_t LONGEST_NAME = 10;

struct Modifiers {
    bool bShift = false;
    bool bCtrl = false;
    bool bAlt = false;
};

// One step of a text: a key or some characters, with modifiers around all its repetitions.
struct Item {
    Modifiers Held;
    int16_t nRepeat = 1;
    std::string_view strToken;
};

// Takes items off a text in Windows-1250.
class SequenceReader {
  public:
    explicit SequenceReader(std::string_view strText)
        : m_strRest(strText), m_nAfterLastBrace(strText.size() - (strText.rfind('}') + 1)) {}

    bool IsAtEnd() const { return m_strRest.empty(); }
    Item TakeItem();

  private:
    std::string_view TakeCharacter() {
        const std::string_view strTaken = m_strRest.substr(0, 1);
        m_strRest.remove_prefix(strTaken.size());
        return strTaken;
    }
    // Asked of every "{": must not search a long text again for each of them.
    bool HasClosingBrace() const { return m_strRest.size() > m_nAfterLastBrace; }

    std::string_view m_strRest;
    size_t m_nAfterLastBrace;  // characters behind the last "}"; all of them when there is none
};

// Splits "a 10" into the token and its count. A number that does not fit 16 bits is no count: it is
// a slip of the hand that would keep the keyboard busy for hours.
void SplitCount(Item& Taken) {
    const std::string_view strInside = Taken.strToken;
    size_t n = strInside.size();
    while (n >= 3 && strInside[n - 1] >= '0' && strInside[n - 1] <= '9')
        --n;
    if (n == strInside.size() || n < 2 || strInside[n - 1] != ' ') return;
    // Unread, the count stays 1.
    (void)std::from_chars(strInside.data() + n, strInside.data() + strInside.size(), Taken.nRepeat);
    Taken.strToken = strInside.substr(0, n - 1);
}

Item SequenceReader::TakeItem() {
    Item Taken;
    Taken.strToken = TakeCharacter();
    for (; Taken.strToken == "+" || Taken.strToken == "^" || Taken.strToken == "%";
         Taken.strToken = TakeCharacter()) {
        if (Taken.strToken == "+") Taken.Held.bShift = true;
        if (Taken.strToken == "^") Taken.Held.bCtrl = true;
        if (Taken.strToken == "%") Taken.Held.bAlt = true;
    }
    if (Taken.strToken != "{" || !HasClosingBrace()) return Taken;
    const size_t nClose = m_strRest.find('}');
    Taken.strToken = m_strRest.substr(0, nClose);
    m_strRest.remove_prefix(nClose + 1);
    SplitCount(Taken);
    return Taken;
}

char UpperLetter(char n) {
    return n >= 'a' && n <= 'z' ? static_cast<char>(n - 'a' + 'A') : n;
}

// Virtual key of a name in any case, 0 when the token is none.
uint8_t NamedVk(std::string_view strToken) {
    if (strToken.empty() || strToken.size() > LONGEST_NAME) return 0;
    std::string strUpper(strToken);
    std::transform(strUpper.begin(), strUpper.end(), strUpper.begin(), UpperLetter);
    const auto* pKey = std::find_if(std::begin(NAMED_KEYS), std::end(NAMED_KEYS),
                                    [&](const NamedKey& Key) { return Key.strName == strUpper; });
    return pKey == std::end(NAMED_KEYS) ? uint8_t{0} : pKey->nVk;
}

CharacterKey KeyOfCharacter(uint8_t nCharacter) {
    const int32_t nFound = platform::VkKeyScanAnsi(nCharacter);
    const uint32_t nScan = platform::OemKeyScanCode(platform::CharToOemAnsi(nCharacter));
    return {.nVk = static_cast<uint8_t>(nFound),
            .nScan = static_cast<uint8_t>(nScan),
            .bShift = (nFound & NEEDS_SHIFT) != 0,
            .bCtrl = (nFound & NEEDS_CTRL) != 0,
            .bAlt = (nFound & NEEDS_ALT) != 0};
}

void BuildTables() {
    if (SequenceTables.bBuilt) return;
    for (size_t n = 0; n < SequenceTables.Characters.size(); ++n) {
        SequenceTables.Characters[n] = KeyOfCharacter(static_cast<uint8_t>(n));
        SequenceTables.ScanCodes[n] =
            static_cast<uint8_t>(platform::MapVirtualKeyCode(static_cast<uint32_t>(n), VK_TO_SCAN));
    }
    SequenceTables.bBuilt = true;
}

void SendVk(uint8_t nVk, uint32_t dwFlags) {
    platform::KeybdEvent(nVk, SequenceTables.ScanCodes[nVk], dwFlags, 0);
}

// Pressed and released in the same order, Shift first.
void SendModifiers(const Modifiers& Keys, uint32_t dwFlags) {
    if (Keys.bShift) SendVk(VK_SHIFT, dwFlags);
    if (Keys.bCtrl) SendVk(VK_CTRL, dwFlags);
    if (Keys.bAlt) SendVk(VK_ALT, dwFlags);
}

void SendCharacter(char nCharacter, const Modifiers& Held) {
    const CharacterKey& Key = SequenceTables.Characters[static_cast<uint8_t>(nCharacter)];
    const Modifiers Missing{.bShift = Key.bShift && !Held.bShift,
                            .bCtrl = Key.bCtrl && !Held.bCtrl,
                            .bAlt = Key.bAlt && !Held.bAlt};
    SendModifiers(Missing, platform::KEY_FLAG_DOWN);
    platform::KeybdEvent(Key.nVk, Key.nScan, platform::KEY_FLAG_DOWN, 0);
    platform::KeybdEvent(Key.nVk, Key.nScan, platform::KEY_FLAG_UP, 0);
    SendModifiers(Missing, platform::KEY_FLAG_UP);
}

void SendItem(const Item& Wanted) {
    const uint8_t nVk = NamedVk(Wanted.strToken);
    SendModifiers(Wanted.Held, platform::KEY_FLAG_DOWN);
    for (int16_t n = 0; n < Wanted.nRepeat; ++n) {
        if (nVk != 0) {
            SendVk(nVk, platform::KEY_FLAG_DOWN);
            SendVk(nVk, platform::KEY_FLAG_UP);
            continue;
        }
        for (const char nCharacter : Wanted.strToken)
            SendCharacter(nCharacter, Wanted.Held);
    }
    SendModifiers(Wanted.Held, platform::KEY_FLAG_UP);
}

}  // namespace

void vbSendKey(const std::wstring& strText) {
    if (strText.empty()) return;
    BuildTables();
    const std::string strBytes = platform::ToAnsi(strText);
    SequenceReader Reader(strBytes);
    while (!Reader.IsAtEnd())
        SendItem(Reader.TakeItem());
}

}  // namespace taviro
