// SPDX-License-Identifier: MIT
// What the stream infers of a word that was finished, and of what stands before the next one.
#include "predictor/letters.h"
#include "predictor/stream.h"
#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro::predictor {
namespace {

const std::vector<TestWord> WORDS{{L"do", 0.15},  {L"dobrý", 0.08}, {L"dobře", 0.06},
                                  {L"den", 0.05}, {L"kost", 0.01},  {L"košt", 0.03}};

class PredictorFinished : public ::testing::Test {
  protected:
    PredictorFinished() : m_Bytes(CompiledModel(WORDS)) {
        std::string strError;
        EXPECT_TRUE(Words.Open(m_Bytes, strError)) << strError;
    }
    bool Take(std::wstring_view strPrefix, const std::vector<Offer>& Shown = {}) {
        const bool bFinished = Typing.Take(Words, strPrefix, Constants);
        Typing.NoteShown(Shown);
        return bFinished;
    }
    /// The share of a guess about the word that was finished last; 0 when it is none.
    [[nodiscard]] double ShareOf(std::wstring_view strWord) const {
        for (const Guess& One : Typing.Finished()) {
            if (One.strWord == strWord) return One.dShare;
        }
        return 0;
    }
    [[nodiscard]] double ContextShare(uint32_t nContext) const {
        for (const Context& One : Typing.Contexts(Words, Constants)) {
            if (One.nContext == nContext) return One.dShare;
        }
        return 0;
    }

    Model Words;
    Stream Typing;
    const StreamConstants Constants;

  private:
    std::string m_Bytes;
};

TEST_F(PredictorFinished, WordWithoutOffers_WasTyped) {
    EXPECT_FALSE(Take(L"d", {{L"den", 0.2}}));
    EXPECT_FALSE(Typing.Take(Words, L"do", Constants));  // and nothing is shown for it
    EXPECT_TRUE(Take(L"x"));
    ASSERT_EQ(Typing.Finished().size(), 1U);
    EXPECT_NEAR(ShareOf(L"do"), 1, 1e-9);
}

// The letters weigh as the word's share of all words that begin so: 0.15 of 0.29.
TEST_F(PredictorFinished, ListedWord_WeighsByItsFrequency) {
    (void)Take(L"do", {{L"dobrý", 0.3}, {L"dobře", 0.2}});
    EXPECT_TRUE(Take(L"x"));
    const double dTyped = 0.15 / 0.29;
    EXPECT_NEAR(ShareOf(L"do"), dTyped / (dTyped + 0.5), 1e-3);
    EXPECT_NEAR(ShareOf(L"dobrý"), 0.3 / (dTyped + 0.5), 1e-3);
    EXPECT_NEAR(ShareOf(L"dobře"), 0.2 / (dTyped + 0.5), 1e-3);
    EXPECT_EQ(Typing.Finished().front().strWord, L"do");
}

TEST_F(PredictorFinished, WordThatWasOfferedAndNotTaken_WeighsLess) {
    (void)Take(L"d", {{L"do", 0.4}});
    (void)Take(L"do", {{L"dobrý", 0.3}});
    EXPECT_TRUE(Take(L"x"));
    const double dTyped = 0.2 * 0.15 / 0.29;
    EXPECT_NEAR(ShareOf(L"do"), dTyped / (dTyped + 0.3), 1e-3);
    EXPECT_EQ(Typing.Finished().front().strWord, L"dobrý");
}

TEST_F(PredictorFinished, UnlistedWord_HardlyWeighs) {
    (void)Take(L"dob", {{L"dobrý", 0.3}});
    EXPECT_TRUE(Take(L"x"));
    EXPECT_NEAR(ShareOf(L"dob"), 0.02 / 0.32, 1e-6);
}

TEST_F(PredictorFinished, Guesses_AreTheThreeLikeliest) {
    (void)Take(L"dob", {{L"a", 0.1}, {L"b", 0.4}, {L"c", 0.2}, {L"d", 0.25}});
    EXPECT_TRUE(Take(L"x"));
    const std::vector<Guess>& Found = Typing.Finished();
    ASSERT_EQ(Found.size(), 3U);
    EXPECT_EQ(Found[0].strWord, L"b");
    EXPECT_EQ(Found[1].strWord, L"d");
    EXPECT_EQ(Found[2].strWord, L"c");
}

TEST_F(PredictorFinished, LetterAgain_IsAnotherWord_ButLongerBeginningIsNot) {
    (void)Take(L"a");
    EXPECT_TRUE(Take(L"a"));
    (void)Take(L"do");
    EXPECT_FALSE(Take(L"do"));
}

TEST_F(PredictorFinished, UnknownLetter_IsThatOfTheLikeliestWordWithTheOthers) {
    (void)Take(std::wstring(L"kos\0", 4));
    EXPECT_TRUE(Take(L"x"));
    ASSERT_EQ(Typing.Finished().size(), 1U);
    EXPECT_EQ(Typing.Finished().front().strWord, L"kost") << "an s is no š";
}

TEST_F(PredictorFinished, Contexts_HaveTheirShares) {
    EXPECT_FALSE(Take(L"d"));
    EXPECT_NEAR(ContextShare(SENTENCE_START), 0.5, 1e-9);  // the first word of all
    EXPECT_EQ(Typing.Contexts(Words, Constants).size(), 1U);
    EXPECT_TRUE(Take(L"x"));
    (void)Take(L"do");
    EXPECT_TRUE(Take(L"d"));
    const WordId nDo = Words.Find(L"do");
    EXPECT_EQ(ContextShare(SENTENCE_START), 0);
    EXPECT_NEAR(ContextShare(AFTER_COMMA), 0.1, 1e-9);
    EXPECT_NEAR(ContextShare(nDo), 0.9, 1e-9);
    (void)Take(L"do");
    EXPECT_TRUE(Take(L"D"));
    EXPECT_NEAR(ContextShare(SENTENCE_START), 0.4, 1e-9);
    EXPECT_NEAR(ContextShare(AFTER_COMMA), 0.6 * 0.1, 1e-9);
    EXPECT_NEAR(ContextShare(nDo), 0.6 * 0.9, 1e-9);
    (void)Take(L"do");
    EXPECT_TRUE(Take(std::wstring(1, UNKNOWN_LETTER)));
    EXPECT_NEAR(ContextShare(SENTENCE_START), 0.4, 1e-9);
}

TEST_F(PredictorFinished, KnownText_HasOneContext_AndTwoAfterAComma) {
    const std::vector<Context> Start = ContextsAfter(Words, L"", false);
    ASSERT_EQ(Start.size(), 1U);
    EXPECT_EQ(Start[0].nContext, SENTENCE_START);
    EXPECT_NEAR(Start[0].dShare, 1, 1e-9);
    const std::vector<Context> Word = ContextsAfter(Words, L"Do", false);
    ASSERT_EQ(Word.size(), 1U);
    EXPECT_EQ(Word[0].nContext, Words.Find(L"do"));
    EXPECT_EQ(Word[0].strLower, L"do");
    EXPECT_NEAR(Word[0].dShare, 1, 1e-9);
    const std::vector<Context> Comma = ContextsAfter(Words, L"do", true);
    ASSERT_EQ(Comma.size(), 2U);
    EXPECT_EQ(Comma[0].nContext, AFTER_COMMA);
    EXPECT_NEAR(Comma[0].dShare + Comma[1].dShare, 1, 1e-9);
    EXPECT_GT(Comma[0].dShare, Comma[1].dShare);
}

}  // namespace
}  // namespace taviro::predictor
