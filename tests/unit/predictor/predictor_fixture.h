// SPDX-License-Identifier: MIT
// A small dictionary for the tests of the predictor.
#pragma once

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "predictor/model_build.h"
#include "predictor/predictor.h"

namespace taviro::predictor {

/// A dictionary of words with probabilities, and of pairs with counts.
struct TestWord {
    const wchar_t* szWord;
    double dProbability;
};
struct TestPair {
    const wchar_t* szFirst;
    const wchar_t* szSecond;
    double dCount;
};

inline std::string CompiledModel(const std::vector<TestWord>& Words,
                                 const std::vector<TestPair>& Pairs = {}) {
    Tables From;
    for (const TestWord& Word : Words)
        From.Words.push_back({Word.szWord, std::log10(Word.dProbability)});
    for (const TestPair& Pair : Pairs)
        From.Pairs.push_back({Pair.szFirst, Pair.szSecond, Pair.dCount});
    std::string strError;
    std::string Bytes = BuildModel(From, strError);
    EXPECT_EQ(strError, "");
    return Bytes;
}

inline const std::vector<TestWord> EVERYDAY_WORDS{
    {L"dobrý", 0.08},  {L"dobře", 0.06},  {L"den", 0.05},    {L"do", 0.15},      {L"děkuji", 0.04},
    {L"Praha", 0.02},  {L"prádlo", 0.01}, {L"pravda", 0.03}, {L"prosím", 0.05},  {L"píseň", 0.005},
    {L"se", 0.2},      {L"sestra", 0.01}, {L"šest", 0.02},   {L"KitKat", 0.001}, {L"kit", 0.002},
    {L"čekám", 0.004}, {L"cesta", 0.02},  {L"a", 0.1},       {L"auto", 0.03}};

class PredictorTest : public ::testing::Test {
  protected:
    explicit PredictorTest(const std::vector<TestWord>& Words = EVERYDAY_WORDS,
                           const std::vector<TestPair>& Pairs = {{L"dobrý", L"den", 900},
                                                                 {L"<s>", L"děkuji", 500},
                                                                 {L"<s>", L"den", 100},
                                                                 {L"den", L"se", 300}})
        : m_Bytes(CompiledModel(Words, Pairs)) {
        std::string strError;
        EXPECT_TRUE(Asked.Words.Open(m_Bytes, strError)) << strError;
        Asked.Settings.bAlways = true;
        Asked.Settings.bBlanks = false;
    }

    std::wstring List(const std::wstring& strPrefix) {
        return Asked.GetPrediction(strPrefix).strList;
    }
    /// All beginnings of a word, as a user types it who takes nothing from lists.
    void Type(const std::wstring& strWord) {
        for (size_t n = 1; n <= strWord.size(); ++n)
            (void)List(strWord.substr(0, n));
    }

  private:
    std::string m_Bytes;

  protected:
    Predictor Asked;
};

inline std::wstring Joined(const std::vector<Offer>& Offers) {
    return ListText(Offers, false);
}

}  // namespace taviro::predictor
