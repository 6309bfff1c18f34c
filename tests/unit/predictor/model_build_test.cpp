// SPDX-License-Identifier: MIT
// What the compiler makes of tables: the layout of the file, byte by byte, and what becomes of
// words, capitals and pairs.
#include "predictor/model_build.h"

#include "predictor/search.h"
#include "predictor/utf8.h"
#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro::predictor {
namespace {

/// A dictionary with the bytes that it reads.
struct Opened {
    explicit Opened(const std::vector<TestWord>& Listed, const std::vector<TestPair>& Pairs = {})
        : Bytes(CompiledModel(Listed, Pairs)) {
        std::string strError;
        EXPECT_TRUE(Words.Open(Bytes, strError)) << strError;
    }
    /// How often the second word was seen after the first; 0 when never.
    [[nodiscard]] double CountOf(const wchar_t* szFirst, const wchar_t* szSecond) const {
        std::vector<Follower> Found;
        Words.AppendFollowers(Words.Find(szFirst), Words.All(), Found);
        for (const Follower& Next : Found) {
            if (Next.nWord == Words.Find(szSecond)) return Next.dCount;
        }
        return 0;
    }
    std::string Bytes;
    Model Words;
};

// The file of an earlier version must stay readable, so its bytes are written down here.
TEST(PredictorModelFile, Layout_IsThatOfTheFormat) {
    const auto Short = [](uint32_t n) {
        return std::string{static_cast<char>(n), static_cast<char>(n >> 8)};
    };
    const auto Long = [&](uint32_t n) { return Short(n) + Short(n >> 16); };
    // "a" 0.5, "ABA" 0.1, "bAb" 0.01, "Ba" 0.1; "a" stood before "bAb" four times and more.
    const std::string strText = std::string("\x00\x01\x01", 3) +           // a
                                std::string("\x41\x02\x02\x01", 4) +       // ABA
                                std::string("\x20\x02\x02\x01", 4) +       // Ba
                                std::string("\x62\x01\x02", 3) + Long(2);  // bAb, the second
    const std::string strPairs = Long(0) + Long(0) + Long(9) + Long(NO_WORD) + Long(1) + Long(0) +
                                 Long(3 | 38U << 24);  // 12 x log2 of 9.1
    const std::string strWeights = Short(19699) + Short(19000) + Short(19000) + Short(18000);
    const std::string strMasses = Long(0) + Long(1524787553);
    const std::string strRest = Long(4) + Long(2) + Long(1) + Long(1) +
                                Long(static_cast<uint32_t>(strText.size())) + Short(L'a') +
                                Short(L'b') + strWeights + Short(19699) + strMasses + Long(0) +
                                strPairs + strText;
    const std::string strExpected = "TVDICT1\n" + Long(static_cast<uint32_t>(16 + strRest.size())) +
                                    Long(Checksum(strRest)) + strRest;
    const Opened Made({{L"a", 0.5}, {L"ABA", 0.1}, {L"bAb", 0.01}, {L"Ba", 0.1}},
                      {{L"a", L"bab", 8}});
    EXPECT_EQ(Made.Bytes, strExpected);
}

TEST(PredictorModelFile, Checksum_IsAdlers) {
    EXPECT_EQ(Checksum(""), 1U);
    EXPECT_EQ(Checksum("abc"), 0x024D0127U);
    EXPECT_EQ(Checksum(std::string(12000, '\xFF')), 0x09B1B3D3U);
}

TEST(PredictorModelFile, ModelWithoutFile_KnowsNothing) {
    const Model Words;
    EXPECT_EQ(Words.Word(0), L"");
    EXPECT_EQ(Words.Codes(0), "");
    EXPECT_EQ(Words.Weight(0), 0);
    EXPECT_EQ(Words.Probability(0), 0);
    EXPECT_EQ(Words.Find(L"a"), NO_WORD);
    EXPECT_EQ(Words.Mass({0, 5}), 0);
    EXPECT_EQ(Words.SizeOfContext(SENTENCE_START).dTotal, 0);
    BestFirst Walk(Words, RangesOf(Words, L"", Match::Exact));
    EXPECT_EQ(Walk.Next(), NO_WORD);
}

TEST(PredictorModelFile, LettersBesideTheAlphabet_AreNone) {
    const Opened Made({{L"ab", 0.5}});
    EXPECT_EQ(Made.Words.Letter(1), L'a');
    EXPECT_EQ(Made.Words.Letter(2), L'b');
    EXPECT_EQ(Made.Words.Letter(0), 0);
    for (int n = 3; n < 256; ++n)
        EXPECT_EQ(Made.Words.Letter(static_cast<uint8_t>(n)), 0) << n;
    EXPECT_EQ(Made.Words.Weight(1), 0) << "there is one word";
}

TEST(PredictorModelFile, EverySpelling_ComesBack) {
    const std::vector<const wchar_t*> SPELLINGS[] = {
        {L"ano", L"Praha", L"DPH", L"KitKat", L"iPod"},
        {L"most", L"Most"},  // the last shares all of its letters
        {L"a", L"KitKat"},   // its mask is the last of the file
        {L"abcdefghijklmnopqrstuvwxyzabcde"},
    };
    for (const auto& Spellings : SPELLINGS) {
        std::vector<TestWord> Listed;
        for (const wchar_t* szWord : Spellings)
            Listed.push_back({szWord, 0.1});
        const Opened Made(Listed);
        EXPECT_EQ(Made.Words.WordCount(), Spellings.size());
        for (const std::wstring strWord : Spellings) {
            bool bFound = false;
            for (WordId n = 0; n < Made.Words.WordCount(); ++n)
                bFound = bFound || Made.Words.Word(n) == strWord;
            EXPECT_TRUE(bFound) << ToUtf8(strWord);
        }
    }
}

TEST(PredictorModelFile, WhatIsNoWord_IsLeftOut) {
    const Opened Made({{L"den", 0.1},
                       {L"a;b", 0.1},
                       {L"4x4", 0.1},
                       {L"abcdefghijklmnopqrstuvwxyzabcdef", 0.1},
                       {L"", 0.1}});
    EXPECT_EQ(Made.Words.WordCount(), 1U);
    EXPECT_EQ(Made.Words.LetterCount(), 3U);
    EXPECT_EQ(Made.Words.Word(0), L"den");
}

TEST(PredictorModelFile, WordGivenTwice_IsTheFirst) {
    const Opened Made({{L"den", 0.1}, {L"noc", 0.3}, {L"den", 0.01}});
    EXPECT_EQ(Made.Words.WordCount(), 2U);
    EXPECT_NEAR(Made.Words.Probability(Made.Words.Find(L"den")), 0.1, 1e-3);
}

TEST(PredictorModelFile, ProbabilityThatCannotBe_StaysWithinItsNumber) {
    Tables From{.Words = {{L"a", 100}, {L"b", -100}}, .Pairs = {}};
    std::string strError;
    const std::string Bytes = BuildModel(From, strError);
    Model Words;
    ASSERT_TRUE(Words.Open(Bytes, strError)) << strError;
    EXPECT_EQ(Words.Weight(0), 65535);
    EXPECT_EQ(Words.Weight(1), 0);
}

TEST(PredictorModelFile, SumOfTooHighProbabilities_DoesNotWrap) {
    std::vector<std::wstring> Texts;
    for (wchar_t n = L'a'; n < L'a' + 16; ++n)
        Texts.emplace_back(1, n);
    std::vector<TestWord> Listed;
    for (const std::wstring& strText : Texts)
        Listed.push_back({strText.c_str(), 0.9});
    const Opened Made(Listed);
    EXPECT_NEAR(Made.Words.Mass(Made.Words.All()), 1.5, 1e-6);
}

// Numbers of words at which another block or another level of maxima begins.
TEST(PredictorModelFile, Walk_IsInOrderAtEverySize) {
    for (const int nWords : {1, 2, 15, 16, 17, 32, 33, 256, 257}) {
        std::vector<std::wstring> Texts;
        for (int n = 0; n < nWords; ++n)
            Texts.push_back(
                {static_cast<wchar_t>(L'a' + n / 26), static_cast<wchar_t>(L'a' + n % 26)});
        std::vector<TestWord> Listed;
        std::vector<WordId> Ranked(Texts.size());  // the likeliest first, all over the alphabet
        for (int n = 0; n < nWords; ++n) {
            const int nRank = n * 7 % nWords;
            Ranked[static_cast<size_t>(nRank)] = static_cast<WordId>(n);
            Listed.push_back({Texts[static_cast<size_t>(n)].c_str(), 0.5 / (nRank + 1)});
        }
        const Opened Made(Listed);
        BestFirst Walk(Made.Words, {Made.Words.All()});
        for (const WordId nWord : Ranked)
            EXPECT_EQ(Walk.Next(), nWord) << nWords;
        EXPECT_EQ(Walk.Next(), NO_WORD) << nWords;
        for (const std::wstring& strText : Texts)
            EXPECT_EQ(Made.Words.Word(Made.Words.Find(strText)), strText) << nWords;
    }
}

TEST(PredictorModelFile, Pair_CountsFromOnceOn) {
    const Opened Made({{L"a", 0.3}, {L"b", 0.3}, {L"c", 0.3}},
                      {{L"a", L"b", 1}, {L"a", L"c", 0.9}, {L"x", L"b", 5}, {L"b", L"x", 5}});
    EXPECT_GT(Made.CountOf(L"a", L"b"), 0);
    EXPECT_EQ(Made.CountOf(L"a", L"c"), 0);
    EXPECT_EQ(Made.Words.SizeOfContext(Made.Words.Find(L"b")).dTotal, 0);
}

// A pair is kept under the spelling by which its word is found again.
TEST(PredictorModelFile, PairOfTwoSpellings_BelongsToTheOneThatIsFound) {
    for (const double dCapital : {0.1, 0.2, 0.05}) {
        const Opened Made({{L"most", 0.1}, {L"Most", dCapital}, {L"je", 0.1}},
                          {{L"most", L"je", 10}, {L"je", L"most", 10}});
        EXPECT_GT(Made.CountOf(L"most", L"je"), 0) << dCapital;
        EXPECT_GT(Made.CountOf(L"je", L"most"), 0) << dCapital;
    }
}

TEST(PredictorModelFile, StartAndComma_AreContextsOfTheirOwn) {
    const Opened Made({{L"a", 0.5}, {L"b", 0.5}}, {{L"<s>", L"a", 10}, {L"<,>", L"b", 10}});
    std::vector<Follower> Found;
    Made.Words.AppendFollowers(SENTENCE_START, Made.Words.All(), Found);
    Made.Words.AppendFollowers(AFTER_COMMA, Made.Words.All(), Found);
    ASSERT_EQ(Found.size(), 2U);
    EXPECT_EQ(Found[0].nWord, 0U);
    EXPECT_EQ(Found[1].nWord, 1U);
}

// Books seen as often before every word: where a word is twice as common today as another, its
// pairs count 2^0.8 times as much, and never more than seven times up or down.
TEST(PredictorModelFile, PairsOfCommonerWords_CountMore) {
    const Opened Made({{L"a", 0.25}, {L"b", 0.125}, {L"c", 1e-9}, {L"d", 0.25}, {L"e", 0.25}},
                      {{L"d", L"a", 1000},
                       {L"d", L"b", 1000},
                       {L"d", L"c", 1000},
                       {L"e", L"d", 1000},
                       {L"e", L"e", 2}});
    const double dUsual = Made.CountOf(L"e", L"d");
    const double dStep = 0.06;  // counts are stored as logarithms
    EXPECT_NEAR(Made.CountOf(L"d", L"a") / dUsual, 1, dStep);
    EXPECT_NEAR(Made.CountOf(L"d", L"b") / dUsual / 0.574, 1, dStep);
    EXPECT_NEAR(Made.CountOf(L"d", L"c") / dUsual * 7, 1, dStep);
    EXPECT_NEAR(Made.CountOf(L"e", L"e") / dUsual * 500 / 7, 1, dStep);
    const double dTotal = Made.Words.SizeOfContext(Made.Words.Find(L"e")).dTotal;
    EXPECT_NEAR(dTotal / (dUsual + Made.CountOf(L"e", L"e")), 1, dStep);
}

}  // namespace
}  // namespace taviro::predictor
