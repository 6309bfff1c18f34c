// SPDX-License-Identifier: MIT
#include "predictor/learned.h"

#include "predictor/utf8.h"
#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro::predictor {
namespace {

double CountOf(const Learned& Own, const std::wstring& strWord) {
    const auto it = Own.Words().find(strWord);
    return it == Own.Words().end() ? 0 : Own.Now(it->second.Count);
}

TEST(PredictorLearned, Counts_GrowWithUse) {
    Learned Own;
    Own.Note(L"", L"nazdar", NO_WORD);
    Own.Note(L"nazdar", L"nazdar", NO_WORD);
    EXPECT_NEAR(CountOf(Own, L"nazdar"), 2, 1e-3);
    EXPECT_NEAR(Own.Total(), 2, 1e-3);
    ASSERT_NE(Own.After(L"nazdar"), nullptr);
    EXPECT_EQ(Own.After(L"ahoj"), nullptr);
}

TEST(PredictorLearned, WhatIsNoWord_ChangesNothing) {
    struct Case {
        const wchar_t* szWord;
        WordId nWord;
        bool bLearned;
    };
    constexpr WordId LISTED = 3;
    const Case CASES[] = {{L"nazdar", NO_WORD, true}, {L"xkcd", NO_WORD, false},
                          {L"v", NO_WORD, false},     {L"v", LISTED, true},
                          {L"DPH", LISTED, true},     {L"a;b", LISTED, false},
                          {L"", LISTED, false}};
    for (const Case& One : CASES) {
        Learned Own;
        Own.Note(L"", One.szWord, One.nWord);
        EXPECT_EQ(Own.IsEmpty(), !One.bLearned) << testing::PrintToString(One.szWord);
        EXPECT_NEAR(Own.Total(), One.bLearned ? 1 : 0, 1e-3) << testing::PrintToString(One.szWord);
    }
}

TEST(PredictorLearned, DoubtfulWord_CountsByItsShareAndAddsUp) {
    Learned Own;
    for (int n = 0; n < 3; ++n)
        Own.Note(L"", L"nazdar", NO_WORD, 0.06);
    EXPECT_NEAR(CountOf(Own, L"nazdar"), 0.18, 1e-3);
}

TEST(PredictorLearned, Pair_NeedsBothWords) {
    Learned Own;
    Own.Note(L"dobrý", L"den", NO_WORD);
    Own.NotePair(L"den", L"dobrý", 1);
    EXPECT_EQ(Own.After(L"dobrý"), nullptr);
    EXPECT_EQ(Own.After(L"den"), nullptr);
    EXPECT_EQ(Own.TotalAfter(L"den"), 0);
    Own.Note(L"", L"dobrý", NO_WORD);
    Own.NotePair(L"Dobrý", L"Den", 0.5);
    Own.NotePair(L"dobrý", L"dobrý", 0.25);
    EXPECT_NEAR(Own.TotalAfter(L"dobrý"), 0.75, 1e-3);
    EXPECT_NEAR(Own.Now(Own.After(L"dobrý")->at(L"den")), 0.5, 1e-3);
}

// Words that are learned by half count by half here too.
TEST(PredictorLearned, Count_IsHalvedByEvery20000Words) {
    Learned Own;
    Own.Note(L"", L"nazdar", NO_WORD);
    Own.NotePair(L"nazdar", L"nazdar", 1);
    for (int n = 0; n < 40000; ++n)
        Own.Note(L"", L"ano", 0, 0.5);
    EXPECT_NEAR(CountOf(Own, L"nazdar"), 0.5, 1e-6);
    EXPECT_NEAR(Own.TotalAfter(L"nazdar"), 0.5, 1e-6);
    for (int n = 0; n < 60000; ++n)
        Own.Note(L"", L"ano", 0);
    EXPECT_EQ(Own.Write().find("nazdar"), std::string::npos);  // faded, so not stored any more
}

TEST(PredictorLearned, Capital_IsKeptOnlyForNames) {
    Learned Own;
    Own.Note(L"", L"Nazdar", NO_WORD);
    EXPECT_EQ(Own.Words().at(L"nazdar").strWord, L"Nazdar");
    Own.Note(L"", L"nazdar", NO_WORD);
    Own.Note(L"", L"Nazdar", NO_WORD);
    EXPECT_EQ(Own.Words().at(L"nazdar").strWord, L"nazdar");
}

TEST(PredictorLearned, Text_BringsEverythingBack) {
    Learned Own;
    Own.Note(L"", L"Žižkov", NO_WORD);
    Own.Note(L"Žižkov", L"křižovatka", NO_WORD);
    Learned Back;
    std::string strError;
    ASSERT_TRUE(Back.Read(Own.Write(), strError));
    EXPECT_EQ(Back.Write(), Own.Write());
    EXPECT_EQ(Back.Words().at(L"žižkov").strWord, L"Žižkov");
    EXPECT_TRUE(Back.After(L"žižkov")->contains(L"křižovatka"));
}

// A word for each number, of letters alone.
std::wstring NumberedWord(int nNumber) {
    std::wstring strWord;
    for (int n = 0; n < 4; ++n, nNumber /= 26)
        strWord += static_cast<wchar_t>(L'a' + nNumber % 26);
    return strWord;
}

// Counts differ, so that it is plain which are the least.
std::string StoredWords(int nWords) {
    std::string Bytes = "Taviro learned words 1\n";
    for (int n = 0; n < nWords; ++n)
        Bytes += std::to_string(100 + n) + " " + ToUtf8(NumberedWord(n)) + "\n";
    return Bytes;
}

TEST(PredictorLearned, WordsBeyond10000_LetTheRarestTenthGo) {
    Learned Own;
    std::string strError;
    ASSERT_TRUE(Own.Read(StoredWords(10000), strError));
    EXPECT_EQ(Own.Words().size(), 10000U);
    Own.Note(L"", L"nejnovější", NO_WORD, 0.5);
    EXPECT_EQ(Own.Words().size(), 9000U);
    EXPECT_EQ(CountOf(Own, NumberedWord(999)), 0);
    EXPECT_GT(CountOf(Own, NumberedWord(1000)), 0);
    ASSERT_TRUE(Own.Read(StoredWords(10001), strError));
    EXPECT_EQ(Own.Words().size(), 9000U);
    EXPECT_LT(Own.Write().size(), size_t{1} << 20);
}

class PredictorPairs : public ::testing::Test {
  protected:
    PredictorPairs() {
        for (int n = 0; n < WORDS; ++n)
            Own.Note(L"", NumberedWord(n), 0);
    }
    /// As many different pairs, each seen a little more often than the one before.
    void NotePairs(int nPairs) {
        for (int n = 0; n < nPairs; ++n)
            Own.NotePair(NumberedWord(n / WORDS), NumberedWord(n % WORDS), 0.2 + n * 1e-5);
    }
    [[nodiscard]] size_t Pairs() const {
        size_t nPairs = 0;
        for (int n = 0; n < WORDS; ++n) {
            const Learned::Followers* pNexts = Own.After(NumberedWord(n));
            nPairs += pNexts == nullptr ? 0 : pNexts->size();
        }
        return nPairs;
    }
    /// A word that is hardly there, which only what makes room throws out.
    void NoteFaintWord() { Own.Note(L"", L"možná", NO_WORD, 0.05); }
    [[nodiscard]] bool IsFaintWordKept() const { return Own.Words().contains(L"možná"); }

    static constexpr int WORDS = 160;
    Learned Own;
};

TEST_F(PredictorPairs, Beyond24000_TheRarestTenthGoes) {
    NotePairs(24000);
    NoteFaintWord();
    EXPECT_EQ(Pairs(), 24000U);
    EXPECT_TRUE(IsFaintWordKept());
    Own.Note(NumberedWord(WORDS - 1), NumberedWord(WORDS - 1), 0);
    EXPECT_EQ(Pairs(), 21600U);
    EXPECT_FALSE(IsFaintWordKept());
    EXPECT_EQ(Own.After(NumberedWord(0)), nullptr);
    double dSum = 0;
    for (const auto& [strNext, Count] : *Own.After(NumberedWord(100)))
        dSum += Own.Now(Count);
    EXPECT_NEAR(Own.TotalAfter(NumberedWord(100)), dSum, 1e-6);
    NoteFaintWord();  // there is room again
    EXPECT_TRUE(IsFaintWordKept());
    NotePairs(2401);  // those that went
    NoteFaintWord();
    EXPECT_EQ(Pairs(), 21600U);
}

TEST_F(PredictorPairs, SamePairAgain_TakesNoRoom) {
    for (int n = 0; n < 24001; ++n)
        Own.NotePair(NumberedWord(0), NumberedWord(1), 1);
    NoteFaintWord();
    EXPECT_TRUE(IsFaintWordKept());
}

TEST(PredictorLearned, FaintCounts_AreNotStored) {
    Learned Own;
    for (const wchar_t* szWord : {L"ano", L"ne"})
        Own.Note(L"", szWord, 0);
    Own.Note(L"", L"snad", 0, 0.05);
    Own.NotePair(L"ano", L"ne", 0.5);
    Own.NotePair(L"ano", L"ano", 0.05);
    EXPECT_EQ(Own.Write(), "Taviro learned words 1\n100 ano\n50 =ne\n100 ne\n");
}

struct StoredCase {
    const char* szName;
    std::string strRead;
    std::string strWritten;
};

// What is no word is passed over, as if it were not there.
TEST(PredictorLearned, StoredText_IsWhatIsWrittenAgain) {
    const std::string strFirst = "Taviro learned words 1\n";
    const StoredCase CASES[] = {
        {"words and followers", "150 ano\n25 =ano\n30 =ne\n200 ne\n",
         "150 ano\n25 =ano\n30 =ne\n200 ne\n"},
        {"without the last line's end", "150 ano\n25 =ano", "150 ano\n25 =ano\n"},
        {"least counts", "10 ano\n10 =ano\n9 ne\n100 to\n9 =to\n", "10 ano\n10 =ano\n100 to\n"},
        {"followers of a word that is too rare", "100 to\n1 ne\n100 =to\n", "100 to\n"},
        {"no number between", "100 ano\nx ne\n100 =ano\n", "100 ano\n100 =ano\n"},
        {"no whole number between", "100 ano\n5x ne\n100 =ano\n", "100 ano\n100 =ano\n"},
        {"no count between", "100 ano\n0 ne\n100 =ano\n", "100 ano\n100 =ano\n"},
        {"no word between", "100 ano\n100 n;e\n100 =ano\n", "100 ano\n100 =ano\n"},
        {"counts beyond belief", "4000000000 ano\n", "100000000 ano\n"},
    };
    for (const StoredCase& One : CASES) {
        Learned Own;
        std::string strError;
        EXPECT_TRUE(Own.Read(strFirst + One.strRead, strError)) << One.szName;
        EXPECT_EQ(Own.Write(), strFirst + One.strWritten) << One.szName;
    }
}

TEST(PredictorLearned, StoredCounts_AreTheShares) {
    Learned Own;
    std::string strError;
    ASSERT_TRUE(Own.Read("Taviro learned words 1\n150 ano\n25 =ano\n50 ne\n", strError));
    EXPECT_NEAR(Own.Total(), 2, 1e-9);
    EXPECT_NEAR(CountOf(Own, L"ano"), 1.5, 1e-9);
    EXPECT_NEAR(Own.TotalAfter(L"ano"), 0.25, 1e-9);
}

struct FileCase {
    const char* szName;
    std::string Bytes;
    bool bGood;
    size_t nWords;
};

TEST(PredictorLearned, HostileText_GivesOnlyWords) {
    const std::string strFirst = "Taviro learned words 1\n";
    const FileCase CASES[] = {
        {"empty", "", false, 0},
        {"other kind", "[Info]\nScanMode=1\n", false, 0},
        {"nothing learned", strFirst, true, 0},
        {"no words", strFirst + "100 a;b\n100 (\n100 \n100\n\n \n", true, 0},
        {"no counts", strFirst + "x ano\n-5 ano\n0 ano\n99999999999999 ano\n", true, 0},
        {"no word before the follower", strFirst + "100 =ano\n", true, 0},
        {"follower that is no word itself", strFirst + "100 ano\n100 =nikdo\n", true, 1},
        {"bytes", strFirst + std::string("\0\xFF\xFE 100 \xC5\n100 ano", 16), true, 1},
        {"largest", strFirst + std::string((4 << 20) - strFirst.size(), 'a'), true, 0},
        {"too large", strFirst + std::string((4 << 20) - strFirst.size() + 1, 'a'), false, 0},
    };
    for (const FileCase& One : CASES) {
        Learned Own;
        std::string strError;
        EXPECT_EQ(Own.Read(One.Bytes, strError), One.bGood) << One.szName;
        EXPECT_EQ(strError.empty(), One.bGood) << One.szName;
        EXPECT_EQ(Own.Words().size(), One.nWords) << One.szName;
        EXPECT_EQ(Own.After(L"ano"), nullptr) << One.szName;
    }
}

}  // namespace
}  // namespace taviro::predictor
