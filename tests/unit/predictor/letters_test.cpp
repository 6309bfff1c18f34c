// SPDX-License-Identifier: MIT
#include "predictor/letters.h"

#include <gtest/gtest.h>

#include "predictor/utf8.h"

namespace taviro::predictor {
namespace {

// Each capital, the small letter of the same place, and both without their marks.
const std::wstring CAPITALS =
    L"ABCDEFGHIJKLMNOPQRSTUVWXYZ"
    L"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ"
    L"ĀĂĄĆĈĊČĎĐĒĔĖĘĚĜĞĠĢĤĦĨĪĬĮĲĴĶĹĻĽĿŁŃŅŇŊ"
    L"ŌŎŐŒŔŖŘŚŜŞŠŢŤŦŨŪŬŮŰŲŴŶŸŹŻŽ";
const std::wstring SMALL =
    L"abcdefghijklmnopqrstuvwxyz"
    L"àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ"
    L"āăąćĉċčďđēĕėęěĝğġģĥħĩīĭįĳĵķĺļľŀłńņňŋ"
    L"ōŏőœŕŗřśŝşšţťŧũūŭůűųŵŷÿźżž";
const std::wstring PLAIN =
    L"abcdefghijklmnopqrstuvwxyz"
    L"aaaaaaaceeeeiiiidnoooooouuuuyt"
    L"aaaccccddeeeeegggghhiiiiijklllllnnnn"
    L"oooorrrsssstttuuuuuuwyyzzz";
const std::wstring UNPAIRED = L"ßİıĸŉſ";  // letters of one case only

TEST(PredictorLetters, EveryCapital_HasItsSmallLetterAndBack) {
    ASSERT_EQ(CAPITALS.size(), SMALL.size());
    ASSERT_EQ(CAPITALS.size(), PLAIN.size());
    for (size_t n = 0; n < CAPITALS.size(); ++n) {
        const wchar_t nCapital = CAPITALS[n];
        const wchar_t nSmall = SMALL[n];
        EXPECT_TRUE(IsCapital(nCapital)) << static_cast<int>(nCapital);
        EXPECT_FALSE(IsCapital(nSmall)) << static_cast<int>(nSmall);
        EXPECT_EQ(LowerLetter(nCapital), nSmall) << static_cast<int>(nCapital);
        EXPECT_EQ(LowerLetter(nSmall), nSmall) << static_cast<int>(nSmall);
        EXPECT_EQ(UpperLetter(nSmall), nCapital) << static_cast<int>(nSmall);
        EXPECT_EQ(UpperLetter(nCapital), nCapital) << static_cast<int>(nCapital);
        EXPECT_EQ(PlainLetter(nSmall), PLAIN[n]) << static_cast<int>(nSmall);
        EXPECT_EQ(PlainLetter(nCapital), UpperLetter(PLAIN[n])) << static_cast<int>(nCapital);
    }
}

TEST(PredictorLetters, OtherCharacters_StayAsTheyAre) {
    for (wchar_t n = 0; n < 0x250; ++n) {
        const bool bPaired =
            CAPITALS.find(n) != std::wstring::npos || SMALL.find(n) != std::wstring::npos;
        const bool bUnpaired = UNPAIRED.find(n) != std::wstring::npos;
        EXPECT_EQ(IsLetter(n), bPaired || bUnpaired) << static_cast<int>(n);
        if (bPaired) continue;
        EXPECT_FALSE(IsCapital(n)) << static_cast<int>(n);
        EXPECT_EQ(LowerLetter(n), n) << static_cast<int>(n);
        EXPECT_EQ(UpperLetter(n), n) << static_cast<int>(n);
        if (!bUnpaired) {
            EXPECT_EQ(PlainLetter(n), n) << static_cast<int>(n);
        }
    }
}

TEST(PredictorLetters, CzechAlphabet_LosesItsMarks) {
    const std::wstring strMarked = L"áčďéěíňóřšťúůýžÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ";
    const std::wstring strPlain = L"acdeeinorstuuyzACDEEINORSTUUYZ";
    for (size_t n = 0; n < strMarked.size(); ++n) {
        EXPECT_EQ(PlainLetter(strMarked[n]), strPlain[n]);
        EXPECT_TRUE(IsLetter(strMarked[n]));
    }
    EXPECT_EQ(LowerText(L"ŽLUŤOUČKÝ Kůň 1"), L"žluťoučký kůň 1");
}

TEST(PredictorLetters, SignsAndDigits_AreNoLetters) {
    for (const wchar_t n : std::wstring(L" 0;,.(*)+^%~{}[]-'\"×÷\u2013\0\b\u0400", 25))
        EXPECT_FALSE(IsLetter(n)) << static_cast<int>(n);
}

struct Spelling {
    const wchar_t* szWord;
    bool bExpected;
};

TEST(PredictorLetters, Learnable_WhenItCanBeSpoken) {
    constexpr Spelling CASES[] = {
        {L"Taviro", true},
        {L"ahoj", true},
        {L"zmrzl", true},
        {L"vlk", true},
        {L"čtvrt", true},
        {L"sedm", true},
        {L"Řím", true},
        {L"vzkvétat", true},
        {L"bezvzdušný", true},
        {L"dva", true},
        {L"ty", true},
        {L"Anna", true},
        // no syllable, digits, signs, one letter, too long, heaps
        {L"xkcd", false},
        {L"lk", false},
        {L"DPH", false},
        {L"heslo1", false},
        {L"2024", false},
        {L"a", false},
        {L"", false},
        {L"e-mail", false},
        {L"aaach", false},
        {L"ahooo", false},
        {L"akzvbdo", false},
        {L"qwdtzpas", false},
        {L"a;b", false},
        {L"ano ne", false},
        {L"abcdefghijabcdefghijabcdefghijab", false},
    };
    for (const Spelling& One : CASES)
        EXPECT_EQ(IsLearnable(One.szWord), One.bExpected) << ToUtf8(One.szWord);
}

TEST(PredictorLetters, Offerable_WhenOnlyLetters) {
    constexpr Spelling CASES[] = {{L"v", true},       {L"KitKat", true},  {L"", false},
                                  {L"a;b", false},    {L"a,b", false},    {L"a(b", false},
                                  {L"slovo*", false}, {L"slovo ", false}, {L"ab\xFFFD", false},
                                  {L"+a", false},     {L"{ENTER}", false}};
    for (const Spelling& One : CASES)
        EXPECT_EQ(IsOfferable(One.szWord), One.bExpected) << ToUtf8(One.szWord);
}

struct Utf8Case {
    std::string Bytes;
    std::wstring strText;
};

TEST(PredictorUtf8, Characters_AreSequencesOfOneToThreeBytes) {
    const Utf8Case CASES[] = {{std::string(1, '\0'), std::wstring(1, L'\0')},
                              {"\x7F", L"\x7F"},
                              {"\xC2\x80", L"\x80"},
                              {"P\xC5\x99\xC3\xAD\xC5\xA1", L"Příš"},
                              {"\xDF\xBF", L"\x7FF"},
                              {"\xE0\xA0\x80", L"\x800"},
                              {"\xE2\x82\xAC", L"\x20AC"},
                              {"\xEF\xBF\xBF", L"\xFFFF"}};
    for (const Utf8Case& One : CASES) {
        EXPECT_EQ(FromUtf8(One.Bytes), One.strText) << testing::PrintToString(One.Bytes);
        EXPECT_EQ(ToUtf8(One.strText), One.Bytes) << testing::PrintToString(One.Bytes);
    }
}

TEST(PredictorUtf8, BrokenBytes_BecomeReplacements) {
    const Utf8Case CASES[] = {
        // cut off
        {"a\xC5", L"a\xFFFD"},
        {"\xC5z", L"\xFFFDz"},
        {"\xE2\x82z", L"\xFFFDz"},
        {"\xE2\x82\xC5\x99", L"\xFFFDř"},
        // nothing before them
        {"\x80", L"\xFFFD"},
        {"\xBFz", L"\xFFFDz"},
        {"a\x80", L"a\xFFFD"},
        {"\xC5\x99\x80", L"ř\xFFFD"},
        // written longer than necessary
        {"\xC0\x80", L"\xFFFD\xFFFD"},
        {"\xC1\xBF", L"\xFFFD\xFFFD"},
        {"\xE0\x80\x80", L"\xFFFD"},
        {"\xE0\x9F\xBF", L"\xFFFD"},
        // beyond the first plane
        {"\xF0\x90\x80\x80", L"\xFFFD"},
        {"\xF0\x9F\x98\x80!", L"\xFFFD!"},
        {"\xF4\x8F\xBF\xBF", L"\xFFFD"},
        // never used
        {"\xF5\x80\x80", L"\xFFFD\xFFFD\xFFFD"},
        {"\xFF\xFE", L"\xFFFD\xFFFD"},
    };
    for (const Utf8Case& One : CASES)
        EXPECT_EQ(FromUtf8(One.Bytes), One.strText) << testing::PrintToString(One.Bytes);
}

}  // namespace
}  // namespace taviro::predictor
