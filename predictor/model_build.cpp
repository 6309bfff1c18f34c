// SPDX-License-Identifier: MIT
#include "predictor/model_build.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

#include "predictor/letters.h"
#include "predictor/model_format.h"
#include "predictor/utf8.h"

namespace taviro::predictor {

namespace {

struct Sorted {
    std::string strCodes;
    Capitals nCapitals;
    uint32_t nMask;
    uint16_t nWeight;
};

struct Parts {
    std::wstring strLetters;
    std::vector<Sorted> Words;
    std::vector<std::vector<uint16_t>> Levels;
    std::map<uint32_t, std::map<uint32_t, double>> Contexts;
};

void PutShort(std::string& Bytes, uint32_t nNumber) {
    Bytes += static_cast<char>(nNumber);
    Bytes += static_cast<char>(nNumber >> 8);
}

void PutLong(std::string& Bytes, uint32_t nNumber) {
    PutShort(Bytes, nNumber);
    PutShort(Bytes, nNumber >> 16);
}

void PatchLong(std::string& Bytes, size_t nOffset, uint32_t nNumber) {
    std::string Number;
    PutLong(Number, nNumber);
    Bytes.replace(nOffset, Number.size(), Number);
}

uint16_t WeightOf(double dLogProbability) {
    const double dWeight = std::round((dLogProbability + WEIGHT_OFFSET) * WEIGHT_SCALE);
    return static_cast<uint16_t>(std::clamp(dWeight, 0.0, 65535.0));
}

double ProbabilityOf(uint16_t nWeight) {
    return std::pow(10.0, nWeight / WEIGHT_SCALE - WEIGHT_OFFSET);
}

// Which letters are capitals, the first in the lowest bit.
uint32_t CapitalsOf(std::wstring_view strWord) {
    uint32_t nMask = 0;
    for (size_t n = 0; n < strWord.size(); ++n)
        nMask |= IsCapital(strWord[n]) ? 1U << n : 0U;
    return nMask;
}

Capitals KindOf(uint32_t nMask, size_t nLetters) {
    const auto nAll = static_cast<uint32_t>((uint64_t{1} << nLetters) - 1);
    return nMask == 0      ? Capitals::None
           : nMask == 1    ? Capitals::First
           : nMask == nAll ? Capitals::All
                           : Capitals::Masked;
}

std::string CodesOf(std::wstring_view strWord, const std::wstring& strLetters) {
    std::string strCodes;
    for (const wchar_t nLetter : LowerText(strWord))
        strCodes += static_cast<char>(strLetters.find(nLetter) + 1);
    return strCodes;
}

void SortWords(const Tables& From, Parts& Made) {
    std::set<wchar_t> Letters;
    for (const WordEntry& Entry : From.Words) {
        if (!IsOfferable(Entry.strWord)) continue;
        const std::wstring strLower = LowerText(Entry.strWord);
        Letters.insert(strLower.begin(), strLower.end());
    }
    Made.strLetters.assign(Letters.begin(), Letters.end());
    for (const WordEntry& Entry : From.Words) {
        if (!IsOfferable(Entry.strWord)) continue;
        const uint32_t nMask = CapitalsOf(Entry.strWord);
        Made.Words.push_back({CodesOf(Entry.strWord, Made.strLetters),
                              KindOf(nMask, Entry.strWord.size()), nMask,
                              WeightOf(Entry.dLogProbability)});
    }
    const auto SameWord = [](const Sorted& A, const Sorted& B) {
        return A.strCodes == B.strCodes && A.nMask == B.nMask;
    };
    std::stable_sort(Made.Words.begin(), Made.Words.end(), [](const Sorted& A, const Sorted& B) {
        return A.strCodes != B.strCodes ? A.strCodes < B.strCodes : A.nMask < B.nMask;
    });
    Made.Words.erase(std::unique(Made.Words.begin(), Made.Words.end(), SameWord), Made.Words.end());
}

void FillLevels(Parts& Made) {
    std::vector<uint16_t> Level;
    for (const Sorted& Word : Made.Words)
        Level.push_back(Word.nWeight);
    while (!Level.empty()) {
        Made.Levels.push_back(Level);
        if (Level.size() == 1) break;
        std::vector<uint16_t> Next((Level.size() + BLOCK - 1) / BLOCK);
        for (size_t n = 0; n < Level.size(); ++n)
            Next[n / BLOCK] = std::max(Next[n / BLOCK], Level[n]);
        Level = std::move(Next);
    }
}

// The likeliest word of each spelling in small letters.
std::unordered_map<std::string, uint32_t> PlacesOf(const std::vector<Sorted>& Words) {
    std::unordered_map<std::string, uint32_t> Places;
    for (uint32_t n = 0; n < Words.size(); ++n) {
        const auto [it, bNew] = Places.try_emplace(Words[n].strCodes, n);
        if (!bNew && Words[n].nWeight > Words[it->second].nWeight) it->second = n;
    }
    return Places;
}

void FillContexts(const Tables& From, Parts& Made) {
    const auto Places = PlacesOf(Made.Words);
    const auto Place = [&](std::wstring_view strWord) {
        if (strWord == L"<s>") return SENTENCE_START;
        if (strWord == L"<,>") return AFTER_COMMA;
        const auto it = Places.find(CodesOf(strWord, Made.strLetters));
        return it == Places.end() ? NO_WORD : it->second;
    };
    for (const PairEntry& Pair : From.Pairs) {
        const uint32_t nFirst = Place(Pair.strFirst);
        const uint32_t nSecond = Place(Pair.strSecond);
        if (nFirst == NO_WORD || nSecond >= Made.Words.size() || Pair.dCount < 1) continue;
        Made.Contexts[nFirst][nSecond] += Pair.dCount;
    }
}

// The pairs come from books of another age than the words' frequencies. Where a word is commoner
// today than it was there, its pairs count more, and the other way round.
void ModernizePairs(Parts& Made) {
    constexpr double STRENGTH = 0.8;  // 0 leaves the counts, 1 makes up for the whole difference
    constexpr double MOST = 7;        // and never more than by this factor
    constexpr double UNIT = 8;        // keeps counts below 1 apart in their logarithm
    std::map<uint32_t, double> Totals;
    double dAll = 0;
    for (const auto& [nContext, Nexts] : Made.Contexts) {
        for (const auto& [nNext, dCount] : Nexts) {
            Totals[nNext] += dCount;
            dAll += dCount;
        }
    }
    for (auto& [nContext, Nexts] : Made.Contexts) {
        for (auto& [nNext, dCount] : Nexts) {
            const double dToday = ProbabilityOf(Made.Words[nNext].nWeight);
            const double dRatio = std::pow(dToday * dAll / Totals[nNext], STRENGTH);
            dCount = std::max(dCount * UNIT * std::clamp(dRatio, 1 / MOST, MOST), 1.0);
        }
    }
}

void WriteMasses(std::string& Bytes, const Parts& Made) {
    double dMass = 0;
    for (size_t n = 0; n < Made.Words.size(); ++n) {
        if (n % BLOCK == 0) PutLong(Bytes, static_cast<uint32_t>(dMass * MASS_SCALE));
        dMass += ProbabilityOf(Made.Words[n].nWeight);
        dMass = std::min(dMass, 1.5);  // a table's rounding may pass 1, the number may not wrap
    }
    PutLong(Bytes, static_cast<uint32_t>(dMass * MASS_SCALE));
}

std::string TextOf(const std::vector<Sorted>& Words, std::vector<uint32_t>& Offsets) {
    std::string strText;
    for (size_t n = 0; n < Words.size(); ++n) {
        const std::string& strCodes = Words[n].strCodes;
        size_t nShared = 0;
        if (n % BLOCK == 0) {
            Offsets.push_back(static_cast<uint32_t>(strText.size()));
        } else {
            const std::string& strBefore = Words[n - 1].strCodes;
            const size_t nMost = std::min(strBefore.size(), strCodes.size());
            while (nShared < nMost && strBefore[nShared] == strCodes[nShared])
                ++nShared;
        }
        const auto nKind = static_cast<uint32_t>(Words[n].nCapitals);
        strText += static_cast<char>(static_cast<uint32_t>(nShared) | nKind << CAPITALS_SHIFT);
        strText += static_cast<char>(strCodes.size() - nShared);
        strText.append(strCodes, nShared);
        if (Words[n].nCapitals == Capitals::Masked) PutLong(strText, Words[n].nMask);
    }
    return strText;
}

// Returns how many followers were written.
uint32_t WriteContexts(std::string& Bytes, const Parts& Made) {
    std::vector<uint32_t> Followers;
    const auto Count = [&Followers] { return static_cast<uint32_t>(Followers.size()); };
    for (const auto& [nContext, Nexts] : Made.Contexts) {
        double dTotal = 0;
        PutLong(Bytes, nContext);
        PutLong(Bytes, Count());
        for (const auto& [nNext, dCount] : Nexts) {
            dTotal += dCount;
            const double dScaled = std::min(std::round(std::log2(dCount) * COUNT_SCALE), 255.0);
            Followers.push_back(nNext | static_cast<uint32_t>(dScaled) << WORD_BITS);
        }
        PutLong(Bytes, static_cast<uint32_t>(std::min(dTotal, 4e9)));
    }
    PutLong(Bytes, NO_WORD);
    PutLong(Bytes, Count());
    PutLong(Bytes, 0);
    for (const uint32_t nFollower : Followers)
        PutLong(Bytes, nFollower);
    return Count();
}

std::string Written(const Parts& Made) {
    std::string Bytes(MODEL_MAGIC);
    Bytes.resize(HEADER_END);
    for (const wchar_t nLetter : Made.strLetters)
        PutShort(Bytes, static_cast<uint32_t>(nLetter));
    for (const auto& Level : Made.Levels) {
        for (const uint16_t nWeight : Level)
            PutShort(Bytes, nWeight);
    }
    WriteMasses(Bytes, Made);
    std::vector<uint32_t> Offsets;
    const std::string strText = TextOf(Made.Words, Offsets);
    for (const uint32_t nOffset : Offsets)
        PutLong(Bytes, nOffset);
    PatchLong(Bytes, HEADER_FOLLOWERS, WriteContexts(Bytes, Made));
    Bytes += strText;
    const std::pair<size_t, size_t> SIZES[] = {{HEADER_SIZE_OF_FILE, Bytes.size()},
                                               {HEADER_WORDS, Made.Words.size()},
                                               {HEADER_LETTERS, Made.strLetters.size()},
                                               {HEADER_CONTEXTS, Made.Contexts.size()},
                                               {HEADER_TEXT, strText.size()}};
    for (const auto& [nOffset, nSize] : SIZES)
        PatchLong(Bytes, nOffset, static_cast<uint32_t>(nSize));
    PatchLong(Bytes, HEADER_CHECKSUM, Checksum(std::string_view(Bytes).substr(HEADER_WORDS)));
    return Bytes;
}

bool ReadNumber(std::string_view strField, double& dNumber) {
    const char* pEnd = strField.data() + strField.size();
    const auto Result = std::from_chars(strField.data(), pEnd, dNumber);
    return Result.ec == std::errc{} && Result.ptr == pEnd;
}

bool ReadLine(std::string_view strLine, Tables& Read) {
    const auto nTab = strLine.find('\t');
    const auto nLast = strLine.rfind('\t');
    double dNumber = 0;
    if (nTab == std::string_view::npos || !ReadNumber(strLine.substr(nLast + 1), dNumber)) {
        return false;
    }
    const std::wstring strFirst = FromUtf8(strLine.substr(0, nTab));
    if (nTab == nLast) {
        Read.Words.push_back({strFirst, dNumber});
    } else {
        const std::string_view strSecond = strLine.substr(nTab + 1, nLast - nTab - 1);
        Read.Pairs.push_back({strFirst, FromUtf8(strSecond), dNumber});
    }
    return true;
}

}  // namespace

bool ReadTable(std::string_view strText, Tables& Read, std::string& strError) {
    for (int nLine = 1; !strText.empty(); ++nLine) {
        std::string_view strLine = strText.substr(0, strText.find('\n'));
        strText.remove_prefix(std::min(strLine.size() + 1, strText.size()));
        if (strLine.ends_with('\r')) strLine.remove_suffix(1);
        if (strLine.empty() || strLine.front() == '#' || ReadLine(strLine, Read)) continue;
        strError = "line " + std::to_string(nLine) + ": neither a word nor a pair with its number";
        return false;
    }
    return true;
}

std::string BuildModel(const Tables& From, std::string& strError) {
    Parts Made;
    SortWords(From, Made);
    if (Made.Words.size() > MOST_WORDS) {
        strError = "too many words";
        return {};
    }
    FillLevels(Made);
    FillContexts(From, Made);
    ModernizePairs(Made);
    return Written(Made);
}

}  // namespace taviro::predictor
