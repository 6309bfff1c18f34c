// SPDX-License-Identifier: MIT
#include "platform/text.h"

#include <gtest/gtest.h>
#include <set>

namespace taviro::platform {
namespace {

std::string AllBytes() {
    std::string strBytes;
    for (int i = 0; i < 256; ++i)
        strBytes += static_cast<char>(i);
    return strBytes;
}

TEST(Ansi, RoundTrip_KeepsEveryByte) {
    const std::wstring strText = FromAnsi(AllBytes());
    ASSERT_EQ(strText.size(), 256U);
    EXPECT_EQ(std::set<wchar_t>(strText.begin(), strText.end()).size(), 256U);
    EXPECT_EQ(ToAnsi(strText), AllBytes());
}

TEST(Ansi, CzechLetters_HaveTheirWindows1250Bytes) {
    const struct {
        const wchar_t* strText;
        const char* strBytes;
    } Rows[] = {
        {L"ěščřžýáíé", "\xEC\x9A\xE8\xF8\x9E\xFD\xE1\xED\xE9"},
        {L"ĚŠČŘŽÝÁÍÉ", "\xCC\x8A\xC8\xD8\x8E\xDD\xC1\xCD\xC9"},
        {L"úůóďťňÚŮÓĎŤŇ", "\xFA\xF9\xF3\xEF\x9D\xF2\xDA\xD9\xD3\xCF\x8D\xD2"},
        {L"€„“–…§°×÷", "\x80\x84\x93\x96\x85\xA7\xB0\xD7\xF7"},
        {L"ľščťżŁ™˙", "\xBE\x9A\xE8\x9D\xBF\xA3\x99\xFF"},
    };
    for (const auto& Row : Rows) {
        EXPECT_EQ(ToAnsi(Row.strText), Row.strBytes);
        EXPECT_EQ(FromAnsi(Row.strBytes), Row.strText);
    }
}

TEST(Ansi, UndefinedBytes_AreTheControlCharactersOfTheirNumber) {
    EXPECT_EQ(FromAnsi("\x81\x83\x88\x90\x98"), L"\u0081\u0083\u0088\u0090\u0098");
}

TEST(Ansi, CharactersThatTheCodePageLacks_BecomeQuestionMarks) {
    EXPECT_EQ(ToAnsi(L"añЖ漢\u0080\u009F\u2122\u2123\uFFFD"), "a?????\x99??");
    EXPECT_EQ(ToAnsi(std::wstring(1, static_cast<wchar_t>(-1))), "?");
}

TEST(Ansi, Nul_IsACharacterLikeOthers) {
    EXPECT_EQ(FromAnsi(std::string("a\0b", 3)), std::wstring(L"a\0b", 3));
    EXPECT_EQ(ToAnsi(std::wstring(L"a\0b", 3)), std::string("a\0b", 3));
}

TEST(Utf8, WellFormedText_ConvertsBothWays) {
    const struct {
        const wchar_t* strText;
        const char* strBytes;
    } Rows[] = {
        {L"", ""},
        {L"abc", "abc"},
        {L"příliš", "p\xC5\x99\xC3\xADli\xC5\xA1"},
        {L"\u0080\u07FF", "\xC2\x80\xDF\xBF"},
        {L"\u0800€\uD7FF\uE000\uFFFD",
         "\xE0\xA0\x80\xE2\x82\xAC\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD"},
    };
    for (const auto& Row : Rows) {
        EXPECT_EQ(FromUtf8(Row.strBytes), Row.strText);
        EXPECT_EQ(ToUtf8(Row.strText), Row.strBytes);
    }
}

TEST(Utf8, MalformedSequences_BecomeReplacementCharacters) {
    const struct {
        const char* strName;
        const char* strBytes;
        const wchar_t* strText;
    } Rows[] = {
        {"lone continuation", "a\x80z", L"a\uFFFDz"},
        {"cut off", "a\xC5", L"a\uFFFD"},
        {"cut off by a letter", "\xE2\x82z", L"\uFFFDz"},
        {"overlong, two bytes", "\xC0\xAF", L"\uFFFD\uFFFD"},
        {"overlong, three bytes", "\xE0\x80\xAFz", L"\uFFFDz"},
        {"surrogate", "\xED\xA0\x80z", L"\uFFFDz"},
        {"overlong, four bytes", "\xF0\x8F\xBF\xBFz", L"\uFFFDz"},
        {"behind the last character", "\xF4\x90\x80\x80z", L"\uFFFDz"},
        {"beyond Unicode", "\xF5z", L"\uFFFDz"},
        {"no lead byte at all", "\xFF\xFE", L"\uFFFD\uFFFD"},
    };
    for (const auto& Row : Rows) {
        EXPECT_EQ(FromUtf8(Row.strBytes), Row.strText) << Row.strName;
    }
}

TEST(Utf8, SurrogatePair_BecomesOneCharacter) {
    const std::wstring strPair = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    EXPECT_EQ(ToUtf8(strPair), "\xF0\x9F\x98\x80");
    EXPECT_EQ(ToUtf8(strPair.substr(0, 1) + L"z"), "\xEF\xBF\xBDz");
    EXPECT_EQ(ToUtf8(strPair.substr(1)), "\xEF\xBF\xBD");
}

TEST(TrimBlanks, Blanks_GoAtBothEnds) {
    EXPECT_EQ(TrimBlanks(L"  a b  "), L"a b");
    EXPECT_EQ(TrimBlanks(L"a"), L"a");
    EXPECT_EQ(TrimBlanks(L"   "), L"");
    EXPECT_EQ(TrimBlanks(L""), L"");
    EXPECT_EQ(TrimBlanks(L"\t a\u00A0"), L"\t a\u00A0");
}

TEST(Case, LatinLetters_Change) {
    const std::wstring strLower = L"abcxyz áčďéěíňóřšťúůýž äöüß ąęłńśźż őű ľĺŕ ăâîşţ đçë";
    const std::wstring strUpper = L"ABCXYZ ÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ ÄÖÜß ĄĘŁŃŚŹŻ ŐŰ ĽĹŔ ĂÂÎŞŢ ĐÇË";
    EXPECT_EQ(ToLower(strUpper), strLower);
    EXPECT_EQ(ToUpper(strLower), strUpper);
    EXPECT_EQ(ToLower(strLower), strLower);
    EXPECT_EQ(ToUpper(strUpper), strUpper);
}

TEST(Case, OtherCharacters_Stay) {
    const std::wstring strOther = L"0129 [\\]^_`{|}~ ×÷°§ˇ˙€“”–™ ñÑ ЖЖ";
    EXPECT_EQ(ToLower(strOther), strOther);
    EXPECT_EQ(ToUpper(strOther), strOther);
}

TEST(Case, EveryLetterOfTheCodePage_HasOnePartner) {
    int nPairs = 0;
    for (const wchar_t nCharacter : FromAnsi(AllBytes())) {
        const std::wstring strOne(1, nCharacter);
        const std::wstring strUpper = ToUpper(strOne);
        if (strUpper == strOne) continue;
        ++nPairs;
        EXPECT_EQ(ToLower(strUpper), strOne);
        EXPECT_NE(ToAnsi(strUpper), "?");
    }
    // 26 plain letters and 40 with marks; the sharp s has no capital here.
    EXPECT_EQ(nPairs, 66);
}

}  // namespace
}  // namespace taviro::platform
