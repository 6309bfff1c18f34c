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
        {"LBUTTON", 1}, {"enter", 13},      {"Esc", 27},      {"~", 13},    {"scrolllock", 145},
        {"F16", 127},   {"SCROLLLOCKX", 0}, {"ENTE", 0},      {"", 0},      {"a", 0},
        {"DEL", 46},    {"BACKSPACE", 8},   {"NUMPAD9", 105}, {"DOWN", 40}, {"{", 0},
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
