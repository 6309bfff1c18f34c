// SPDX-License-Identifier: MIT
#include "predictor/ranking.h"

#include "predictor/letters.h"
#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro::predictor {
namespace {

const std::wstring NUL(1, UNKNOWN_LETTER);

class PredictorRanking : public PredictorTest {
  protected:
    std::wstring After(std::wstring_view strPrevious, std::wstring_view strTyped,
                       const std::vector<std::wstring>& Passed = {}) {
        return Joined(Asked.Complete(strPrevious, false, strTyped, Passed));
    }
};

struct ListCase {
    const char* szName;
    std::wstring strTyped;
    const wchar_t* szList;
};

TEST_F(PredictorRanking, Lists) {
    Asked.Settings.nWords = 4;
    const ListCase CASES[] = {
        {"by frequency", L"d", L";do;dobrý;dobře;den"},
        {"narrowed by letters, the whole word is typed already", L"do", L";dobrý;dobře"},
        {"no such word", L"dx", L""},
        {"typed to its end", L"dobrý", L""},
        {"without the mark, after exact ones", L"se", L";sestra;šest"},
        {"without the mark, alone", L"pis", L";píseň"},
        {"with the mark only itself", L"š", L";šest"},
        {"marks inside", L"cek", L";čekám"},
        {"a name has its capital back", L"prah", L";Praha"},
        {"a name typed to its end without its capital", L"praha", L";Praha"},
        {"a typed capital stays", L"Pros", L";Prosím"},
        {"all capitals stay", L"PRO", L";PROSÍM"},
        {"inner capitals come back", L"kitk", L";KitKat"},
        {"an unknown letter is any letter", L"pr" + NUL + L"v", L";pravda"},
        {"an unknown first letter is a capital", NUL + L"ut", L";Auto"},
        {"but not one with a mark", NUL + L"est", L";Cesta;Sestra"},
        {"unknown letters at the end", L"aut" + NUL, L""},
        {"more letters than the word has", L"aut" + NUL + NUL, L""},
        {"begun small, a name comes behind", L"pra", L";pravda;Praha;prádlo"},
        {"begun with a capital, a name comes first", L"Pra", L";Praha;Pravda;Prádlo"},
        {"an unknown first letter is a capital to names too", NUL + L"ra", L";Praha;Pravda;Prádlo"},
        {"two capitals are all capitals", L"DO", L";DOBRÝ;DOBŘE"},
        {"longer than any word", std::wstring(40, L'a'), L""},
    };
    for (const ListCase& One : CASES) {
        EXPECT_EQ(After(L"x", One.strTyped), One.szList) << One.szName;
    }
}

TEST_F(PredictorRanking, UnknownFirstLetter_IsACapitalUnlessItHasAMark) {
    EXPECT_EQ(AsBegun(L"cesta", NUL + L"e"), L"Cesta");
    EXPECT_EQ(AsBegun(L"šest", NUL + L"e"), L"šest");
    EXPECT_EQ(AsBegun(L"šest", L"Še"), L"Šest");
    EXPECT_EQ(AsBegun(L"", L"A"), L"");
    EXPECT_EQ(AsBegun(L"praha", L"P"), L"Praha");
    EXPECT_EQ(AsBegun(L"praha", L"PR"), L"PRAHA");
    EXPECT_EQ(AsBegun(L"praha", L"PRa"), L"Praha");
    EXPECT_EQ(AsBegun(L"Praha", L""), L"Praha");
}

TEST_F(PredictorRanking, PreviousWord_BringsItsFollowersUp) {
    EXPECT_TRUE(After(L"", L"d").starts_with(L";děkuji"));
    EXPECT_TRUE(After(L"dobrý", L"d").starts_with(L";den"));
    EXPECT_TRUE(After(L"sestra", L"d").starts_with(L";do;"));
    EXPECT_TRUE(After(L"Dobrý", L"D").starts_with(L";Den"));
}

TEST_F(PredictorRanking, StartOfSentence_GetsACapitalBeforeTheFirstLetter) {
    EXPECT_TRUE(After(L"", L"").starts_with(L";Děkuji"));
    EXPECT_TRUE(After(L"dobrý", L"").starts_with(L";den"));
}

TEST_F(PredictorRanking, PassedWord_MakesRoom) {
    Asked.Settings.nWords = 2;
    EXPECT_EQ(After(L"x", L"d"), L";do;dobrý");
    EXPECT_EQ(After(L"x", L"d", {L"do"}), L";dobrý;dobře");
    EXPECT_EQ(After(L"x", L"d", {L"do", L"dobrý", L"dobře", L"den", L"děkuji"}), L"");
}

TEST_F(PredictorRanking, NumberOfWords_IsKeptWithinItsBounds) {
    struct Bound {
        size_t nWords;
        size_t nExpected;
    };
    constexpr Bound CASES[] = {{0, 1}, {1, 1}, {3, 3}, {5, 5}, {1000, 5}};
    for (const Bound& One : CASES) {
        Asked.Settings.nWords = One.nWords;
        EXPECT_EQ(Asked.Complete(L"x", false, L"d", {}).size(), One.nExpected) << One.nWords;
    }
}

TEST_F(PredictorRanking, Probabilities_AreSharesOfTheBeginning) {
    const std::vector<Offer> Offers = Asked.Complete(L"x", false, L"d", {});
    double dSum = 0;
    for (size_t n = 0; n < Offers.size(); ++n) {
        EXPECT_LE(Offers[n].dProbability, n == 0 ? 1 : Offers[n - 1].dProbability);
        dSum += Offers[n].dProbability;
    }
    EXPECT_NEAR(Offers[0].dProbability, 0.15 / 0.38, 1e-3);
    EXPECT_NEAR(dSum, 1, 1e-3);
}

TEST_F(PredictorRanking, UntypeableLetters_AreNotOffered) {
    Asked.Settings.strUntypeable = L"ýň";
    EXPECT_EQ(After(L"x", L"dob"), L";dobře");
    EXPECT_EQ(After(L"x", L"pís"), L"");
}

TEST_F(PredictorRanking, OwnWords_ComeUpWithUse) {
    EXPECT_EQ(After(L"x", L"tav"), L"");
    Asked.Own.Note(L"", L"Taviro", NO_WORD);
    EXPECT_EQ(After(L"x", L"tav"), L";Taviro");
    EXPECT_EQ(After(L"x", NUL + L"av"), L";Taviro");
    EXPECT_EQ(After(L"x", L"ta" + NUL + L"i"), L";Taviro");
    EXPECT_EQ(After(L"x", L"ta" + NUL + L"o"), L"");
    Asked.Own.Note(L"", L"žížala", NO_WORD);
    EXPECT_EQ(After(L"x", L"ziz"), L";žížala");
    for (int n = 0; n < 50; ++n) {
        Asked.NoteWritten(L"", L"auto");
        Asked.NoteWritten(L"auto", L"dobře");
    }
    EXPECT_TRUE(After(L"auto", L"d").starts_with(L";dobře"));
    EXPECT_TRUE(After(L"auto", L"").starts_with(L";dobře"));
    EXPECT_EQ(After(L"auto", NUL + L"es").find(L"obře"), std::wstring::npos);
}

TEST_F(PredictorRanking, OwnWordsReadFromAFile_AreThoseOfTheDictionary) {
    Asked.NoteWritten(L"", L"auto");
    std::string strError;
    Learned Back;
    ASSERT_TRUE(Back.Read(Asked.Own.Write(), strError));
    Asked.Own = Back;
    Asked.Own.Link(Asked.Words);
    EXPECT_EQ(After(L"x", L"aut"), L";auto");
}

// The likeliest follower comes first wherever it stands in the alphabet.
class PredictorFollowers : public PredictorTest {
  protected:
    PredictorFollowers()
        : PredictorTest({{L"ba", 0.1}, {L"be", 0.1}, {L"bi", 0.1}, {L"bo", 0.1}, {L"bu", 0.1}},
                        {{L"ba", L"ba", 500},
                         {L"ba", L"be", 100},
                         {L"ba", L"bi", 100},
                         {L"ba", L"bo", 900},
                         {L"ba", L"bu", 200}}) {}
};

TEST_F(PredictorFollowers, LikeliestComesFirst) {
    for (const size_t nWords : {1u, 2u}) {
        Asked.Settings.nWords = nWords;
        EXPECT_TRUE(Joined(Asked.Complete(L"ba", false, L"b", {})).starts_with(L";bo")) << nWords;
    }
}

}  // namespace
}  // namespace taviro::predictor
