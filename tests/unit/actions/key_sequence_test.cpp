// SPDX-License-Identifier: MIT
#include "actions/key_sequence.h"

#include <cstdio>

#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

using std::string;

// Events as short texts: virtual key, scan code, "+" down or "-" up.
string Down(int nVk, int nScan) {
    return std::to_string(nVk) + "." + std::to_string(nScan) + "+ ";
}
string Up(int nVk, int nScan) {
    return std::to_string(nVk) + "." + std::to_string(nScan) + "- ";
}
string Tap(int nVk, int nScan = 0) {
    return Down(nVk, nScan) + Up(nVk, nScan);
}
string Shift(const string& strInside) {
    return Down(16, 42) + strInside + Up(16, 42);
}
string Ctrl(const string& strInside) {
    return Down(17, 29) + strInside + Up(17, 29);
}
string Alt(const string& strInside) {
    return Down(18, 56) + strInside + Up(18, 56);
}
// Released in the order of pressing.
string CtrlAlt(const string& strInside) {
    return Down(17, 29) + Down(18, 56) + strInside + Up(17, 29) + Up(18, 56);
}
string ShiftCtrl(const string& strInside) {
    return Down(16, 42) + Down(17, 29) + strInside + Up(16, 42) + Up(17, 29);
}
string AllThree(const string& strInside) {
    return Down(16, 42) + Down(17, 29) + Down(18, 56) + strInside + Up(16, 42) + Up(17, 29) +
           Up(18, 56);
}
string Times(int nCount, const string& strEvents) {
    string strAll;
    for (int n = 0; n < nCount; ++n)
        strAll += strEvents;
    return strAll;
}

// Keys of the layout, by what they type.
const string A = Tap(65, 30), B = Tap(66, 48), C = Tap(67, 46), F = Tap(70, 33), X = Tap(88, 45);
const string E = Tap(69, 18), N = Tap(78, 49), T = Tap(84, 20), R = Tap(82, 19);
const string BLANK = Tap(32, 57), ENTER = Tap(13, 28), TAB = Tap(9, 15), F4 = Tap(115, 62);
const string DIGIT1 = Shift(Tap(49, 2)), DIGIT2 = Shift(Tap(50, 3)), DIGIT3 = Shift(Tap(51, 4));
const string DIGIT5 = Shift(Tap(53, 6)), DIGIT9 = Shift(Tap(57, 10));
const string PLUS = Tap(49, 2), CARET = CtrlAlt(Tap(51, 4)), PERCENT = Shift(Tap(187, 12));
const string OPEN = CtrlAlt(B), CLOSE = CtrlAlt(N), TILDE = CtrlAlt(Tap(49, 2));
const string UNTYPABLE = AllThree(Tap(255, 255));  // no key of the layout types the character

struct SequenceRow {
    const char* szName;
    std::wstring strText;
    string strEvents;
};

class KeySequence : public ActionTest {
  protected:
    static string Send(const std::wstring& strText) {
        Desktop.TakeEffects();
        vbSendKey(strText);
        string strEvents;
        for (const string& strEffect : Desktop.TakeEffects()) {
            int nVk = -1, nScan = -1, nFlags = -1, nEnd = 0;
            const int nRead =
                std::sscanf(strEffect.c_str(), "keybd_event: vk %d scan %d flags %d%n", &nVk,
                            &nScan, &nFlags, &nEnd);
            const bool bWhole = nRead == 3 && static_cast<size_t>(nEnd) == strEffect.size();
            if (bWhole && nFlags == 0) strEvents += Down(nVk, nScan);
            if (bWhole && nFlags == 2) strEvents += Up(nVk, nScan);
            if (!bWhole || (nFlags != 0 && nFlags != 2)) strEvents += "[" + strEffect + "] ";
        }
        return strEvents;
    }
};

class SentText : public KeySequence, public ::testing::WithParamInterface<SequenceRow> {};

TEST_P(SentText, SendsItsEvents_LeavesNoKeyDown) {
    const uint32_t nStart = Desktop.nNow;
    EXPECT_EQ(Send(GetParam().strText), GetParam().strEvents);
    EXPECT_TRUE(Desktop.KeysDown().empty());
    EXPECT_EQ(Desktop.nNow, nStart);
}

const auto NAME_OF_ROW = [](const auto& Info) { return Info.param.szName; };

INSTANTIATE_TEST_SUITE_P(
    Characters, SentText,
    ::testing::Values(
        SequenceRow{"Empty", L"", ""}, SequenceRow{"Letter", L"a", A},
        SequenceRow{"Letters", L"abc", A + B + C}, SequenceRow{"Capital", L"A", Shift(A)},
        SequenceRow{"CapitalsEachHaveTheirShift", L"AB", Shift(A) + Shift(B)},
        SequenceRow{"MixedCase", L"aBc", A + Shift(B) + C},
        SequenceRow{"Blank", L"a b", A + BLANK + B},
        SequenceRow{"DigitsNeedShift", L"12", DIGIT1 + DIGIT2},
        SequenceRow{"CzechLetters", L"čž", Tap(52, 5) + Tap(54, 7)},
        SequenceRow{"AltGrCharacter", L"@", CtrlAlt(Tap(86, 47))},
        SequenceRow{"Brackets", L"[]", CtrlAlt(F) + CtrlAlt(Tap(71, 34))},
        SequenceRow{"Semicolon", L";", Tap(192, 41)}, SequenceRow{"Closing", L")", Tap(221, 27)},
        SequenceRow{"Opening", L"(", Shift(Tap(221, 27))},
        SequenceRow{"Star", L"*", CtrlAlt(Tap(189, 53))},
        SequenceRow{"LineFeedIsNoKey", L"\n", UNTYPABLE},
        SequenceRow{"CarriageReturn", L"\r", ENTER}, SequenceRow{"TabCharacter", L"\t", TAB},
        SequenceRow{"CharacterWithoutAKey", L"ď", UNTYPABLE},
        SequenceRow{"CharacterWithoutAKeyBetweenOthers", L"aďb", A + UNTYPABLE + B},
        SequenceRow{"CharacterOutsideTheCodePage", L"\u4E00", Shift(Tap(188, 51))},
        SequenceRow{"ClosingBraceAlone", L"}", CLOSE}),
    NAME_OF_ROW);

INSTANTIATE_TEST_SUITE_P(
    Prefixes, SentText,
    ::testing::Values(
        SequenceRow{"Shift", L"+a", Shift(A)}, SequenceRow{"Ctrl", L"^a", Ctrl(A)},
        SequenceRow{"Alt", L"%a", Alt(A)}, SequenceRow{"ShiftCtrl", L"+^a", ShiftCtrl(A)},
        SequenceRow{"OrderOfWritingDoesNotCount", L"^+a", ShiftCtrl(A)},
        SequenceRow{"AllThree", L"%^+a", AllThree(A)},
        SequenceRow{"RepeatedPrefix", L"++a", Shift(A)},
        SequenceRow{"OnlyTheNextCharacter", L"+ab", Shift(A) + B},
        SequenceRow{"ShiftOverACapital", L"+A", Shift(A)},
        SequenceRow{"CtrlOverACapital", L"^A", Ctrl(Shift(A))},
        SequenceRow{"CtrlOverAltGr", L"^@", Ctrl(Alt(Tap(86, 47)))},
        SequenceRow{"AltOverAltGr", L"%@", Alt(Ctrl(Tap(86, 47)))},
        SequenceRow{"ShiftOverANamedKey", L"+{TAB}", Shift(TAB)},
        SequenceRow{"CtrlF4", L"^{F4}", Ctrl(F4)}, SequenceRow{"AltF4", L"%{f4}", Alt(F4)},
        SequenceRow{"AroundAllRepetitions", L"^{TAB 3}", Ctrl(Times(3, TAB))},
        SequenceRow{"AroundAllRepetitionsOfACharacter", L"^{a 2}", Ctrl(A + A)},
        SequenceRow{"AroundAllCharactersOfAToken", L"+{ab}", Shift(A + B)},
        SequenceRow{"OverEnter", L"^~", Ctrl(ENTER)}, SequenceRow{"AltAtTheEnd", L"%", Alt("")},
        SequenceRow{"ShiftAtTheEnd", L"a+", A + Shift("")},
        SequenceRow{"PrefixesAtTheEnd", L"+^%", AllThree("")},
        SequenceRow{"OverABlank", L"^ ", Ctrl(BLANK)},
        SequenceRow{"OverAnEmptyToken", L"^{}a", Ctrl("") + A},
        SequenceRow{"OverAnOpenBrace", L"+{a", Shift(CtrlAlt(B)) + A}),
    NAME_OF_ROW);

INSTANTIATE_TEST_SUITE_P(
    Braces, SentText,
    ::testing::Values(
        SequenceRow{"Enter", L"{ENTER}", ENTER}, SequenceRow{"AnyCase", L"{enter}", ENTER},
        SequenceRow{"AnyCaseWithCount", L"{Enter 2}", ENTER + ENTER},
        SequenceRow{"BareTilde", L"a~", A + ENTER}, SequenceRow{"BracedTilde", L"{~}", ENTER},
        SequenceRow{"BracedPlus", L"{+}", PLUS}, SequenceRow{"BracedCaret", L"{^}", CARET},
        SequenceRow{"BracedPercent", L"{%}", PERCENT}, SequenceRow{"BracedOpenBrace", L"{{}", OPEN},
        SequenceRow{"BracedCloseBraceIsTypedAfterAnEmptyToken", L"{}}", CLOSE},
        SequenceRow{"EmptyToken", L"{}", ""}, SequenceRow{"EmptyTokenInText", L"a{}b", A + B},
        SequenceRow{"Unclosed", L"{a", OPEN + A}, SequenceRow{"UnclosedAlone", L"{", OPEN},
        SequenceRow{"UnclosedAfterAClosedOne", L"{TAB}{a", TAB + OPEN + A},
        SequenceRow{"UnclosedKeepsLaterSyntax", L"{+a", OPEN + Shift(A)},
        SequenceRow{"FirstCloseBraceCounts", L"{a}b}", A + B + CLOSE},
        SequenceRow{"OpenBraceInsideAToken", L"{a{b}", A + OPEN + B},
        SequenceRow{"UnknownNameIsTyped", L"{tea}", T + E + A},
        SequenceRow{"UnknownNameKeepsItsCase", L"{tEa}", T + Shift(E) + A},
        SequenceRow{"LetterIsNoName", L"{X}", Shift(X)},
        SequenceRow{"BareNameIsText", L"ten", T + E + N},
        SequenceRow{"PrefixesInsideAreCharacters", L"{+a}", PLUS + A},
        SequenceRow{"TildeInAToken", L"{a~}", A + TILDE},
        SequenceRow{"NumberedName", L"{F1}", Tap(112, 59)},
        SequenceRow{"NameOfTwoDigits", L"{F12}", Tap(123, 88)},
        SequenceRow{"NameBeyondTheList", L"{F17}", Shift(F) + DIGIT1 + Shift(Tap(55, 8))},
        SequenceRow{"NameWithABlankInFront", L"{ TAB}", BLANK + Shift(T) + Shift(A) + Shift(B)}),
    NAME_OF_ROW);

INSTANTIATE_TEST_SUITE_P(
    Counts, SentText,
    ::testing::Values(SequenceRow{"Name", L"{ENTER 3}", Times(3, ENTER)},
                      SequenceRow{"Character", L"{a 10}", Times(10, A)},
                      SequenceRow{"Digit", L"{5 3}", Times(3, DIGIT5)},
                      SequenceRow{"Token", L"{ab 2}", A + B + A + B},
                      SequenceRow{"Zero", L"{a 0}", ""},
                      SequenceRow{"ZeroUnderAPrefix", L"^{a 0}", Ctrl("")},
                      SequenceRow{"LeadingZeros", L"{a 002}", A + A},
                      SequenceRow{"NumberedName", L"{F1 2}", Times(2, Tap(112, 59))},
                      SequenceRow{"Blank", L"{  2}", BLANK + BLANK},
                      SequenceRow{"BlankAndOneDigitAreText", L"{ 5}", BLANK + DIGIT5},
                      SequenceRow{"TwoDigitsAreText", L"{12}", DIGIT1 + DIGIT2},
                      SequenceRow{"ThreeDigitsAreText", L"{123}", DIGIT1 + DIGIT2 + DIGIT3},
                      SequenceRow{"NoBlank", L"{a9}", A + DIGIT9},
                      SequenceRow{"BlankAtTheEndIsText", L"{a }", A + BLANK},
                      SequenceRow{"NotANumber", L"{a b}", A + BLANK + B},
                      SequenceRow{"NegativeIsText", L"{a -1}", A + BLANK + Tap(189, 53) + DIGIT1},
                      SequenceRow{"TwoBlanksAreNoName", L"{TAB  2}",
                                  Times(2, Shift(T) + Shift(A) + Shift(B) + BLANK)},
                      SequenceRow{"CountOfTheLastNumber", L"{a 1 2}", Times(2, A + BLANK + DIGIT1)},
                      SequenceRow{"Tilde", L"{~ 2}", ENTER + ENTER},
                      SequenceRow{"BeyondSixteenBitsIsOne", L"{a 32768}", A},
                      SequenceRow{"BeyondEveryWidthIsOne", L"{a 99999999999999999999}", A}),
    NAME_OF_ROW);

// Scan codes are those of the layout; keys that it does not have get 0.
INSTANTIATE_TEST_SUITE_P(
    Names, SentText,
    ::testing::Values(
        SequenceRow{"LButton", L"{LBUTTON}", Tap(1)}, SequenceRow{"RButton", L"{RBUTTON}", Tap(2)},
        SequenceRow{"Break", L"{BREAK}", Tap(3)}, SequenceRow{"Cancel", L"{CANCEL}", Tap(3)},
        SequenceRow{"MButton", L"{MBUTTON}", Tap(4)},
        SequenceRow{"Backspace", L"{BACKSPACE}", Tap(8, 14)},
        SequenceRow{"Bs", L"{BS}", Tap(8, 14)}, SequenceRow{"Bksp", L"{BKSP}", Tap(8, 14)},
        SequenceRow{"Tab", L"{TAB}", TAB}, SequenceRow{"Clear", L"{CLEAR}", Tap(12)},
        SequenceRow{"Shift", L"{SHIFT}", Tap(16, 42)},
        SequenceRow{"Control", L"{CONTROL}", Tap(17, 29)},
        SequenceRow{"Menu", L"{MENU}", Tap(18, 56)}, SequenceRow{"Alt", L"{ALT}", Tap(18, 56)},
        SequenceRow{"Pause", L"{PAUSE}", Tap(19)},
        SequenceRow{"CapsLock", L"{CAPSLOCK}", Tap(20, 58)},
        SequenceRow{"Escape", L"{ESCAPE}", Tap(27, 1)}, SequenceRow{"Esc", L"{ESC}", Tap(27, 1)},
        SequenceRow{"Space", L"{SPACE}", BLANK}, SequenceRow{"PgUp", L"{PGUP}", Tap(33, 73)},
        SequenceRow{"PgDn", L"{PGDN}", Tap(34, 81)}, SequenceRow{"End", L"{END}", Tap(35, 79)},
        SequenceRow{"Home", L"{HOME}", Tap(36, 71)}, SequenceRow{"Left", L"{LEFT}", Tap(37, 75)},
        SequenceRow{"Up", L"{UP}", Tap(38, 72)}, SequenceRow{"Right", L"{RIGHT}", Tap(39, 77)},
        SequenceRow{"Down", L"{DOWN}", Tap(40, 80)}, SequenceRow{"Select", L"{SELECT}", Tap(41)},
        SequenceRow{"PrtSc", L"{PRTSC}", Tap(42)}, SequenceRow{"Execute", L"{EXECUTE}", Tap(43)},
        SequenceRow{"Snapshot", L"{SNAPSHOT}", Tap(44)},
        SequenceRow{"Insert", L"{INSERT}", Tap(45, 82)}, SequenceRow{"Ins", L"{INS}", Tap(45, 82)},
        SequenceRow{"Delete", L"{DELETE}", Tap(46, 83)}, SequenceRow{"Del", L"{DEL}", Tap(46, 83)},
        SequenceRow{"Help", L"{HELP}", Tap(47)}),
    NAME_OF_ROW);

INSTANTIATE_TEST_SUITE_P(
    NumberedNames, SentText,
    ::testing::Values(SequenceRow{"FirstPad", L"{NUMPAD0}{NUMPAD1}{NUMPAD2}{NUMPAD3}{NUMPAD4}",
                                  Tap(96) + Tap(97) + Tap(98) + Tap(99) + Tap(100)},
                      SequenceRow{"LastPad", L"{NUMPAD5}{NUMPAD6}{NUMPAD7}{NUMPAD8}{NUMPAD9}",
                                  Tap(101) + Tap(102) + Tap(103) + Tap(104) + Tap(105)},
                      SequenceRow{
                          "PadSigns", L"{MULTIPLY}{ADD}{SEPARATOR}{SUBTRACT}{DECIMAL}{DIVIDE}",
                          Tap(106, 55) + Tap(107) + Tap(108) + Tap(109) + Tap(110) + Tap(111)},
                      SequenceRow{"FirstFunctionKeys", L"{F1}{F2}{F3}{F4}{F5}{F6}{F7}{F8}",
                                  Tap(112, 59) + Tap(113, 60) + Tap(114, 61) + Tap(115, 62) +
                                      Tap(116, 63) + Tap(117, 64) + Tap(118, 65) + Tap(119, 66)},
                      SequenceRow{"LastFunctionKeys", L"{F9}{F10}{F11}{F12}{F13}{F14}{F15}{F16}",
                                  Tap(120, 67) + Tap(121, 68) + Tap(122, 87) + Tap(123, 88) +
                                      Tap(124) + Tap(125) + Tap(126) + Tap(127)},
                      SequenceRow{"Locks", L"{NUMLOCK}{SCROLLLOCK}", Tap(144, 69) + Tap(145, 70)}),
    NAME_OF_ROW);

TEST_F(KeySequence, TypedText_ArrivesAsWritten) {
    vbSendKey(L"Dobry den, 1 + 1 je {2}! ~Písmo: příliš žluťoučký");
    // "+" before a blank is Shift over it; no key of the layout types "ť".
    EXPECT_EQ(Typed(), L"Dobry den, 1  1 je 2! \nPísmo: příliš žluoučký");
}

TEST_F(KeySequence, Tables_AreBuiltOnceAndKept) {
    EXPECT_FALSE(SequenceTables.bBuilt);
    vbSendKey(L"");
    EXPECT_FALSE(SequenceTables.bBuilt);
    vbSendKey(L"a");
    EXPECT_TRUE(SequenceTables.bBuilt);
    SequenceTables.Characters['a'].nVk = 90;
    EXPECT_EQ(Send(L"a"), Tap(90, 30));
}

TEST_F(KeySequence, Tables_FollowTheLayout) {
    vbSendKey(L"a");
    const CharacterKey& At = SequenceTables.Characters['@'];
    EXPECT_EQ(At.nVk, 86);
    EXPECT_EQ(At.nScan, 47);
    EXPECT_FALSE(At.bShift);
    EXPECT_TRUE(At.bCtrl);
    EXPECT_TRUE(At.bAlt);
    EXPECT_EQ(SequenceTables.ScanCodes[115], 62);
    EXPECT_EQ(SequenceTables.ScanCodes[255], 0);
}

TEST_F(KeySequence, ManyOpenBraces_AreTypedInOnePass) {
    Desktop.bRecording = false;
    vbSendKey(std::wstring(1 << 15, L'{'));
    EXPECT_EQ(Typed().size(), size_t{1} << 15);
}

TEST_F(KeySequence, MegabyteOfPrefixes_PressesEachModifierOnce) {
    EXPECT_EQ(Send(std::wstring(1 << 20, L'+')), Shift(""));
}

}  // namespace
}  // namespace taviro
