// SPDX-License-Identifier: MIT
// The layout of a compiled dictionary, shared by its writer and its reader. All numbers are little
// endian; sections follow each other in this order without gaps:
//
//   header         see the HEADER_ constants
//   alphabet       16-bit code points of the small letters in sorting order; letter codes are 1, 2…
//   weights        16-bit weight of every word: 1000 × (log10 of the probability + 20)
//   maxima         16-bit: the highest weight of each 16 words, of each 16 of those, … down to one
//   masses         32-bit: the probability of all words before each block, in units of 2^-31
//   offsets        32-bit: where each block's text begins
//   contexts       3 × 32 bits: word, where its followers begin, how often it stood before any;
//                  sorted by word, and one more entry at the end
//   followers      32 bits: the word below, 12 × log2 of the count in the highest byte; sorted by
//                  word within a context
//   text           blocks of 16 words sorted by their small letters: a byte with the length shared
//                  with the word before and the kind of capitals, a byte with the length of the
//                  rest, the rest, and a 32-bit mask for capitals of no kind
#pragma once

#include <cstdint>
#include <string_view>

namespace taviro::predictor {

inline constexpr std::string_view MODEL_MAGIC = "TVDICT1\n";

// Offsets in the header. The checksum covers everything behind it.
inline constexpr size_t HEADER_SIZE_OF_FILE = 8;
inline constexpr size_t HEADER_CHECKSUM = 12;
inline constexpr size_t HEADER_WORDS = 16;
inline constexpr size_t HEADER_LETTERS = 20;
inline constexpr size_t HEADER_CONTEXTS = 24;
inline constexpr size_t HEADER_FOLLOWERS = 28;
inline constexpr size_t HEADER_TEXT = 32;  // bytes of text
inline constexpr size_t HEADER_END = 36;

inline constexpr uint32_t BLOCK = 16;  // words in a block, and the fan-out of the maxima
inline constexpr uint32_t MOST_WORDS = 1U << 23;
inline constexpr uint32_t MOST_LETTERS = 250;
inline constexpr uint32_t WORD_BITS = 24;  // of a follower; the count has the rest
inline constexpr uint32_t WORD_MASK = (1U << WORD_BITS) - 1;
inline constexpr double WEIGHT_SCALE = 1000;
inline constexpr double WEIGHT_OFFSET = 20;
inline constexpr double MASS_SCALE = 2147483648.0;
inline constexpr double COUNT_SCALE = 12;

/// Contexts that are no words.
inline constexpr uint32_t SENTENCE_START = 0xFFFFFF01;
inline constexpr uint32_t AFTER_COMMA = 0xFFFFFF02;
inline constexpr uint32_t NO_WORD = 0xFFFFFFFF;

/// Which letters of a word are capitals.
enum class Capitals : uint8_t { None, First, All, Masked };
inline constexpr uint32_t SHARED_MASK = 31;
inline constexpr uint32_t CAPITALS_SHIFT = 5;

/// Adler's sum: damage is found in about a millisecond a file.
[[nodiscard]] uint32_t Checksum(std::string_view Bytes);

}  // namespace taviro::predictor
