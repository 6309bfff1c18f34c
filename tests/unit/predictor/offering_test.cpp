// SPDX-License-Identifier: MIT
#include "predictor/offering.h"

#include "predictor/letters.h"
#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro::predictor {
namespace {

TEST(PredictorOffering, ListText_IsAnEmptySegmentAndTheWords) {
    EXPECT_EQ(ListText({}, true), L"");
    EXPECT_EQ(ListText({{L"se", 0.5}, {L"si", 0.2}}, false), L";se;si");
    EXPECT_EQ(ListText({{L"se", 0.5}, {L"si", 0.2}}, true), L";se ;si ");
}

TEST(PredictorOffering, WordThatWouldBreakTheList_IsLeftOut) {
    for (const wchar_t* szWord : {L"a;b", L"a,b", L"a(b)", L"a*", L"", L" ", L"+a", L"~", L"{F1}"})
        EXPECT_EQ(ListText({{szWord, 0.5}, {L"si", 0.2}}, false), L";si");
}

TEST(PredictorOffering, Gain_WeighsLettersAgainstAnswers) {
    const CostModel Costs{.dTake = 0.2, .dStep = 0.1, .dDismiss = 0.3, .dBlank = 1};
    EXPECT_NEAR(ExpectedGain({}, 1, Costs), -0.3, 1e-9);
    EXPECT_NEAR(ExpectedGain({{L"slovo", 1}}, 2, Costs), 3 + 1 - 0.2, 1e-9);
    EXPECT_NEAR(ExpectedGain({{L"slovo", 0.5}, {L"slona", 0.25}}, 2, Costs),
                0.5 * 3.8 + 0.25 * 3.7 - 0.25 * 0.3, 1e-9);
}

// With a stick on the delivered map a letter takes 0.8 s, a step in the list and a press 0.2 s
// each.
TEST(PredictorOffering, UsualCosts_AreThoseOfTheStick) {
    EXPECT_NEAR(ExpectedGain({}, 1, {}), -0.2 / 0.8, 1e-9);
    EXPECT_NEAR(ExpectedGain({{L"slovo", 1}}, 2, {}), 3 + 0.9 - 0.2 / 0.8, 1e-9);
    EXPECT_NEAR(ExpectedGain({{L"slovo", 0}, {L"slona", 1}}, 2, {}), 3 + 0.9 - 0.4 / 0.8, 1e-9);
}

class PredictorOffers : public PredictorTest {
  protected:
    PredictorOffers() : PredictorTest(Words(), {}) {
        Asked.Settings.bAlways = false;
        Asked.Settings.Costs.dLeastGain = 0;
    }

  private:
    // One likely word behind "a", and hundreds of unlikely ones behind "b".
    static std::vector<TestWord> Words() {
        static const std::vector<std::wstring> Texts = [] {
            std::vector<std::wstring> Made;
            for (wchar_t n = L'a'; n <= L'z'; ++n) {
                for (wchar_t nNext = L'a'; nNext <= L'z'; ++nNext)
                    Made.push_back({L'b', n, nNext});
            }
            return Made;
        }();
        std::vector<TestWord> Made{{L"automobil", 0.3}};
        for (const std::wstring& strText : Texts)
            Made.push_back({strText.c_str(), 0.001});
        return Made;
    }
};

TEST_F(PredictorOffers, List_ComesOnlyWhenItPays) {
    EXPECT_EQ(List(L"a"), L";automobil");
    EXPECT_EQ(List(L"b"), L"");
    Asked.Settings.Costs.dDismiss = 0;
    EXPECT_NE(List(L"b"), L"");
    Asked.Settings.Costs.dLeastGain = 100;
    EXPECT_EQ(List(L"a"), L"");
}

TEST_F(PredictorOffers, WordsOfAListThatDidNotCome_AreNotPassed) {
    EXPECT_EQ(List(L"b"), L"");
    Asked.Settings.Costs.dDismiss = 0;
    EXPECT_TRUE(List(L"ba").starts_with(L";baa"));
}

}  // namespace
}  // namespace taviro::predictor
