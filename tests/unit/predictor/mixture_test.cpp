// SPDX-License-Identifier: MIT
// How likely each word is: what the books, the user and the frequencies say, each with its share.
#include "predictor/letters.h"
#include "predictor/search.h"
#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro::predictor {
namespace {

const std::vector<TestWord> MIXED_WORDS{{L"a", 0.3},     {L"ba", 0.1},    {L"be", 0.1},
                                        {L"bi", 0.1},    {L"bo", 0.1},    {L"Bu", 0.1},
                                        {L"most", 0.1},  {L"Most", 0.02}, {L"kost", 0.01},
                                        {L"košt", 0.03}, {L"kosť", 0.03}, {L"koště", 0.02}};

class PredictorMixture : public PredictorTest {
  protected:
    PredictorMixture()
        : PredictorTest(MIXED_WORDS, {{L"a", L"ba", 10}, {L"a", L"be", 10}, {L"a", L"bi", 40}}) {}

    /// How likely the word is after the other one when so much is typed; 0 when it is not offered.
    double Share(std::wstring_view strPrevious, std::wstring_view strTyped,
                 std::wstring_view strWord, const std::vector<std::wstring>& Passed = {}) {
        for (const Offer& One : Asked.Complete(strPrevious, false, strTyped, Passed)) {
            if (One.strText == strWord) return One.dProbability;
        }
        return 0;
    }
    std::wstring After(std::wstring_view strPrevious, std::wstring_view strTyped) {
        return Joined(Asked.Complete(strPrevious, false, strTyped, {}));
    }
    /// The share of the books when a word has gone before.
    double BooksShare(std::wstring_view strPrevious) {
        const auto Size = Asked.Words.SizeOfContext(Asked.Words.Find(strPrevious));
        return 0.8 * Size.dTotal / (Size.dTotal + 20 * Size.dFollowers);
    }
    /// The share of all followers that the books give to one.
    double InBooks(std::wstring_view strPrevious, std::wstring_view strWord) {
        const WordId nPrevious = Asked.Words.Find(strPrevious);
        std::vector<Follower> Found;
        Asked.Words.AppendFollowers(nPrevious, Asked.Words.All(), Found);
        for (const Follower& Next : Found) {
            if (Next.nWord == Asked.Words.Find(strWord)) {
                return Next.dCount / Asked.Words.SizeOfContext(nPrevious).dTotal;
            }
        }
        return 0;
    }
};

TEST_F(PredictorMixture, WithoutContext_FrequenciesDecide) {
    EXPECT_NEAR(Share(L"x", L"m", L"most"), 0.1 / 0.12, 2e-3);
    EXPECT_NEAR(Share(L"x", L"bi", L"bi"), 0, 1e-9) << "typed to its end";
    EXPECT_NEAR(Share(L"x", L"b", L"ba"), 0.1 / 0.5, 2e-3);
}

// The more often the word before was seen for each that followed, the more the books say.
TEST_F(PredictorMixture, Books_HaveTheirShare) {
    const double dBooks = BooksShare(L"a");
    EXPECT_GT(dBooks, 0.2);
    EXPECT_LT(dBooks, 0.8);
    const double dAll =
        dBooks * (InBooks(L"a", L"ba") + InBooks(L"a", L"be") + InBooks(L"a", L"bi")) +
        (1 - dBooks) * 0.5;
    EXPECT_NEAR(Share(L"a", L"b", L"bi"),
                (dBooks * InBooks(L"a", L"bi") + (1 - dBooks) * 0.1) / dAll, 2e-3);
    EXPECT_NEAR(Share(L"a", L"b", L"bo"), (1 - dBooks) * 0.1 / dAll, 2e-3);
}

TEST_F(PredictorMixture, PassedWords_TakeTheirShareAway) {
    const double dBooks = BooksShare(L"a");
    const double dRest =
        dBooks * (InBooks(L"a", L"ba") + InBooks(L"a", L"be")) + (1 - dBooks) * 0.4;
    EXPECT_NEAR(Share(L"a", L"b", L"bo", {L"bi"}), (1 - dBooks) * 0.1 / dRest, 2e-3);
}

// The user's words have 0.65 of the whole at most, and half of it after a thousand words.
TEST_F(PredictorMixture, OwnWords_HaveHalfTheirShareAfterAThousand) {
    std::string strError;
    ASSERT_TRUE(Asked.Own.Read("Taviro learned words 1\n60000 ba\n40000 bach\n", strError));
    Asked.Own.Link(Asked.Words);
    const double dOwn = 0.65 / 2;
    const double dAll = dOwn + (1 - dOwn) * 0.5;
    EXPECT_NEAR(Share(L"x", L"b", L"ba"), (dOwn * 0.6 + (1 - dOwn) * 0.1) / dAll, 2e-4);
    EXPECT_NEAR(Share(L"x", L"b", L"bach"), dOwn * 0.4 / dAll, 2e-4);
    EXPECT_NEAR(Share(L"x", L"b", L"be"), (1 - dOwn) * 0.1 / dAll, 2e-4);
}

// What the user wrote behind a word has half of everything at most, and half of that when the word
// was written six times.
TEST_F(PredictorMixture, OwnPairs_HaveHalfTheirShareAfterSix) {
    for (int n = 0; n < 6; ++n) {
        Asked.NoteWritten(L"", L"kost");
        Asked.NoteWritten(L"kost", L"bo");
    }
    Asked.Settings.Ranking.dOwnTrust = 0;  // the words alone are another matter
    const double dPair = 0.5 / 2;
    const double dAll = dPair + (1 - dPair) * 0.5;
    EXPECT_NEAR(Share(L"kost", L"b", L"bo"), (dPair + (1 - dPair) * 0.1) / dAll, 2e-3);
    EXPECT_NEAR(Share(L"kost", L"b", L"be"), (1 - dPair) * 0.1 / dAll, 2e-3);
}

TEST_F(PredictorMixture, WordThatOnlyTheUserHas_CountsAloneAndInPairs) {
    for (int n = 0; n < 6; ++n) {
        Asked.NoteWritten(L"", L"kost");
        Asked.NoteWritten(L"kost", L"bach");
        Asked.NoteWritten(L"", L"bubak");
    }
    const double dPair = 0.5 / 2;
    const double dOwn = (1 - dPair) * 0.65 * 18 / (18 + 1000);
    const double dBase = 1 - dPair - dOwn;
    const double dAll = dPair + dOwn * 2 / 3 + dBase * 0.5;
    EXPECT_NEAR(Share(L"kost", L"b", L"bach"), (dPair + dOwn / 3) / dAll, 1e-3);
    Asked.Settings.nWords = 10;
    EXPECT_NEAR(Share(L"kost", L"b", L"bubak"), dOwn / 3 / dAll, 1e-3);
}

// A word of the dictionary that was only suspected of having been written is as its frequency says.
TEST_F(PredictorMixture, SuspectedWord_CountsFromThreeTenths) {
    Asked.Settings.Ranking.dOwnHalf = 0.001;
    struct Case {
        const char* szStored;
        bool bCounts;
    };
    constexpr Case CASES[] = {{"29 bo", false}, {"30 bo", true}, {"31 bo", true}};
    for (const Case& One : CASES) {
        std::string strError;
        ASSERT_TRUE(
            Asked.Own.Read(std::string("Taviro learned words 1\n") + One.szStored, strError));
        Asked.Own.Link(Asked.Words);
        EXPECT_EQ(Share(L"x", L"b", L"bo") > 0.3, One.bCounts) << One.szStored;
    }
}

TEST_F(PredictorMixture, NamesAndCapitals_HaveTheirFactors) {
    Asked.Settings.nWords = 10;
    EXPECT_NEAR(Share(L"x", L"b", L"Bu") / Share(L"x", L"b", L"ba"), 0.1, 2e-3);
    EXPECT_NEAR(Share(L"x", L"B", L"Ba") / Share(L"x", L"B", L"Bu"), 0.3, 2e-3);
}

// One that begins a name and a common word is offered once, as likely as the likelier of them.
TEST_F(PredictorMixture, SameTextTwice_IsOfferedOnce) {
    EXPECT_EQ(After(L"x", L"M"), L";Most");
    Asked.Settings.nWords = 2;
    EXPECT_NEAR(Share(L"x", L"M", L"Most"), 0.1 * 0.3 / (0.12 * 0.3), 2e-3);
    EXPECT_EQ(After(L"x", L"MO"), L";MOST");
}

TEST_F(PredictorMixture, Shares_NeverPassTheWhole) {
    EXPECT_NEAR(Share(L"x", L"Bu", L"Bu"), 0, 1e-9);
    double dSum = 0;
    for (const Offer& One : Asked.Complete(L"x", false, L"B", {}))
        dSum += One.dProbability;
    EXPECT_LE(dSum, 1 + 1e-9);
    Asked.Settings.nWords = 1;
    Asked.Settings.Ranking.dCommonCapital = 0.01;
    EXPECT_NEAR(Share(L"x", L"B", L"Bu"), 1, 1e-9);
}

// One word at a time, so that it must be the best, wherever it stands in the alphabet.
TEST_F(PredictorMixture, BestFollower_IsFoundWhereverItStands) {
    Asked.Settings.nWords = 1;
    EXPECT_EQ(After(L"a", L"b"), L";bi");
    Asked.Settings.nWords = 3;
    EXPECT_EQ(After(L"a", L"b"), L";bi;ba;be") << "of equal ones the first in the alphabet";
}

// Words without the typed marks come behind exact ones, with a twentieth, and only where room is.
TEST_F(PredictorMixture, WordsWithMarks_FillTheRest) {
    Asked.Settings.nWords = 3;
    EXPECT_EQ(After(L"x", L"kos"), L";kosť;kost;košt");
    EXPECT_NEAR(Share(L"x", L"kos", L"kost"), 0.01 / 0.04, 2e-3);
    EXPECT_NEAR(Share(L"x", L"kos", L"košt"), 0.05 * 0.03 / 0.09, 2e-3);
    EXPECT_NEAR(Share(L"x", L"kost", L"košt"), 0.03 / 0.09, 2e-3) << "no exact one is left";
}

}  // namespace
}  // namespace taviro::predictor
