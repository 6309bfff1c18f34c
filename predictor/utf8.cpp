// SPDX-License-Identifier: MIT
#include "predictor/utf8.h"

#include <cstdint>

namespace taviro::predictor {

namespace {

constexpr uint32_t REPLACEMENT = 0xFFFD;
constexpr uint32_t END_OF_PLANE = 0x10000;
constexpr uint32_t FIRST_OF_LENGTH[] = {0, 0, 0x80, 0x800, END_OF_PLANE};

// Length of the sequence that a byte begins, 0 when it begins none.
size_t SequenceLength(uint8_t nLead) {
    if (nLead < 0x80) return 1;
    if (nLead < 0xC2) return 0;
    if (nLead < 0xE0) return 2;
    if (nLead < 0xF0) return 3;
    return nLead < 0xF5 ? 4 : 0;
}

// Takes one character off the front.
uint32_t TakeCharacter(std::string_view& Bytes) {
    const auto nLead = static_cast<uint8_t>(Bytes.front());
    const size_t nLength = SequenceLength(nLead);
    uint32_t nCharacter = nLength == 1 ? nLead : nLead & (0x7FU >> nLength);
    size_t n = 1;
    for (; n < nLength && n < Bytes.size(); ++n) {
        const auto nNext = static_cast<uint8_t>(Bytes[n]);
        if ((nNext & 0xC0U) != 0x80) break;
        nCharacter = nCharacter << 6 | (nNext & 0x3FU);
    }
    Bytes.remove_prefix(n);
    const bool bWhole = n == nLength && nCharacter >= FIRST_OF_LENGTH[nLength];
    return bWhole && nCharacter < END_OF_PLANE ? nCharacter : REPLACEMENT;
}

}  // namespace

std::wstring FromUtf8(std::string_view Bytes) {
    std::wstring strText;
    while (!Bytes.empty())
        strText += static_cast<wchar_t>(TakeCharacter(Bytes));
    return strText;
}

std::string ToUtf8(std::wstring_view strText) {
    std::string Bytes;
    for (const wchar_t nElement : strText) {
        const auto nCharacter = static_cast<uint32_t>(nElement) % END_OF_PLANE;
        if (nCharacter < 0x80) {
            Bytes += static_cast<char>(nCharacter);
            continue;
        }
        if (nCharacter < 0x800) {
            Bytes += static_cast<char>(0xC0 | nCharacter >> 6);
        } else {
            Bytes += static_cast<char>(0xE0 | nCharacter >> 12);
            Bytes += static_cast<char>(0x80 | (nCharacter >> 6 & 0x3F));
        }
        Bytes += static_cast<char>(0x80 | (nCharacter & 0x3F));
    }
    return Bytes;
}

}  // namespace taviro::predictor
