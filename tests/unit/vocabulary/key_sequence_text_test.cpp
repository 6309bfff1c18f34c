// SPDX-License-Identifier: MIT
#include "vocabulary/key_sequence_text.h"

#include <gtest/gtest.h>
#include <string>

namespace taviro {
namespace {

// Each step as its modifiers, its token in quotes, and its count.
std::string StepsText(std::string_view strText) {
    SequenceReader Reader(strText);
    std::string strSteps;
    while (!Reader.IsAtEnd()) {
        const SequenceStep Step = Reader.TakeStep();
        if (Step.Held.bShift) strSteps += '+';
        if (Step.Held.bCtrl) strSteps += '^';
        if (Step.Held.bAlt) strSteps += '%';
        strSteps += '\'' + std::string(Step.strToken) + "'";
        if (Step.nRepeat != 1) strSteps += std::to_string(Step.nRepeat);
        strSteps += ' ';
    }
    return strSteps;
}

TEST(KeySequenceText, Steps_AreCharactersKeysAndTheirModifiers) {
    const struct {
        const char* szText;
        const char* szSteps;
    } Rows[] = {
        {"", ""},
        {"ab", "'a' 'b' "},
        {"+a", "+'a' "},
        {"%^+a", "+^%'a' "},
        {"++a", "+'a' "},
        {"+", "+'' "},
        {"{ENTER}", "'ENTER' "},
        {"^{a 10}b", "^'a'10 'b' "},
        {"{+}", "'+' "},
        {"{}}", "'' '}' "},
        {"{a", "'{' 'a' "},
        {"}{a", "'}' '{' 'a' "},
        {"{a}{b", "'a' '{' 'b' "},
        {"~", "'~' "},
    };
    for (const auto& Row : Rows)
        EXPECT_EQ(StepsText(Row.szText), Row.szSteps) << Row.szText;
}

TEST(KeySequenceText, Count_IsANumberBehindABlank) {
    const struct {
        const char* szText;
        const char* szSteps;
    } Rows[] = {
        {"{a 2}", "'a'2 "},    {"{a 0}", "'a'0 "},       {"{a 32767}", "'a'32767 "},
        {"{a 32768}", "'a' "}, {"{LEFT 5}", "'LEFT'5 "}, {"{a 1x}", "'a 1x' "},
        {"{a  7}", "'a '7 "},  {"{12}", "'12' "},        {"{ 5}", "' 5' "},
        {"{a5}", "'a5' "},     {"{a }", "'a ' "},        {"{1 2}", "'1'2 "},
    };
    for (const auto& Row : Rows)
        EXPECT_EQ(StepsText(Row.szText), Row.szSteps) << Row.szText;
}

TEST(KeySequenceText, Names_AreKeysInAnyCase) {
    const struct {
        const char* szName;
        int nVk;
    } Rows[] = {
        // Every name, by its number in the system.
        {"LBUTTON", 0x01},
        {"RBUTTON", 0x02},
        {"BREAK", 0x03},
        {"CANCEL", 0x03},
        {"MBUTTON", 0x04},
        {"BACKSPACE", 8},
        {"BS", 8},
        {"BKSP", 8},
        {"TAB", 9},
        {"CLEAR", 0x0C},
        {"ENTER", 0x0D},
        {"~", 0x0D},
        {"SHIFT", 0x10},
        {"CONTROL", 0x11},
        {"MENU", 0x12},
        {"ALT", 0x12},
        {"PAUSE", 0x13},
        {"CAPSLOCK", 20},
        {"ESCAPE", 0x1B},
        {"ESC", 0x1B},
        {"SPACE", 0x20},
        {"PGUP", 0x21},
        {"PGDN", 0x22},
        {"END", 0x23},
        {"HOME", 0x24},
        {"LEFT", 0x25},
        {"UP", 0x26},
        {"RIGHT", 0x27},
        {"DOWN", 0x28},
        {"SELECT", 0x29},
        {"PRTSC", 0x2A},
        {"EXECUTE", 0x2B},
        {"SNAPSHOT", 0x2C},
        {"INSERT", 0x2D},
        {"INS", 0x2D},
        {"DELETE", 0x2E},
        {"DEL", 0x2E},
        {"HELP", 0x2F},
        {"NUMPAD0", 0x60},
        {"NUMPAD1", 0x61},
        {"NUMPAD2", 0x62},
        {"NUMPAD3", 0x63},
        {"NUMPAD4", 0x64},
        {"NUMPAD5", 0x65},
        {"NUMPAD6", 0x66},
        {"NUMPAD7", 0x67},
        {"NUMPAD8", 0x68},
        {"NUMPAD9", 0x69},
        {"MULTIPLY", 0x6A},
        {"ADD", 0x6B},
        {"SEPARATOR", 0x6C},
        {"SUBTRACT", 0x6D},
        {"DECIMAL", 0x6E},
        {"DIVIDE", 0x6F},
        {"F1", 0x70},
        {"F2", 0x71},
        {"F3", 0x72},
        {"F4", 0x73},
        {"F5", 0x74},
        {"F6", 0x75},
        {"F7", 0x76},
        {"F8", 0x77},
        {"F9", 0x78},
        {"F10", 0x79},
        {"F11", 0x7A},
        {"F12", 0x7B},
        {"F13", 0x7C},
        {"F14", 0x7D},
        {"F15", 0x7E},
        {"F16", 0x7F},
        {"NUMLOCK", 0x90},
        {"SCROLLLOCK", 0x91},
        // In any case.
        {"enter", 0x0D},
        {"Esc", 0x1B},
        {"scrolllock", 0x91},
        {"pgUp", 0x21},
        // No names.
        {"SCROLLLOCKX", 0},
        {"ENTE", 0},
        {"", 0},
        {"a", 0},
        {"{", 0},
        {"TAB ", 0},
    };
    for (const auto& Row : Rows)
        EXPECT_EQ(NamedVk(Row.szName), Row.nVk) << Row.szName;
}

TEST(KeySequenceText, PlainText_HasNoMark) {
    EXPECT_TRUE(IsPlainText(L""));
    EXPECT_TRUE(IsPlainText(L"Ahoj, } (světe)."));
    for (const wchar_t nMark : std::wstring(L"+^%~{"))
        EXPECT_FALSE(IsPlainText(std::wstring(L"a") + nMark + L"b")) << static_cast<char>(nMark);
}

}  // namespace
}  // namespace taviro
