// SPDX-License-Identifier: MIT
// Any bytes as the compiled dictionary, as the learned words and as the beginnings of words. The
// first byte says which. A dictionary, whole or damaged in places, gets a checksum that fits, or
// none of its readers would ever be reached. Whatever comes out, a list holds nothing but letters,
// blanks and its separators.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "predictor/letters.h"
#include "predictor/model_build.h"
#include "predictor/predictor.h"
#include "predictor/utf8.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize);

namespace taviro::predictor {
namespace {

enum class Target : uint8_t { Dictionary, Damage, LearnedWords, Beginnings };
constexpr uint8_t TARGETS = 4;
constexpr size_t LONGEST_BEGINNING = 40;

void Require(bool bHolds) {
    if (!bHolds) std::abort();
}

const std::string& GoodDictionary() {
    static const std::string Bytes = [] {
        Tables From;
        for (const wchar_t* szWord :
             {L"se", L"dobrý", L"den", L"děkuji", L"Praha", L"šest", L"KitKat"})
            From.Words.push_back({szWord, -1 - static_cast<double>(From.Words.size()) / 4});
        From.Pairs.push_back({L"dobrý", L"den", 40});
        std::string strError;
        return BuildModel(From, strError);
    }();
    return Bytes;
}

// Magic, size and checksum made to fit.
std::string Repaired(std::string Bytes) {
    if (Bytes.size() < HEADER_END) return Bytes;
    const auto Put = [&Bytes](size_t nOffset, uint32_t nNumber) {
        for (size_t n = 0; n < 4; ++n)
            Bytes[nOffset + n] = static_cast<char>(nNumber >> (8 * n));
    };
    Bytes.replace(0, MODEL_MAGIC.size(), MODEL_MAGIC);
    Put(HEADER_SIZE_OF_FILE, static_cast<uint32_t>(Bytes.size()));
    Put(HEADER_CHECKSUM, Checksum(std::string_view(Bytes).substr(HEADER_WORDS)));
    return Bytes;
}

// The good dictionary with other bytes in places: two bytes for the place, one for the byte.
std::string Damaged(const std::string& Changes) {
    std::string Bytes = GoodDictionary();
    for (size_t n = 0; n + 2 < Changes.size(); n += 3) {
        const auto nHigh = static_cast<uint8_t>(Changes[n]);
        const size_t nPlace = nHigh * size_t{256} + static_cast<uint8_t>(Changes[n + 1]);
        Bytes[nPlace % Bytes.size()] = Changes[n + 2];
    }
    return Repaired(Bytes);
}

void Ask(Predictor& Asked, std::wstring_view strBeginning) {
    const Answer Given = Asked.GetPrediction(strBeginning.substr(0, LONGEST_BEGINNING));
    for (const wchar_t n : Given.strList)
        Require(IsLetter(n) || n == L';' || n == L' ');
    Require(Given.strPrefix.size() <= strBeginning.size());
    Require(Asked.Shown().size() <= MOST_OFFERED);
}

void Use(Predictor& Asked) {
    for (const wchar_t* szBeginning : {L"d", L"do", L"dob", L"d", L"s", L"K", L"praha", L"d"})
        Ask(Asked, szBeginning);
    const wchar_t UNKNOWN[] = {UNKNOWN_LETTER, L'e'};
    Ask(Asked, {UNKNOWN, 1});
    Ask(Asked, {UNKNOWN, 2});
    (void)Asked.Complete(L"dobrý", false, L"", {});
}

}  // namespace
}  // namespace taviro::predictor

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    using namespace taviro::predictor;
    if (nSize == 0) return 0;
    const std::string Bytes(pData + 1, pData + nSize);
    const auto nTarget = static_cast<Target>(pData[0] % TARGETS);
    const std::string Dictionary = nTarget == Target::Dictionary ? Repaired(Bytes)
                                   : nTarget == Target::Damage   ? Damaged(Bytes)
                                                                 : GoodDictionary();
    Predictor Asked;
    Asked.Settings.bAlways = true;
    std::string strError;
    const bool bOpened = Asked.Words.Open(Dictionary, strError);
    Require(bOpened || !strError.empty());
    if (nTarget == Target::LearnedWords && Asked.Own.Read(Bytes, strError)) {
        Learned Again;
        Require(Again.Read(Asked.Own.Write(), strError));
        Require(Again.Write() == Asked.Own.Write());
        Asked.Own.Link(Asked.Words);
    }
    if (nTarget == Target::Beginnings) {
        std::wstring_view strRest;
        const std::wstring strAll = FromUtf8(Bytes);
        for (strRest = strAll; !strRest.empty();) {
            const std::wstring_view strOne = strRest.substr(0, strRest.find(L'\n'));
            Ask(Asked, strOne);
            strRest.remove_prefix(std::min(strOne.size() + 1, strRest.size()));
        }
    }
    Use(Asked);
    return 0;
}
