// SPDX-License-Identifier: MIT
// What one letter waits for its words: the delivered dictionary, and one of a million made-up
// words. At a million words at most twice as much is promised. The counters show the median and
// what all but one of a hundred keep, in microseconds.
#include <algorithm>
#include <benchmark/benchmark.h>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "bench/budget.h"
#include "bench/yardstick.h"
#include "predictor/files.h"
#include "predictor/letters.h"
#include "predictor/model_build.h"
#include "predictor/predictor.h"

namespace taviro::predictor {
namespace {

constexpr size_t WORDS_TYPED = 400;
constexpr benchmark::IterationCount ROUNDS = 5;

// Words as they are typed: the frequent ones often.
std::vector<std::wstring> TypedWords(const Model& Words) {
    std::mt19937 Random(3);
    std::vector<std::wstring> Typed;
    std::uniform_real_distribution<double> Share(0, Words.Mass(Words.All()));
    while (Typed.size() < WORDS_TYPED) {
        const double dWanted = Share(Random);
        WordId nLow = 0;
        for (WordId nHigh = Words.WordCount() - 1; nLow < nHigh;) {
            const WordId nMiddle = nLow + (nHigh - nLow) / 2;
            if (Words.Mass({0, nMiddle + 1}) < dWanted) {
                nLow = nMiddle + 1;
            } else {
                nHigh = nMiddle;
            }
        }
        Typed.push_back(Words.Word(nLow));
    }
    return Typed;
}

// What each query costs at its least: what other programs take in between does not count.
void TypeWords(benchmark::State& State, Predictor& Asked) {
    std::vector<std::wstring> Queries;
    for (const std::wstring& strWord : TypedWords(Asked.Words)) {
        for (size_t n = 1; n <= strWord.size(); ++n)
            Queries.push_back(strWord.substr(0, n));
    }
    std::vector<double> Least(Queries.size(), std::numeric_limits<double>::max());
    for (auto _ : State) {
        for (size_t n = 0; n < Queries.size(); ++n) {
            const double dStart = bench::ThreadMicroseconds();
            benchmark::DoNotOptimize(Asked.GetPrediction(Queries[n]));
            Least[n] = std::min(Least[n], bench::ThreadMicroseconds() - dStart);
        }
    }
    std::sort(Least.begin(), Least.end());
    State.counters["median_us"] = Least[Least.size() / 2];
    State.counters["p99_us"] = Least[Least.size() * 99 / 100];
}

void Query_DeliveredDictionary(benchmark::State& State) {
    MappedFile File;
    Predictor Asked;
    std::string strError;
    if (!File.Open(TAVIRO_DICTIONARY, strError) || !Asked.Words.Open(File.Bytes(), strError)) {
        return State.SkipWithError(strError.c_str());
    }
    TypeWords(State, Asked);
}
BENCHMARK(Query_DeliveredDictionary)->Unit(benchmark::kMillisecond)->Iterations(ROUNDS);

// The same with a store of learned words that is nearly full.
void Query_WithLearnedWords(benchmark::State& State) {
    MappedFile File;
    Predictor Asked;
    std::string strError;
    if (!File.Open(TAVIRO_DICTIONARY, strError) || !Asked.Words.Open(File.Bytes(), strError)) {
        return State.SkipWithError(strError.c_str());
    }
    std::mt19937 Random(5);
    std::wstring strBefore;
    for (int n = 0; n < 10000; ++n) {
        const std::wstring strWord =
            Asked.Words.Word(static_cast<WordId>(Random() % Asked.Words.WordCount()));
        Asked.NoteWritten(strBefore, strWord);
        strBefore = strWord;
    }
    TypeWords(State, Asked);
}
BENCHMARK(Query_WithLearnedWords)->Unit(benchmark::kMillisecond)->Iterations(ROUNDS);

std::string MillionWords() {
    constexpr size_t COUNT = 1000000;
    std::mt19937 Random(9);
    const std::wstring strLetters = L"aeioáéíěuykrltnsvpmdzčšřžhjbc";
    std::set<std::wstring> Made;
    while (Made.size() < COUNT) {
        std::wstring strWord;
        for (size_t nLength = 3 + Random() % 9; strWord.size() < nLength;) {
            const size_t nSkewed =
                std::min(Random() % strLetters.size(), Random() % strLetters.size());
            strWord += strLetters[nSkewed];
        }
        Made.insert(strWord);
    }
    Tables From;
    for (const std::wstring& strWord : Made)
        From.Words.push_back({strWord, -3 - static_cast<double>(Random() % 6000) / 1000});
    std::string strError;
    return BuildModel(From, strError);
}

void Query_MillionWords(benchmark::State& State) {
    const std::string Bytes = MillionWords();
    Predictor Asked;
    std::string strError;
    if (!Asked.Words.Open(Bytes, strError)) return State.SkipWithError(strError.c_str());
    TypeWords(State, Asked);
}
BENCHMARK(Query_MillionWords)->Unit(benchmark::kMillisecond)->Iterations(ROUNDS);

// With the checksum over the whole file.
void Load_DeliveredDictionary(benchmark::State& State) {
    std::string strError;
    for (auto _ : State) {
        MappedFile File;
        Model Words;
        if (!File.Open(TAVIRO_DICTIONARY, strError) || !Words.Open(File.Bytes(), strError)) {
            return State.SkipWithError(strError.c_str());
        }
        benchmark::DoNotOptimize(Words.WordCount());
    }
}
BENCHMARK(Load_DeliveredDictionary)->Unit(benchmark::kMicrosecond);

// A store that is full holds a thousand words of a letter, and all of them are weighed.
const bench::BudgetTable Promised{
    {.strCase = "Query_DeliveredDictionary", .dYardsticks = 45, .strCounter = "median_us"},
    {.strCase = "Query_DeliveredDictionary", .dYardsticks = 225, .strCounter = "p99_us"},
    {.strCase = "Query_WithLearnedWords", .dYardsticks = 45, .strCounter = "median_us"},
    {.strCase = "Query_WithLearnedWords", .dYardsticks = 675, .strCounter = "p99_us"},
    {.strCase = "Query_MillionWords", .dYardsticks = 90, .strCounter = "median_us"},
    {.strCase = "Query_MillionWords", .dYardsticks = 450, .strCounter = "p99_us"},
    {.strCase = "Load_DeliveredDictionary", .dYardsticks = 11500},
};

}  // namespace
}  // namespace taviro::predictor
