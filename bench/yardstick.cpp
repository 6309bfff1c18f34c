// SPDX-License-Identifier: MIT
#include "bench/yardstick.h"

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace taviro::bench {

namespace {

constexpr size_t WORDS = 100000;
constexpr size_t LOOKUPS = 20000;
constexpr int ROUNDS = 7;

std::wstring MadeUpWord(std::mt19937& Random) {
    std::wstring strWord;
    for (size_t nLength = 4 + Random() % 8; strWord.size() < nLength;)
        strWord += static_cast<wchar_t>(L'a' + Random() % 26);
    return strWord;
}

}  // namespace

double ThreadMicroseconds() {
    timespec Used{};
    if (clock_gettime(CLOCK_THREAD_CPUTIME_ID, &Used) != 0) return 0;
    return static_cast<double>(Used.tv_sec) * 1e6 + static_cast<double>(Used.tv_nsec) / 1e3;
}

double Yardstick() {
    std::mt19937 Random(11);
    std::vector<std::wstring> Words;
    for (size_t n = 0; n < WORDS; ++n)
        Words.push_back(MadeUpWord(Random));
    std::sort(Words.begin(), Words.end());
    std::vector<std::wstring> Sought;
    for (size_t n = 0; n < LOOKUPS; ++n)
        Sought.push_back(MadeUpWord(Random));

    double dLeast = std::numeric_limits<double>::max();
    ptrdiff_t nSum = 0;
    for (int nRound = 0; nRound < ROUNDS; ++nRound) {
        const double dStart = ThreadMicroseconds();
        for (const std::wstring& strWord : Sought)
            nSum += std::lower_bound(Words.begin(), Words.end(), strWord) - Words.begin();
        dLeast = std::min(dLeast, ThreadMicroseconds() - dStart);
    }
    return nSum == 0 ? 0 : dLeast / static_cast<double>(LOOKUPS);
}

}  // namespace taviro::bench
