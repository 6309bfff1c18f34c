// SPDX-License-Identifier: MIT
#include "predictor/model.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "predictor/letters.h"

namespace taviro::predictor {

namespace {

constexpr size_t SHORT_SIZE = 2;
constexpr size_t LONG_SIZE = 4;
constexpr size_t CONTEXT_FIELDS = 3;

uint32_t ByteAt(std::string_view Bytes, size_t nOffset) {
    return static_cast<uint8_t>(Bytes[nOffset]);
}

bool Fits(std::string_view Bytes, size_t nOffset, size_t nSize) {
    return nOffset <= Bytes.size() && Bytes.size() - nOffset >= nSize;
}

// Numbers outside the bytes are 0.
uint32_t ShortAt(std::string_view Bytes, size_t nOffset) {
    if (!Fits(Bytes, nOffset, SHORT_SIZE)) return 0;
    return ByteAt(Bytes, nOffset) | ByteAt(Bytes, nOffset + 1) << 8;
}

uint32_t LongAt(std::string_view Bytes, size_t nOffset) {
    if (!Fits(Bytes, nOffset, LONG_SIZE)) return 0;
    return ShortAt(Bytes, nOffset) | ShortAt(Bytes, nOffset + SHORT_SIZE) << 16;
}

// What the bytes of a weight and the byte of a count stand for: sums over many words need it fast.
struct PowerTables {
    std::array<double, 256> High{};
    std::array<double, 256> Low{};
    std::array<double, 256> Counts{};
    PowerTables() {
        for (size_t n = 0; n < High.size(); ++n) {
            const auto dIndex = static_cast<double>(n);
            High[n] = std::pow(10.0, dIndex * 256 / WEIGHT_SCALE - WEIGHT_OFFSET);
            Low[n] = std::pow(10.0, dIndex / WEIGHT_SCALE);
            Counts[n] = std::exp2(dIndex / COUNT_SCALE);
        }
    }
};
const PowerTables POWERS;

double ProbabilityOf(uint16_t nWeight) {
    return POWERS.High[nWeight >> 8] * POWERS.Low[nWeight & 0xFF];
}

}  // namespace

uint32_t Checksum(std::string_view Bytes) {
    constexpr uint32_t MODULUS = 65521;
    constexpr size_t RUN = 5000;  // so many sums fit into 32 bits
    uint32_t nLow = 1;
    uint32_t nHigh = 0;
    while (!Bytes.empty()) {
        const std::string_view Part = Bytes.substr(0, RUN);
        for (const char n : Part) {
            nLow += static_cast<uint8_t>(n);
            nHigh += nLow;
        }
        nLow %= MODULUS;
        nHigh %= MODULUS;
        Bytes.remove_prefix(Part.size());
    }
    return nHigh << 16 | nLow;
}

// A place in the text, and the word that was read there.
struct Model::Entry {
    size_t nOffset = 0;
    std::string strCodes;
    Capitals nCapitals = Capitals::None;
    uint32_t nMask = 0;
};

bool Model::Open(std::string_view Bytes, std::string& strError) {
    *this = Model{};
    m_Bytes = Bytes;
    if (ReadHeader(strError) && PlaceSections(strError)) return true;
    *this = Model{};
    return false;
}

bool Model::ReadHeader(std::string& strError) {
    if (m_Bytes.size() < HEADER_END) {
        strError = "The dictionary file is too short.";
    } else if (!m_Bytes.starts_with(MODEL_MAGIC)) {
        strError = "The dictionary file is of another kind or version.";
    } else if (LongAt(m_Bytes, HEADER_SIZE_OF_FILE) != m_Bytes.size()) {
        strError = "The dictionary file is cut off or has been added to.";
    } else if (LongAt(m_Bytes, HEADER_CHECKSUM) != Checksum(m_Bytes.substr(HEADER_WORDS))) {
        strError = "The dictionary file is damaged.";
    } else {
        m_nWords = LongAt(m_Bytes, HEADER_WORDS);
        m_nLetters = LongAt(m_Bytes, HEADER_LETTERS);
        m_nContexts = LongAt(m_Bytes, HEADER_CONTEXTS);
        if (m_nWords <= MOST_WORDS && m_nLetters <= MOST_LETTERS && m_nContexts <= MOST_WORDS) {
            return true;
        }
        strError = "The dictionary file holds impossible numbers.";
    }
    return false;
}

bool Model::PlaceSections(std::string& strError) {
    size_t nEnd = HEADER_END;
    const auto Take = [&nEnd](size_t nCount, size_t nSize) {
        const Section Taken{nEnd, nCount};
        nEnd += nCount * nSize;
        return Taken;
    };
    const Section Alphabet = Take(m_nLetters, SHORT_SIZE);
    for (uint32_t nCount = m_nWords; nCount > 0; nCount = (nCount + BLOCK - 1) / BLOCK) {
        m_Levels.push_back(Take(nCount, SHORT_SIZE));
        if (nCount == 1) break;
    }
    const size_t nBlocks = (m_nWords + BLOCK - 1) / BLOCK;
    m_Masses = Take(nBlocks + 1, LONG_SIZE);
    m_Offsets = Take(nBlocks, LONG_SIZE);
    m_Contexts = Take((m_nContexts + size_t{1}) * CONTEXT_FIELDS, LONG_SIZE);
    m_Followers = Take(std::min(LongAt(m_Bytes, HEADER_FOLLOWERS), MOST_WORDS * BLOCK), LONG_SIZE);
    m_Text = Take(std::min<size_t>(LongAt(m_Bytes, HEADER_TEXT), m_Bytes.size()), 1);
    if (nEnd != m_Bytes.size()) {
        strError = "The parts of the dictionary file do not fit together.";
        return false;
    }
    for (size_t n = 0; n < m_nLetters; ++n) {
        const auto nLetter =
            static_cast<wchar_t>(ShortAt(m_Bytes, Alphabet.nOffset + n * SHORT_SIZE));
        if (!IsLetter(nLetter) || IsCapital(nLetter)) {
            strError = "The dictionary file holds letters that are none.";
            return false;
        }
        m_strLetters += nLetter;
    }
    return true;
}

uint32_t Model::Number(const Section& Place, size_t nIndex) const {
    return LongAt(m_Bytes, Place.nOffset + nIndex * LONG_SIZE);
}

uint16_t Model::Maximum(uint32_t nLevel, uint32_t nIndex) const {
    if (nLevel >= m_Levels.size() || nIndex >= m_Levels[nLevel].nCount) return 0;
    return static_cast<uint16_t>(
        ShortAt(m_Bytes, m_Levels[nLevel].nOffset + size_t{nIndex} * SHORT_SIZE));
}

uint16_t Model::Weight(WordId nWord) const {
    return Maximum(0, nWord);
}

double Model::Probability(WordId nWord) const {
    return nWord < m_nWords ? ProbabilityOf(Weight(nWord)) : 0;
}

double Model::Mass(WordRange Range) const {
    Range.nEnd = std::min(Range.nEnd, m_nWords);
    if (Range.IsEmpty()) return 0;
    const uint32_t nFirstBlock = (Range.nFirst + BLOCK - 1) / BLOCK;
    const uint32_t nEndBlock = Range.nEnd / BLOCK;
    double dMass = 0;
    const auto AddWords = [&](WordId nFrom, WordId nTo) {
        for (WordId n = nFrom; n < nTo; ++n)
            dMass += Probability(n);
    };
    if (nFirstBlock > nEndBlock) {
        AddWords(Range.nFirst, Range.nEnd);
        return dMass;
    }
    AddWords(Range.nFirst, nFirstBlock * BLOCK);
    AddWords(nEndBlock * BLOCK, Range.nEnd);
    const uint32_t nUnits = Number(m_Masses, nEndBlock) - Number(m_Masses, nFirstBlock);
    return dMass + nUnits / MASS_SCALE;
}

wchar_t Model::Letter(uint8_t nCode) const {
    return nCode >= 1 && nCode <= m_strLetters.size() ? m_strLetters[nCode - size_t{1}] : L'\0';
}

bool Model::Encode(std::wstring_view strLower, std::string& strCodes) const {
    strCodes.clear();
    for (const wchar_t nLetter : strLower) {
        const auto nIndex = m_strLetters.find(nLetter);
        if (nIndex == std::wstring::npos) return false;
        strCodes += static_cast<char>(nIndex + 1);
    }
    return true;
}

// The first word of a block, which shares nothing.
std::string_view Model::FirstCodes(uint32_t nBlock) const {
    const size_t nOffset = m_Text.nOffset + Number(m_Offsets, nBlock);
    if (!Fits(m_Bytes, nOffset, 2)) return {};
    return m_Bytes.substr(nOffset + 2, ByteAt(m_Bytes, nOffset + 1));
}

bool Model::NextEntry(Entry& Current) const {
    if (!Fits(m_Bytes, Current.nOffset, 2)) return false;
    const uint32_t nHead = ByteAt(m_Bytes, Current.nOffset);
    const size_t nLength = ByteAt(m_Bytes, Current.nOffset + 1);
    Current.nOffset += 2;
    Current.nCapitals = static_cast<Capitals>(nHead >> CAPITALS_SHIFT & 3U);
    Current.strCodes.resize(std::min<size_t>(nHead & SHARED_MASK, Current.strCodes.size()));
    const std::string_view Rest = m_Bytes.substr(Current.nOffset, nLength);
    if (Rest.size() < nLength || Current.strCodes.size() + nLength > LONGEST_WORD) return false;
    Current.strCodes += Rest;
    Current.nOffset += nLength;
    if (Current.nCapitals == Capitals::Masked) {
        Current.nMask = LongAt(m_Bytes, Current.nOffset);
        Current.nOffset += LONG_SIZE;
    }
    return true;
}

bool Model::ReadEntry(WordId nWord, Entry& Found) const {
    if (nWord >= m_nWords) return false;
    Found.nOffset = m_Text.nOffset + Number(m_Offsets, nWord / BLOCK);
    for (uint32_t n = 0; n <= nWord % BLOCK; ++n) {
        if (!NextEntry(Found)) return false;
    }
    return true;
}

std::string Model::Codes(WordId nWord) const {
    Entry Found;
    return ReadEntry(nWord, Found) ? Found.strCodes : std::string{};
}

std::wstring Model::Word(WordId nWord) const {
    Entry Found;
    if (!ReadEntry(nWord, Found)) return {};
    std::wstring strWord;
    for (size_t n = 0; n < Found.strCodes.size(); ++n) {
        const wchar_t nLetter = Letter(static_cast<uint8_t>(Found.strCodes[n]));
        if (nLetter == 0) return {};
        const bool bCapital = Found.nCapitals == Capitals::All ||
                              (Found.nCapitals == Capitals::First && n == 0) ||
                              (Found.nCapitals == Capitals::Masked && (Found.nMask >> n & 1U) != 0);
        strWord += bCapital ? UpperLetter(nLetter) : nLetter;
    }
    return strWord;
}

// First word of the range that is not before the codes; the range's end when there is none.
WordId Model::LowerBound(std::string_view strCodes, WordRange Range) const {
    if (Range.IsEmpty()) return Range.nEnd;
    // The last block that begins before the codes may hold them.
    uint32_t nLow = Range.nFirst / BLOCK;
    uint32_t nHigh = (Range.nEnd - 1) / BLOCK;
    while (nLow < nHigh) {
        const uint32_t nMiddle = nLow + (nHigh - nLow + 1) / 2;
        if (FirstCodes(nMiddle) < strCodes) {
            nLow = nMiddle;
        } else {
            nHigh = nMiddle - 1;
        }
    }
    Entry Current;
    Current.nOffset = m_Text.nOffset + Number(m_Offsets, nLow);
    WordId nWord = nLow * BLOCK;
    for (const WordId nStop = std::min(Range.nEnd, nWord + BLOCK); nWord < nStop; ++nWord) {
        if (!NextEntry(Current) || Current.strCodes >= strCodes) break;
    }
    return std::clamp(nWord, Range.nFirst, Range.nEnd);
}

WordRange Model::Narrow(WordRange Range, std::string_view strCodes, uint8_t nNextCode) const {
    std::string strBound(strCodes);
    strBound += static_cast<char>(nNextCode);
    Range.nFirst = LowerBound(strBound, Range);
    strBound.back() = static_cast<char>(nNextCode + 1);
    Range.nEnd = LowerBound(strBound, Range);
    return Range;
}

WordId Model::Find(std::wstring_view strLower) const {
    std::string strCodes;
    if (strLower.empty() || !Encode(strLower, strCodes)) return NO_WORD;
    WordId nBest = NO_WORD;
    for (WordId n = LowerBound(strCodes, All()); Codes(n) == strCodes; ++n) {
        if (nBest == NO_WORD || Weight(n) > Weight(nBest)) nBest = n;
    }
    return nBest;
}

// The context's place in the table; the number of contexts when it has none.
uint32_t Model::FindContext(uint32_t nContext) const {
    uint32_t nLow = 0;
    uint32_t nHigh = m_nContexts;
    while (nLow < nHigh) {
        const uint32_t nMiddle = nLow + (nHigh - nLow) / 2;
        if (Number(m_Contexts, nMiddle * CONTEXT_FIELDS) < nContext) {
            nLow = nMiddle + 1;
        } else {
            nHigh = nMiddle;
        }
    }
    return Number(m_Contexts, nLow * CONTEXT_FIELDS) == nContext ? nLow : m_nContexts;
}

Model::ContextSize Model::SizeOfContext(uint32_t nContext) const {
    const size_t nIndex = FindContext(nContext);
    if (nIndex >= m_nContexts) return {};
    const uint32_t nFirst = Number(m_Contexts, nIndex * CONTEXT_FIELDS + 1);
    const uint32_t nTotal = Number(m_Contexts, nIndex * CONTEXT_FIELDS + 2);
    const uint32_t nEnd = Number(m_Contexts, (nIndex + 1) * CONTEXT_FIELDS + 1);
    if (nEnd <= nFirst) return {};
    return {static_cast<double>(nTotal), static_cast<double>(nEnd - nFirst)};
}

void Model::AppendFollowers(uint32_t nContext, WordRange Range,
                            std::vector<Follower>& Found) const {
    const uint32_t nIndex = FindContext(nContext);
    if (nIndex >= m_nContexts) return;
    const uint32_t nEnd = Number(m_Contexts, (nIndex + 1) * CONTEXT_FIELDS + 1);
    uint32_t nLow = Number(m_Contexts, nIndex * CONTEXT_FIELDS + 1);
    for (uint32_t nHigh = nEnd; nLow < nHigh;) {
        const uint32_t nMiddle = nLow + (nHigh - nLow) / 2;
        if ((Number(m_Followers, nMiddle) & WORD_MASK) < Range.nFirst) {
            nLow = nMiddle + 1;
        } else {
            nHigh = nMiddle;
        }
    }
    const auto nStop = static_cast<uint32_t>(std::min<size_t>(nEnd, m_Followers.nCount));
    for (; nLow < nStop; ++nLow) {
        const uint32_t nPacked = Number(m_Followers, nLow);
        if ((nPacked & WORD_MASK) >= Range.nEnd) break;
        Found.push_back({nPacked & WORD_MASK, POWERS.Counts[nPacked >> WORD_BITS]});
    }
}

}  // namespace taviro::predictor
