// SPDX-License-Identifier: MIT
// What the predictor makes of the beginnings as the program sends them.
#include "predictor/stream.h"
#include "tests/unit/predictor_fixture.h"

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
    for (const std::wstring& strPrefix :
         {std::wstring(L"12"), std::wstring(L"d1"), std::wstring(L"d;"), std::wstring(),
          std::wstring(L"("), std::wstring(5000, L'd'), std::wstring(L"\xFFFD\x1234")}) {
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

TEST_F(PredictorStream, CapitalBegins_MostLikelyASentence) {
    Type(L"auto");
    EXPECT_TRUE(List(L"D").starts_with(L";Děkuji"));
}

TEST_F(PredictorStream, UnknownLettersInAWord_AreGuessed) {
    Type(std::wstring(L"dobr\0", 5));
    EXPECT_TRUE(List(L"d").starts_with(L";den"));
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

TEST_F(PredictorStream, DoubtfulWord_IsNotLearned) {
    (void)List(L"d");  // five offers, none far above the others
    (void)List(L"a");
    EXPECT_TRUE(Asked.Own.IsEmpty());
}

TEST_F(PredictorStream, DigitsAndUnspeakables_AreNeverLearned) {
    for (const wchar_t* szWord : {L"heslo1", L"1234", L"xkcdq", L"dphc"}) {
        Type(szWord);
        (void)List(L"d");
    }
    EXPECT_TRUE(Asked.Own.IsEmpty());
}

TEST_F(PredictorStream, Learning_CanBeOff) {
    Asked.Settings.bLearns = false;
    Type(L"nazdar");
    (void)List(L"d");
    Asked.NoteWritten(L"", L"nazdar");
    EXPECT_TRUE(Asked.Own.IsEmpty());
    EXPECT_FALSE(Asked.TakeChanged());
}

TEST_F(PredictorStream, Forget_LeavesNothing) {
    Type(L"nazdar");
    (void)List(L"d");
    Asked.Forget();
    EXPECT_TRUE(Asked.Own.IsEmpty());
    EXPECT_TRUE(Asked.TakeChanged());
    EXPECT_EQ(List(L"n"), L"");
    (void)List(L"d");
    EXPECT_FALSE(Asked.Own.Words().contains(L"nazdar"));
}

}  // namespace
}  // namespace taviro::predictor
