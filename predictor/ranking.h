// SPDX-License-Identifier: MIT
// How likely each word is to be the one that the user has begun: the words' frequencies, what
// followed the previous word in books, and what the user wrote before, each trusted as far as it
// has seen enough.
#pragma once

#include <string>
#include <vector>

#include "predictor/learned.h"
#include "predictor/model.h"
#include "predictor/search.h"

namespace taviro::predictor {

/// Chosen on a text of everyday sentences. Trusts are shares of the whole; the others are the
/// number of observations at which half of the trust is reached.
struct RankingConstants {
    double dPairTrust = 0.8;      ///< in the books' pairs
    double dPairHalf = 20;        ///< sightings of the previous word for each word seen after it
    double dOwnTrust = 0.65;      ///< in the user's own words
    double dOwnHalf = 1000;       ///< words learned
    double dOwnPairTrust = 0.5;   ///< in the user's own pairs
    double dOwnPairHalf = 6;      ///< times that the user wrote the previous word
    double dNameSmall = 0.1;      ///< a name that was begun with a small letter
    double dCommonCapital = 0.3;  ///< a common word that was begun with a capital
    double dFolded = 0.05;        ///< a letter typed without its diacritical mark
};

/// What may have come before the word: a word in small letters, or the start of a sentence or a
/// comma as the dictionary's own contexts; its share of the probability, all shares at most 1.
struct Context {
    uint32_t nContext;
    std::wstring strLower;
    double dShare;
};

struct Query {
    std::wstring strTyped;  ///< may hold unknown letters
    std::vector<Context> Contexts;
    std::vector<std::wstring> Passed;  ///< words not to be offered, in small letters
    size_t nMost;                      ///< words wanted
    std::wstring strUntypeable;        ///< words with one of these letters are not to be offered
};

/// A word as it would be typed, and how likely it is, given what was typed.
struct Offer {
    std::wstring strText;
    double dProbability;
};

/// Whether a word begins with a capital, or with an unknown letter, which most likely is one.
[[nodiscard]] bool IsBegunWithCapital(std::wstring_view strTyped);

/// The likeliest words, best first: those that begin exactly as typed before those that do so
/// without diacritical marks. What is already typed to its end is not among them.
[[nodiscard]] std::vector<Offer> Rank(const Model& Words, const Learned& Own, const Query& Asked,
                                      const RankingConstants& Constants);

/// The word as the user began it: a capital at its beginning stays, all capitals stay all capitals,
/// and an unknown first letter is a capital when it has no mark, because only those keys are not
/// known to the program that follows the typing. Names keep their own capitals.
[[nodiscard]] std::wstring AsBegun(std::wstring_view strWord, std::wstring_view strTyped);

}  // namespace taviro::predictor
