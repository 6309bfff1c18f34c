// SPDX-License-Identifier: MIT
#include "vocabulary/action_code.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "vocabulary/key_code.h"

namespace taviro {
namespace {

constexpr ActionCode Plain(int32_t nKind, int32_t nKey) {
    return {.nModifiers = 0, .nKind = nKind, .nKey = nKey};
}

TEST(ActionCodes, Parts_AreTheDigits_AndComposeToTheSameNumber) {
    const struct {
        int32_t nCode;
        ActionCode Parts;
    } Rows[] = {
        {.nCode = 0, .Parts = {.nModifiers = 0, .nKind = 0, .nKey = 0}},
        {.nCode = 65, .Parts = {.nModifiers = 0, .nKind = 0, .nKey = 65}},
        {.nCode = 999, .Parts = {.nModifiers = 0, .nKind = 0, .nKey = 999}},
        {.nCode = 1097, .Parts = {.nModifiers = 0, .nKind = 1, .nKey = 97}},
        {.nCode = 2030, .Parts = {.nModifiers = 0, .nKind = 2, .nKey = 30}},
        {.nCode = 10065, .Parts = {.nModifiers = 1, .nKind = 0, .nKey = 65}},
        {.nCode = 21065, .Parts = {.nModifiers = 2, .nKind = 1, .nKey = 65}},
        {.nCode = 91082, .Parts = {.nModifiers = 9, .nKind = 1, .nKey = 82}},
        {.nCode = -65, .Parts = {.nModifiers = 0, .nKind = 0, .nKey = -65}},
        {.nCode = -13065, .Parts = {.nModifiers = -1, .nKind = -3, .nKey = -65}},
        {.nCode = INT32_MAX, .Parts = {.nModifiers = 214748, .nKind = 3, .nKey = 647}},
        {.nCode = INT32_MIN, .Parts = {.nModifiers = -214748, .nKind = -3, .nKey = -648}},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.nCode);
        EXPECT_EQ(ParseActionCode(Row.nCode), Row.Parts);
        EXPECT_EQ(ComposeActionCode(Row.Parts), Row.nCode);
    }
}

TEST(ActionCodes, WholeKind_CountsTheModifiersIn_AndLeadsBackToTheParts) {
    const struct {
        int32_t nCode, nWholeKind;
    } Rows[] = {{65, 0}, {3032, 3}, {10046, 10}, {13032, 13}, {91082, 91}, {-13065, -13}};
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.nCode);
        const ActionCode Action = ParseActionCode(Row.nCode);
        EXPECT_EQ(WholeKind(Action), Row.nWholeKind);
        EXPECT_EQ(FromWholeKind(Action.nKey, Row.nWholeKind), Action);
    }
}

TEST(ActionCodes, UnmodifiedCode_IsThatOfTheSameKey) {
    EXPECT_EQ(UnmodifiedCode(65), 65);
    EXPECT_EQ(UnmodifiedCode(10065), 65);
    EXPECT_EQ(UnmodifiedCode(13032), 3032);
    EXPECT_EQ(UnmodifiedCode(91082), 1082);
}

TEST(ActionCodes, Modifiers_AddUp_ButTheWindowsKeyGoesAlone) {
    const struct {
        int32_t nModifiers;
        std::string strHeld;
    } Rows[] = {{0, ""},     {1, "Shift "},     {2, "Ctrl "},     {3, "Shift Ctrl "},
                {4, "Alt "}, {5, "Shift Alt "}, {6, "Ctrl Alt "}, {7, "Shift Ctrl Alt "},
                {8, ""},     {9, "Windows "},   {10, "Ctrl "},    {11, "Shift Ctrl "},
                {12, "Alt "}};
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.nModifiers);
        const ActionCode Action{.nModifiers = Row.nModifiers, .nKind = 0, .nKey = 65};
        std::string strHeld;
        if (HasModifier(Action, Modifier::Shift)) strHeld += "Shift ";
        if (HasModifier(Action, Modifier::Ctrl)) strHeld += "Ctrl ";
        if (HasModifier(Action, Modifier::Alt)) strHeld += "Alt ";
        if (HasModifier(Action, Modifier::Windows)) strHeld += "Windows ";
        EXPECT_EQ(strHeld, Row.strHeld);
    }
}

TEST(ActionCodes, ShiftDelete_NeedsModifierKindAndKey) {
    EXPECT_TRUE(IsShiftDelete(ParseActionCode(10046)));
    for (const int32_t nCode : {46, 11046, 20046, 30046, 10045, 10047, -10046})
        EXPECT_FALSE(IsShiftDelete(ParseActionCode(nCode))) << nCode;
}

std::string EventsText(std::span<const ScanEvent> Events) {
    std::string strText;
    for (const ScanEvent& Event : Events)
        strText += std::to_string(Event.nScan) + (Event.bDown ? "+ " : "- ");
    return strText;
}

TEST(ActionCodes, Kinds_AreOneRowEach) {
    const struct {
        ActionCode Action;
        std::string strName;
        KeyRoute nRoute;
        std::string strBefore, strAfter;
        WordEffect nEffect;
    } Rows[] = {
        {.Action = Plain(0, 65),
         .strName = "virtual key",
         .nRoute = KeyRoute::VirtualKey,
         .strBefore = "",
         .strAfter = "",
         .nEffect = WordEffect::LayoutCharacter},
        {.Action = Plain(1, 65),
         .strName = "character",
         .nRoute = KeyRoute::Character,
         .strBefore = "",
         .strAfter = "",
         .nEffect = WordEffect::TypedCharacter},
        {.Action = Plain(2, 30),
         .strName = "acute and key",
         .nRoute = KeyRoute::ScanCode,
         .strBefore = "13+ 13- ",
         .strAfter = "",
         .nEffect = WordEffect::UnknownCharacter},
        {.Action = Plain(3, 32),
         .strName = "caron and key",
         .nRoute = KeyRoute::ScanCode,
         .strBefore = "42+ 13+ 13- 42- ",
         .strAfter = "",
         .nEffect = WordEffect::CaronLetter},
        {.Action = Plain(4, 56),
         .strName = "scan code",
         .nRoute = KeyRoute::ScanCode,
         .strBefore = "",
         .strAfter = "",
         .nEffect = WordEffect::ScannedKey},
        {.Action = Plain(5, 47),
         .strName = "AltGr and key",
         .nRoute = KeyRoute::ScanCode,
         .strBefore = "541+ 56+ ",
         .strAfter = "541- 56- ",
         .nEffect = WordEffect::UnknownCharacter},
        {.Action = Plain(6, 65),
         .strName = "no kind",
         .nRoute = KeyRoute::VirtualKey,
         .strBefore = "",
         .strAfter = "",
         .nEffect = WordEffect::SilentKey},
        {.Action = Plain(9, 65),
         .strName = "no kind",
         .nRoute = KeyRoute::VirtualKey,
         .strBefore = "",
         .strAfter = "",
         .nEffect = WordEffect::SilentKey},
        {.Action = Plain(-1, -65),
         .strName = "no kind",
         .nRoute = KeyRoute::VirtualKey,
         .strBefore = "",
         .strAfter = "",
         .nEffect = WordEffect::SilentKey},
        {.Action = {.nModifiers = 1, .nKind = 3, .nKey = 32},
         .strName = "virtual key with modifiers",
         .nRoute = KeyRoute::VirtualKey,
         .strBefore = "",
         .strAfter = "",
         .nEffect = WordEffect::ModifiedKey},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.strName);
        const ActionKind& Kind = KindOf(Row.Action);
        EXPECT_EQ(Kind.szName, Row.strName);
        EXPECT_EQ(Kind.nRoute, Row.nRoute);
        EXPECT_EQ(EventsText(Kind.Before), Row.strBefore);
        EXPECT_EQ(EventsText(Kind.After), Row.strAfter);
        EXPECT_EQ(Kind.nEffect, Row.nEffect);
    }
}

TEST(ActionCodes, ComposedLetters_AreKnownByTheirCodes) {
    const struct {
        wchar_t nLetter;
        int32_t nCode;
    } Rows[] = {{L'ď', 3032}, {L'ň', 3049}, {L'ť', 3020}, {L'ó', 2024}};
    ASSERT_EQ(ComposedLetters().size(), std::size(Rows));
    for (size_t n = 0; n < std::size(Rows); ++n) {
        EXPECT_EQ(ComposedLetters()[n].nLetter, Rows[n].nLetter);
        EXPECT_EQ(ComposeActionCode(ComposedLetters()[n].Action), Rows[n].nCode);
        EXPECT_EQ(ComposedLetterOf(ParseActionCode(Rows[n].nCode)), Rows[n].nLetter);
    }
    for (const int32_t nCode : {32, 3033, 2032, 13032})
        EXPECT_EQ(ComposedLetterOf(ParseActionCode(nCode)), L'\0') << nCode;
}

// Maps, settings and scripts store them.
TEST(KeyCodes, Names_HaveTheSystemsNumbers) {
    const struct {
        const char* szName;
        int32_t nCode;
        int32_t nNumber;
    } Rows[] = {
        {"Backspace", KeyCode::Backspace, 0x08},
        {"Tab", KeyCode::Tab, 0x09},
        {"Enter", KeyCode::Enter, 0x0D},
        {"Shift", KeyCode::Shift, 0x10},
        {"Ctrl", KeyCode::Ctrl, 0x11},
        {"Alt", KeyCode::Alt, 0x12},
        {"CapsLock", KeyCode::CapsLock, 0x14},
        {"Escape", KeyCode::Escape, 0x1B},
        {"PageUp", KeyCode::PageUp, 0x21},
        {"PageDown", KeyCode::PageDown, 0x22},
        {"End", KeyCode::End, 0x23},
        {"Home", KeyCode::Home, 0x24},
        {"Left", KeyCode::Left, 0x25},
        {"Up", KeyCode::Up, 0x26},
        {"Right", KeyCode::Right, 0x27},
        {"Down", KeyCode::Down, 0x28},
        {"Delete", KeyCode::Delete, 0x2E},
        {"LeftWindows", KeyCode::LeftWindows, 0x5B},
        {"LeftShift", KeyCode::LeftShift, 0xA0},
        {"RightShift", KeyCode::RightShift, 0xA1},
        {"LeftCtrl", KeyCode::LeftCtrl, 0xA2},
        {"RightCtrl", KeyCode::RightCtrl, 0xA3},
        {"LeftAlt", KeyCode::LeftAlt, 0xA4},
        {"RightAlt", KeyCode::RightAlt, 0xA5},
        {"as many as a byte has values", KeyCode::Count, 0x100},
        // The keyboard's, of the set that it sends.
        {"scan code of the dead key", ScanCode::DeadKey, 0x0D},
        {"scan code of Ctrl", ScanCode::Ctrl, 0x1D},
        {"scan code of left Shift", ScanCode::LeftShift, 0x2A},
        {"scan code of right Shift", ScanCode::RightShift, 0x36},
        {"scan code of Alt", ScanCode::Alt, 0x38},
        {"scan code of AltGr's Ctrl", ScanCode::AltGrCtrl, 0x21D},
    };
    for (const auto& Row : Rows)
        EXPECT_EQ(Row.nCode, Row.nNumber) << Row.szName;
}

TEST(KeyCodes, ArrowsAndMovingKeys_AreExactlyThose) {
    std::vector<int32_t> Arrows, Moving, OnPad;
    for (int32_t nVk = 0; nVk < KeyCode::Count; ++nVk) {
        if (IsArrow(nVk)) Arrows.push_back(nVk);
        if (MovesTextCursor(nVk)) Moving.push_back(nVk);
        if (IsAlsoOnNumberPad(nVk)) OnPad.push_back(nVk);
    }
    EXPECT_EQ(Arrows, (std::vector<int32_t>{37, 38, 39, 40}));
    EXPECT_EQ(Moving, (std::vector<int32_t>{33, 34, 35, 36, 37, 38, 39, 40}));
    EXPECT_EQ(OnPad, (std::vector<int32_t>{33, 34, 35, 36, 37, 38, 39, 40, 45, 46}));
}

}  // namespace
}  // namespace taviro
