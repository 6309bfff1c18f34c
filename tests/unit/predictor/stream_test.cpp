// SPDX-License-Identifier: MIT
// What the predictor makes of the beginnings as the program sends them.
#include "predictor/stream.h"

#include "predictor/letters.h"
#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro::predictor {
namespace {

class PredictorStream : public PredictorTest {};

TEST_F(PredictorStream, Cleaned_IsWhatStandsInTheText) {
    struct Case {
        std::wstring strPrefix, strText;
    };
    const Case CASES[] = {{L"ab", L"ab"},
                          {L"ab\b", L"a"},
                          {L"a\b\bc", L"c"},
                          {L"\b", L""},
                          {L"ab\tc", L"c"},
                          {L"\x1B", L""},
                          {L"ab\x1F"
                           L"c",
                           L"c"},
                          {L"ab c", L"ab c"},
                          {std::wstring(L"a\0b", 3), std::wstring(L"a\0b", 3)}};
    for (const Case& One : CASES)
        EXPECT_EQ(Stream::Cleaned(One.strPrefix), One.strText);
}

TEST_F(PredictorStream, PassedWords_AreNotOfferedAgainWithinTheWord) {
    Asked.Settings.nWords = 2;
    (void)List(L"x");  // the first word of all would most likely begin a sentence
    EXPECT_EQ(List(L"d"), L";do;dobrý");
    EXPECT_EQ(List(L"do"), L";dobře");
    EXPECT_EQ(List(L"dob"), L"");
    EXPECT_EQ(List(L"d"), L";do;dobrý");  // a new word
}

TEST_F(PredictorStream, PassedWords_ComeAgainWhereThatIsWanted) {
    Asked.Settings.nWords = 2;
    Asked.Settings.bRepeats = true;
    (void)List(L"x");
    EXPECT_EQ(List(L"d"), L";do;dobrý");
    EXPECT_EQ(List(L"do"), L";dobrý;dobře");
}

TEST_F(PredictorStream, SameLetterAgain_IsANewWord) {
    const std::wstring strFirst = List(L"a");
    EXPECT_EQ(strFirst, L";auto");
    EXPECT_EQ(List(L"a"), strFirst);
}

TEST_F(PredictorStream, SameBeginningAgain_IsAskedAnew) {
    (void)List(L"d");
    const std::wstring strList = List(L"do");
    EXPECT_EQ(List(L"do"), strList);
}

TEST_F(PredictorStream, Backspace_GoesBackWithinTheWordAndCorrectsThePrefix) {
    Type(L"dob");
    const Answer Corrected = Asked.GetPrediction(L"dob\b");
    EXPECT_EQ(Corrected.strPrefix, L"do");
    EXPECT_EQ(Asked.GetPrediction(L"do\b").strPrefix, L"d");
    const Answer Gone = Asked.GetPrediction(L"d\b");
    EXPECT_EQ(Gone.strPrefix, L"");
    EXPECT_EQ(Gone.strList, L"");
}

TEST_F(PredictorStream, NoWord_BringsNoList) {
    EXPECT_EQ(List(L""), L"");
    for (const std::wstring& strPrefix :
         {std::wstring(L"12"), std::wstring(L"d1"), std::wstring(L"d;"), std::wstring(L"("),
          std::wstring(5000, L'd'), std::wstring(L"\xFFFD\x1234")}) {
        EXPECT_NE(List(L"d"), L"");
        EXPECT_EQ(List(strPrefix), L"");
    }
}

TEST_F(PredictorStream, WordTypedToItsEnd_IsTheOneBefore) {
    Type(L"dobrý");
    EXPECT_TRUE(List(L"d").starts_with(L";den"));
}

TEST_F(PredictorStream, WordTakenFromTheList_IsTheOneBefore) {
    (void)List(L"do");  // a new word; offers "dobrý" and "dobře"
    ASSERT_EQ(Asked.Shown().front().strText, L"dobrý");
    EXPECT_TRUE(List(L"d").starts_with(L";den"));
}

TEST_F(PredictorStream, BackspaceBehindATakenWord_DoesNotEndTheWordBefore) {
    (void)List(L"dob");
    EXPECT_EQ(Asked.GetPrediction(L"\b").strPrefix, L"");
    EXPECT_TRUE(List(L"d").starts_with(L";den"));
}

TEST_F(PredictorStream, FirstWordOfAll_MayBeginASentence) {
    EXPECT_TRUE(List(L"d").starts_with(L";děkuji"));
}

TEST_F(PredictorStream, CapitalBegins_MostLikelyASentence) {
    Type(L"auto");
    EXPECT_TRUE(List(L"D").starts_with(L";Děkuji"));
}

TEST_F(PredictorStream, UnknownLettersInAWord_AreGuessed) {
    Type(std::wstring(L"dobr\0", 5));
    EXPECT_TRUE(List(L"d").starts_with(L";den"));
}

TEST_F(PredictorStream, CapsLockAroundALetter_IsACapital) {
    const std::wstring strNul(1, UNKNOWN_LETTER);
    Asked.Settings.bRepeats = true;
    (void)List(strNul);
    EXPECT_EQ(Asked.GetPrediction(strNul + L"p").strPrefix, strNul + L"p");
    const Answer Released = Asked.GetPrediction(strNul + L"p" + strNul);
    EXPECT_EQ(Released.strPrefix, L"P");
    EXPECT_NE(Released.strList.find(L";Prosím"), std::wstring::npos);
    EXPECT_NE(Released.strList.find(L";Praha"), std::wstring::npos);
    EXPECT_EQ(List(L"Pravd"), L";Pravda");
}

TEST_F(PredictorStream, CapsLock_IsExpectedAgain_UntilALetterFollows) {
    const std::wstring strNul(1, UNKNOWN_LETTER);
    Asked.Settings.bRepeats = true;
    (void)List(strNul + L"p" + strNul);
    (void)List(strNul);
    const Answer Known = Asked.GetPrediction(strNul + L"a");
    EXPECT_EQ(Known.strList, L";Auto");
    EXPECT_EQ(Known.strPrefix, strNul + L"a");  // Caps Lock is still to be released
    EXPECT_EQ(List(strNul + L"a" + strNul), L";Auto");
    Type(L"pes");  // a word without a capital tells nothing of Caps Lock
    EXPECT_EQ(Asked.GetPrediction(strNul + L"a").strList, L";Auto");
    (void)List(L"x");
    EXPECT_EQ(List(strNul + L"ut"), L";Auto");
    EXPECT_EQ(List(strNul + L"u").find(L"U"), std::wstring::npos);
}

// Learning from the stream alone.

TEST_F(PredictorStream, UnlistedWord_IsLearned) {
    Type(L"nazdar");
    (void)List(L"d");
    EXPECT_TRUE(Asked.Own.Words().contains(L"nazdar"));
    EXPECT_TRUE(Asked.TakeChanged());
    EXPECT_FALSE(Asked.TakeChanged());
    EXPECT_EQ(List(L"n"), L";nazdar");
}

TEST_F(PredictorStream, PairOfWords_IsLearned) {
    Type(L"nazdar");
    Type(L"kamaráde");
    (void)List(L"n");
    ASSERT_NE(Asked.Own.After(L"nazdar"), nullptr);
    EXPECT_TRUE(Asked.Own.After(L"nazdar")->contains(L"kamaráde"));
}

TEST_F(PredictorStream, DoubtfulWords_CountByTheirShares) {
    (void)List(L"x");
    (void)List(L"d");  // five offers, none far above the others
    (void)List(L"a");
    const auto& Own = Asked.Own.Words();
    ASSERT_TRUE(Own.contains(L"do") && Own.contains(L"dobrý"));
    EXPECT_GT(Own.at(L"do").Count.dUnfaded, Own.at(L"dobrý").Count.dUnfaded);
    EXPECT_LT(Asked.Own.Total(), 1);
    EXPECT_GT(Asked.Own.Total(), 0.5);
}

TEST_F(PredictorStream, DoubtfulPairs_CountByBothShares) {
    (void)List(L"x");
    (void)List(L"d");
    Type(L"nazdar");
    (void)List(L"d");
    const auto* pNexts = Asked.Own.After(L"do");
    ASSERT_TRUE(pNexts != nullptr && pNexts->contains(L"nazdar"));
    EXPECT_NEAR(pNexts->at(L"nazdar").dUnfaded, Asked.Own.Words().at(L"do").Count.dUnfaded, 0.01);
}

TEST_F(PredictorStream, UnlistedWordInDoubt_IsNotLearned) {
    (void)List(L"dob");  // "dobrý" and "dobře" are offered: most likely one of them was taken
    (void)List(L"a");
    EXPECT_FALSE(Asked.Own.Words().contains(L"dob"));
    EXPECT_TRUE(Asked.Own.Words().contains(L"dobrý"));
}

TEST_F(PredictorStream, DigitsAndUnspeakables_AreNeverLearned) {
    (void)List(L"x");
    for (const wchar_t* szWord : {L"heslo1", L"1234", L"xkcdq", L"dphc"}) {
        Type(szWord);
        (void)List(L"x");
        EXPECT_TRUE(Asked.Own.IsEmpty()) << szWord;
    }
}

TEST_F(PredictorStream, Learning_CanBeOff) {
    Asked.Settings.bLearns = false;
    Type(L"nazdar");
    (void)List(L"d");
    Asked.NoteWritten(L"", L"nazdar");
    EXPECT_TRUE(Asked.Own.IsEmpty());
    EXPECT_FALSE(Asked.TakeChanged());
    Asked.Settings.bLearns = true;
    Asked.NoteWritten(L"", L"nazdar");
    EXPECT_FALSE(Asked.Own.IsEmpty());
    EXPECT_TRUE(Asked.TakeChanged());
}

TEST_F(PredictorStream, Forget_LeavesNothing) {
    Type(L"nazdar");
    EXPECT_NE(List(L"d"), L"");
    Asked.Forget();
    EXPECT_TRUE(Asked.Own.IsEmpty());
    EXPECT_TRUE(Asked.TakeChanged());
    EXPECT_TRUE(Asked.Shown().empty());
    EXPECT_EQ(List(L"n"), L"");
    (void)List(L"d");
    EXPECT_FALSE(Asked.Own.Words().contains(L"nazdar"));
}

TEST_F(PredictorStream, WordBeforeForgetting_HasNoFollower) {
    Type(L"nazdar");
    (void)List(L"d");
    Asked.Forget();
    Type(L"nazdar");
    (void)List(L"d");
    EXPECT_TRUE(Asked.Own.Words().contains(L"nazdar"));
    EXPECT_EQ(Asked.Own.After(L"nazdar"), nullptr);
}

}  // namespace
}  // namespace taviro::predictor
