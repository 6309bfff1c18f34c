// SPDX-License-Identifier: MIT
// Makes the compiled dictionary from tables of words and word pairs. Used by the compiler, by
// tests and by benchmarks; the predictor itself only reads.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace taviro::predictor {

/// A word with its capitals and log10 of its probability.
struct WordEntry {
    std::wstring strWord;
    double dLogProbability;
};

/// How often one word follows another. The first may be "<s>", the start of a sentence, or "<,>",
/// after a comma.
struct PairEntry {
    std::wstring strFirst;
    std::wstring strSecond;
    double dCount;
};

struct Tables {
    std::vector<WordEntry> Words;
    std::vector<PairEntry> Pairs;
};

/// Adds a table's lines to the tables: UTF-8, fields separated by tabs, notes after "#". Two fields
/// are a word, three a pair. Returns false with the line's number when one is neither.
[[nodiscard]] bool ReadTable(std::string_view strText, Tables& Read, std::string& strError);

/// The bytes of the compiled dictionary. Words that are no words (see IsOfferable) or occur twice,
/// and pairs of words that are not in it, are left out. Empty with a sentence when there are too
/// many.
[[nodiscard]] std::string BuildModel(const Tables& From, std::string& strError);

}  // namespace taviro::predictor
