// SPDX-License-Identifier: MIT
#include "predictor/letters.h"

#include <gtest/gtest.h>

#include "predictor/utf8.h"

namespace taviro::predictor {
namespace {

TEST(PredictorLetters, EveryCapital_HasItsSmallLetterAndBack) {
    for (wchar_t n = 1; n < 0x250; ++n) {
        if (!IsCapital(n)) continue;
        const wchar_t nSmall = LowerLetter(n);
        EXPECT_FALSE(IsCapital(nSmall)) << static_cast<int>(n);
        if (n == 0x130) continue;  // a dotted capital I has the plain small one
        EXPECT_NE(nSmall, n) << static_cast<int>(n);
        EXPECT_EQ(UpperLetter(nSmall), n) << static_cast<int>(n);
        EXPECT_EQ(LowerLetter(PlainLetter(n)), PlainLetter(nSmall)) << static_cast<int>(n);
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

struct Case {
    const wchar_t* szWord;
    bool bExpected;
};

TEST(PredictorLetters, Learnable_WhenItCanBeSpoken) {
    constexpr Case CASES[] = {
        {L"Taviro", true},
        {L"ahoj", true},
        {L"zmrzl", true},
        {L"vlk", true},
        {L"čtvrt", true},
        {L"sedm", true},
        {L"Řím", true},
        {L"vzkvétat", true},
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
        {L"qwdtzpas", false},
        {L"a;b", false},
        {L"ano ne", false},
        {L"abcdefghijabcdefghijabcdefghijab", false},
    };
    for (const Case& One : CASES)
        EXPECT_EQ(IsLearnable(One.szWord), One.bExpected) << ToUtf8(One.szWord);
}

TEST(PredictorLetters, Offerable_WhenOnlyLetters) {
    constexpr Case CASES[] = {{L"v", true},       {L"KitKat", true},  {L"", false},
                              {L"a;b", false},    {L"a,b", false},    {L"a(b", false},
                              {L"slovo*", false}, {L"slovo ", false}, {L"ab\xFFFD", false},
                              {L"+a", false},     {L"{ENTER}", false}};
    for (const Case& One : CASES)
        EXPECT_EQ(IsOfferable(One.szWord), One.bExpected) << ToUtf8(One.szWord);
}

TEST(PredictorUtf8, Text_SurvivesTheWayThereAndBack) {
    const std::wstring strText = L"Příliš žluťoučký kůň \u20AC a \uFFFD";
    EXPECT_EQ(FromUtf8(ToUtf8(strText)), strText);
}

TEST(PredictorUtf8, BrokenBytes_BecomeReplacements) {
    struct Bytes {
        const char* szBytes;
        const wchar_t* szExpected;
    };
    constexpr Bytes CASES[] = {{"a\xC5", L"a\xFFFD"},         {"\xC5z", L"\xFFFDz"},
                               {"\xC0\x80", L"\xFFFD\xFFFD"}, {"\x80", L"\xFFFD"},
                               {"\xE0\x80\x80", L"\xFFFD"},   {"\xF0\x9F\x98\x80!", L"\xFFFD!"},
                               {"\xFF\xFE", L"\xFFFD\xFFFD"}};
    for (const Bytes& One : CASES)
        EXPECT_EQ(FromUtf8(One.szBytes), One.szExpected) << One.szBytes;
}

}  // namespace
}  // namespace taviro::predictor
