// SPDX-License-Identifier: MIT
#include "predictor/model.h"

#include <algorithm>
#include <random>
#include <set>

#include "predictor/letters.h"
#include "predictor/search.h"
#include "predictor/utf8.h"
#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro::predictor {
namespace {

// A dictionary of made-up words with every kind of capitals, and the same words as a plain list.
struct RandomDictionary {
    std::vector<WordEntry> Entries;
    std::string Bytes;
    Model Words;

    explicit RandomDictionary(size_t nWords) {
        std::mt19937 Random(7);
        const std::wstring strLetters = L"aábcčeěiklmnorřst";
        Tables From;
        for (size_t n = 0; n < nWords; ++n) {
            std::wstring strWord;
            for (size_t nLength = 1 + Random() % 7; strWord.size() < nLength;)
                strWord += strLetters[Random() % strLetters.size()];
            if (Random() % 8 == 0) strWord.front() = UpperLetter(strWord.front());
            if (Random() % 50 == 0) strWord.back() = UpperLetter(strWord.back());
            From.Words.push_back({strWord, -4 - static_cast<double>(Random() % 5000) / 1000});
        }
        std::string strError;
        Bytes = BuildModel(From, strError);
        EXPECT_TRUE(Words.Open(Bytes, strError)) << strError;
        for (WordId n = 0; n < Words.WordCount(); ++n)
            Entries.push_back({Words.Word(n), std::log10(Words.Probability(n))});
        std::set<std::wstring> Known;
        for (const WordEntry& Entry : Entries)
            Known.insert(Entry.strWord);
        for (const WordEntry& Entry : From.Words)
            EXPECT_TRUE(Known.contains(Entry.strWord)) << ToUtf8(Entry.strWord);
    }
};

TEST(PredictorModel, Words_ComeBackSortedWithCapitalsAndWeights) {
    const RandomDictionary Made(800);
    for (size_t n = 1; n < Made.Entries.size(); ++n) {
        const std::wstring strBefore = LowerText(Made.Entries[n - 1].strWord);
        EXPECT_LE(strBefore, LowerText(Made.Entries[n].strWord));
        EXPECT_NE(Made.Entries[n - 1].strWord, Made.Entries[n].strWord);
    }
}

// By looking at every word.
std::vector<uint16_t> FittingWeights(const Model& Words, const std::wstring& strTyped,
                                     Match nMatch) {
    std::vector<uint16_t> Weights;
    for (WordId n = 0; n < Words.WordCount(); ++n) {
        if (BeginsWith(LowerText(Words.Word(n)), strTyped, nMatch))
            Weights.push_back(Words.Weight(n));
    }
    std::sort(Weights.begin(), Weights.end(), std::greater<>());
    return Weights;
}

std::vector<uint16_t> WalkedWeights(const Model& Words, const std::wstring& strTyped,
                                    Match nMatch) {
    std::vector<uint16_t> Weights;
    BestFirst Walk(Words, RangesOf(Words, strTyped, nMatch));
    for (WordId n = Walk.Next(); n != NO_WORD; n = Walk.Next()) {
        if (Words.Word(n).size() >= strTyped.size()) Weights.push_back(Words.Weight(n));
    }
    return Weights;
}

// The search may not differ from the oracle in a single word.
TEST(PredictorSearch, Walk_FindsWhatLookingAtAllWordsFinds) {
    const RandomDictionary Made(600);
    const std::wstring NUL(1, UNKNOWN_LETTER);
    const std::wstring TYPED[] = {L"",        L"a",
                                  L"á",       L"ka",
                                  L"Ka",      L"cer",
                                  NUL,        NUL + NUL,
                                  NUL + L"a", L"k" + NUL + L"e",
                                  L"r" + NUL, L"s" + NUL + NUL + L"a",
                                  L"zzz",     L"x",
                                  L"ěě",      L"ai;"};
    for (const Match nMatch : {Match::Exact, Match::Folded}) {
        for (const std::wstring& strTyped : TYPED) {
            EXPECT_EQ(WalkedWeights(Made.Words, strTyped, nMatch),
                      FittingWeights(Made.Words, strTyped, nMatch))
                << ToUtf8(strTyped);
        }
    }
}

TEST(PredictorSearch, Beginning_IsFoundLetterByLetter) {
    struct Case {
        const wchar_t* szWord;
        std::wstring strTyped;
        bool bExact, bFolded;
    };
    const Case CASES[] = {
        {L"ano", L"", true, true},       {L"ano", L"an", true, true},
        {L"ano", L"AN", true, true},     {L"ano", L"ano", true, true},
        {L"ano", L"anoo", false, false}, {L"ano", L"no", false, false},
        {L"šest", L"se", false, true},   {L"sestra", L"še", false, false},
        {L"šest", L"Š", true, true},     {L"ano", std::wstring(L"\0n", 2), true, true},
    };
    for (const Case& One : CASES) {
        EXPECT_EQ(BeginsWith(One.szWord, One.strTyped, Match::Exact), One.bExact)
            << ToUtf8(One.szWord) << " " << ToUtf8(One.strTyped);
        EXPECT_EQ(BeginsWith(One.szWord, One.strTyped, Match::Folded), One.bFolded)
            << ToUtf8(One.szWord) << " " << ToUtf8(One.strTyped);
    }
}

TEST(PredictorSearch, MoreLettersThanAWordCanHave_FindNothing) {
    const RandomDictionary Made(20);
    EXPECT_FALSE(RangesOf(Made.Words, std::wstring(31, UNKNOWN_LETTER), Match::Exact).empty());
    EXPECT_TRUE(RangesOf(Made.Words, std::wstring(32, UNKNOWN_LETTER), Match::Exact).empty());
}

TEST(PredictorModel, Mass_IsTheSumOfItsWords) {
    const RandomDictionary Made(700);
    const uint32_t nWords = Made.Words.WordCount();
    const WordRange RANGES[] = {{0, nWords}, {0, 0},   {5, 9},      {16, 32},
                                {15, 33},    {17, 40}, {nWords, 1}, {100, nWords + 50}};
    for (const WordRange& Range : RANGES) {
        double dExpected = 0;
        for (WordId n = Range.nFirst; n < std::min(Range.nEnd, nWords); ++n)
            dExpected += Made.Words.Probability(n);
        EXPECT_NEAR(Made.Words.Mass(Range), dExpected, 1e-8);
    }
}

TEST(PredictorModel, Find_PrefersTheLikelierSpelling) {
    const std::string Bytes = CompiledModel(
        {{L"most", 0.2}, {L"Most", 0.01}, {L"kosa", 0.1}, {L"praha", 0.001}, {L"Praha", 0.02}});
    Model Words;
    std::string strError;
    ASSERT_TRUE(Words.Open(Bytes, strError));
    EXPECT_EQ(Words.Word(Words.Find(L"most")), L"most");
    EXPECT_EQ(Words.Find(L"mos"), NO_WORD);
    EXPECT_EQ(Words.Find(L""), NO_WORD);
    EXPECT_EQ(Words.Find(L"x"), NO_WORD);
    EXPECT_EQ(Words.Find(L"mostx"), NO_WORD);
    EXPECT_EQ(Words.Word(Words.Find(L"praha")), L"Praha");
    EXPECT_EQ(Words.Word(99), L"");
}

TEST(PredictorModel, Followers_AreThoseOfTheRange) {
    const std::string Bytes =
        CompiledModel({{L"a", 0.3}, {L"b", 0.3}, {L"c", 0.3}, {L"d", 0.1}},
                      {{L"a", L"b", 10}, {L"a", L"d", 30}, {L"c", L"a", 5}, {L"a", L"nic", 7}});
    Model Words;
    std::string strError;
    ASSERT_TRUE(Words.Open(Bytes, strError));
    std::vector<Follower> Found;
    Words.AppendFollowers(0, Words.All(), Found);
    ASSERT_EQ(Found.size(), 2U);
    EXPECT_EQ(Found[0].nWord, 1U);
    EXPECT_EQ(Found[1].nWord, 3U);
    Found.clear();
    Words.AppendFollowers(0, {2, 4}, Found);
    EXPECT_EQ(Found.size(), 1U);
    Found.clear();
    Words.AppendFollowers(1, Words.All(), Found);
    EXPECT_TRUE(Found.empty());
    EXPECT_EQ(Words.SizeOfContext(1).dTotal, 0);
    EXPECT_EQ(Words.SizeOfContext(0).dFollowers, 2);
}

TEST(PredictorModel, Tables_AreReadLineByLine) {
    Tables Read;
    std::string strError;
    EXPECT_TRUE(ReadTable("# note\nse\t-1.5\r\n\nž\t-2\nžít\tse\t12\n", Read, strError));
    ASSERT_EQ(Read.Words.size(), 2U);
    EXPECT_EQ(Read.Words[0].strWord, L"se");
    EXPECT_EQ(Read.Words[0].dLogProbability, -1.5);
    EXPECT_EQ(Read.Words[1].strWord, L"ž");
    EXPECT_EQ(Read.Words[1].dLogProbability, -2);
    ASSERT_EQ(Read.Pairs.size(), 1U);
    EXPECT_EQ(Read.Pairs[0].strFirst, L"žít");
    EXPECT_EQ(Read.Pairs[0].strSecond, L"se");
    EXPECT_EQ(Read.Pairs[0].dCount, 12);
    EXPECT_FALSE(ReadTable("a\t-1\nslovo\n", Read, strError));
    EXPECT_EQ(strError, "line 2: neither a word nor a pair with its number");
    EXPECT_FALSE(ReadTable("a\t-1x\n", Read, strError));
}

struct BadFile {
    const char* szName;
    std::string Bytes;
    const char* szError;
};

TEST(PredictorModel, BadFile_IsRefusedWithItsFault) {
    const std::string Good = CompiledModel(EVERYDAY_WORDS);
    std::string OtherKind = Good;
    OtherKind[6] = '9';
    std::string Flipped = Good;
    Flipped[Flipped.size() / 2] = static_cast<char>(Flipped[Flipped.size() / 2] ^ 4);
    const BadFile CASES[] = {
        {"empty", "", "The dictionary file is too short."},
        {"less than its beginning", Good.substr(0, 35), "The dictionary file is too short."},
        {"its beginning alone", Good.substr(0, 36),
         "The dictionary file is cut off or has been added to."},
        {"other kind", OtherKind, "The dictionary file is of another kind or version."},
        {"cut", Good.substr(0, Good.size() - 1),
         "The dictionary file is cut off or has been added to."},
        {"longer", Good + "x", "The dictionary file is cut off or has been added to."},
        {"damaged", Flipped, "The dictionary file is damaged."}};
    for (const BadFile& One : CASES) {
        Predictor Asked;
        std::string strError;
        EXPECT_FALSE(Asked.Words.Open(One.Bytes, strError)) << One.szName;
        EXPECT_EQ(strError, One.szError) << One.szName;
        EXPECT_EQ(Asked.GetPrediction(L"d").strList, L"") << One.szName;
    }
}

TEST(PredictorModel, EveryCutOfAFile_IsRefused) {
    const std::string Good = CompiledModel(EVERYDAY_WORDS);
    for (size_t n = 0; n < Good.size(); ++n) {
        Model Words;
        std::string strError;
        EXPECT_FALSE(Words.Open(std::string_view(Good).substr(0, n), strError)) << n;
        EXPECT_FALSE(strError.empty());
    }
}

std::string WithNumber(std::string Bytes, size_t nPlace, uint32_t nNumber) {
    for (size_t n = 0; n < 4; ++n)
        Bytes[nPlace + n] = static_cast<char>(nNumber >> (8 * n));
    return Bytes;
}

// The file as if it had been made so: its checksum fits.
std::string Summed(const std::string& Bytes) {
    return WithNumber(Bytes, 12, Checksum(std::string_view(Bytes).substr(16)));
}

TEST(PredictorModel, NumbersThatCannotBe_AreRefused) {
    const std::string Good = CompiledModel(EVERYDAY_WORDS);
    struct Case {
        size_t nPlace;
        uint32_t nNumber;
        bool bImpossible;  // in itself, not only beside the others
    };
    constexpr Case CASES[] = {{16, 8388608, false}, {16, 8388609, true},  {20, 250, false},
                              {20, 251, true},      {24, 8388608, false}, {24, 8388609, true},
                              {28, 1, false},       {32, 1, false}};
    for (const Case& One : CASES) {
        const std::string Bytes = Summed(WithNumber(Good, One.nPlace, One.nNumber));
        Model Words;
        std::string strError;
        EXPECT_FALSE(Words.Open(Bytes, strError)) << One.nPlace;
        EXPECT_EQ(strError, One.bImpossible
                                ? "The dictionary file holds impossible numbers."
                                : "The parts of the dictionary file do not fit together.")
            << One.nPlace << " " << One.nNumber;
        EXPECT_EQ(Words.WordCount(), 0U);
    }
}

TEST(PredictorModel, AlphabetOfOtherSigns_IsRefused) {
    for (const char nSign : {'!', 'A', '\0'}) {
        std::string Bytes = CompiledModel({{L"a", 0.5}});
        Bytes[36] = nSign;
        Bytes = Summed(Bytes);
        Model Words;
        std::string strError;
        EXPECT_FALSE(Words.Open(Bytes, strError)) << nSign;
        EXPECT_EQ(strError, "The dictionary file holds letters that are none.") << nSign;
    }
}

// The text of the words, at the end of the file, is cut off within the last word or holds a letter
// that the alphabet has not.
TEST(PredictorModel, WordOfADamagedText_IsNone) {
    const std::string Good = CompiledModel({{L"ab", 0.5}, {L"ac", 0.5}});
    std::vector<std::string> Files;
    for (const uint32_t nCut : {1U, 2U, 3U}) {
        std::string Bytes = Good.substr(0, Good.size() - nCut);
        Bytes = WithNumber(Bytes, 8, static_cast<uint32_t>(Bytes.size()));
        Files.push_back(Summed(WithNumber(Bytes, 32, 4 + 3 - nCut)));
    }
    Files.push_back(Summed(Good.substr(0, Good.size() - 1) + '\x09'));
    for (const std::string& Bytes : Files) {
        Model Words;
        std::string strError;
        ASSERT_TRUE(Words.Open(Bytes, strError)) << strError;
        EXPECT_EQ(Words.Word(0), L"ab") << Bytes.size();
        EXPECT_EQ(Words.Word(1), L"") << Bytes.size();
    }
}

// Every byte behind the header changed, with a checksum that fits: whatever comes out, nothing
// outside the file is read (the sanitizers watch) and no list breaks its format.
class PredictorHostileFile : public ::testing::TestWithParam<int> {};

TEST_P(PredictorHostileFile, NeverHarms) {
    const std::string Good = CompiledModel(EVERYDAY_WORDS, {{L"dobrý", L"den", 9}});
    for (size_t nPlace = HEADER_WORDS; nPlace < Good.size(); ++nPlace) {
        std::string Bytes = Good;
        Bytes[nPlace] = static_cast<char>(GetParam());
        Bytes = Summed(Bytes);
        Predictor Asked;
        std::string strError;
        if (!Asked.Words.Open(Bytes, strError)) {
            EXPECT_FALSE(strError.empty());
            continue;
        }
        Asked.Settings.bAlways = true;
        for (const wchar_t* szPrefix : {L"d", L"do", L"dobrý", L"d", L"p", L"s"}) {
            const std::wstring strList = Asked.GetPrediction(szPrefix).strList;
            for (const wchar_t n : strList)
                EXPECT_TRUE(n == L';' || n == L' ' || IsLetter(n));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(ByteValues, PredictorHostileFile, ::testing::Values(0, 1, 0x7F, 0xFF));

}  // namespace
}  // namespace taviro::predictor
