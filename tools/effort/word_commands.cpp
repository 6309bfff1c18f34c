// SPDX-License-Identifier: MIT
// What the predictor spares on each text: by keys, by time in the real program, by learning.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "predictor/files.h"
#include "predictor/utf8.h"
#include "tools/effort/commands.h"
#include "tools/effort/driving.h"
#include "tools/effort/key_count.h"

namespace taviro::effort {

namespace {

struct Request {
    bool bKeys = true;
    bool bStick = true;
    bool bScan = false;
    bool bLearn = false;
    std::vector<const char*> Files;
};

Request RequestOf(CommandWords Given) {
    Request Asked;
    for (const char* szWord : Given) {
        if (std::strcmp(szWord, "--keys") == 0) {
            Asked.bStick = false;
        } else if (std::strcmp(szWord, "--stick") == 0) {
            Asked.bKeys = false;
        } else if (std::strcmp(szWord, "--scan") == 0) {
            Asked.bKeys = Asked.bStick = false;
            Asked.bScan = true;
        } else if (std::strcmp(szWord, "--learn") == 0) {
            Asked.bKeys = Asked.bStick = false;
            Asked.bLearn = true;
        } else {
            Asked.Files.push_back(szWord);
        }
    }
    return Asked;
}

struct NamedKeyWay {
    const char* szName;
    KeyCountWay Way;
};
constexpr NamedKeyWay KEY_WAYS[] = {
    {"list after each letter", {.bRepeats = true}},
    {"no word offered twice", {}},
    {"the same, learning what is inferred", {.bLearns = true}},
    {"true word before, list before letters", {.bTruth = true, .bBeforeLetters = true}},
    {"the same, learning", {.bTruth = true, .bBeforeLetters = true, .bLearns = true}},
};

void PrintKeys(std::string_view Dictionary, const std::wstring& strText) {
    std::printf("  %-40s %14s %20s\n", "keys spared, %", "blank erased", "blank goes by itself");
    for (const NamedKeyWay& Named : KEY_WAYS) {
        double dSavings[2] = {};
        for (int n = 0; n < 2; ++n) {
            predictor::Predictor Asked;
            std::string strError;
            if (!Asked.Words.Open(Dictionary, strError)) return;
            KeyCountWay Way = Named.Way;
            Way.bFreeBlank = n == 1;
            dSavings[n] = CountKeys(Asked, strText, Way).Whole.Savings();
        }
        std::printf("  %-40s %14.2f %20.2f\n", Named.szName, dSavings[0], dSavings[1]);
    }
}

struct LearningWay {
    const char* szName;
    KeyCountWay Way;
};
constexpr LearningWay LEARNING_WAYS[] = {
    {"list after each letter", {.bRepeats = true, .bFreeBlank = true}},
    {"no word offered twice", {.bFreeBlank = true}},
    {"true word before, list before letters",
     {.bTruth = true, .bBeforeLetters = true, .bFreeBlank = true}},
};

void PrintLearning(std::string_view Dictionary, const std::wstring& strText) {
    std::printf("  %-40s %9s %9s %9s %9s\n", "keys spared, % (blank goes by itself)", "without",
                "learning", "last 1/4", "learning");
    for (const LearningWay& Named : LEARNING_WAYS) {
        TextCount Counts[2];
        for (int n = 0; n < 2; ++n) {
            predictor::Predictor Asked;
            std::string strError;
            if (!Asked.Words.Open(Dictionary, strError)) return;
            KeyCountWay Way = Named.Way;
            Way.bLearns = n == 1;
            Counts[n] = CountKeys(Asked, strText, Way);
        }
        std::printf("  %-40s %9.2f %9.2f %9.2f %9.2f\n", Named.szName, Counts[0].Whole.Savings(),
                    Counts[1].Whole.Savings(), Counts[0].LastQuarter.Savings(),
                    Counts[1].LastQuarter.Savings());
    }
}

bool PrintDriving(std::string_view Dictionary, const std::string& strMap,
                  const std::wstring& strText, bool bScans) {
    predictor::Predictor Asked;
    std::string strError;
    if (!Asked.Words.Open(Dictionary, strError)) return false;
    Asked.Settings.strUntypeable = UntypeableLetters();
    const std::wstring strTyped = Typeable(strMap, strText);
    const Effort Bare = Drive(strMap, strTyped, {.bScans = bScans});
    const Effort Helped = Drive(strMap, strTyped, {.bScans = bScans, .pPredictor = &Asked});
    std::printf("  %-16s %8s %8s %8s %8s %10s\n", bScans ? "scanning" : "stick", "moves", "presses",
                "taken", "sent away", "s/char");
    for (const Effort* pSpent : {&Bare, &Helped}) {
        if (!pSpent->strError.empty()) std::printf("  FAILED: %s\n", pSpent->strError.c_str());
        std::printf("  %-16s %8zu %8zu %8zu %8zu %10.4f\n",
                    pSpent == &Bare ? "without" : "with predictor", pSpent->nMoves,
                    pSpent->nPresses, pSpent->nTaken, pSpent->nDismissed,
                    pSpent->SecondsPerCharacter());
    }
    std::printf("  time spared: %.1f %%\n",
                100 - 100 * Helped.SecondsPerCharacter() / Bare.SecondsPerCharacter());
    return Bare.strError.empty() && Helped.strError.empty();
}

}  // namespace

int MeasureWords(CommandWords Given) {
    const Request Asked = RequestOf(Given);
    if (Asked.Files.size() < 3) return WRONG_WORDS;
    predictor::MappedFile Dictionary;
    std::string strError;
    std::string strMap;
    if (!Dictionary.Open(Asked.Files[0], strError)) {
        (void)std::fprintf(stderr, "%s: %s\n", Asked.Files[0], strError.c_str());
        return EXIT_FAILURE;
    }
    if (!ReadFile(Asked.Files[1], strMap)) return EXIT_FAILURE;
    bool bGood = true;
    for (size_t n = 2; n < Asked.Files.size(); ++n) {
        std::string strBytes;
        if (!ReadFile(Asked.Files[n], strBytes)) return EXIT_FAILURE;
        const std::wstring strText = predictor::FromUtf8(strBytes);
        std::printf("%s: %zu characters\n", Asked.Files[n], strText.size());
        if (Asked.bLearn) PrintLearning(Dictionary.Bytes(), strText);
        if (Asked.bKeys) PrintKeys(Dictionary.Bytes(), strText);
        if (Asked.bStick) bGood = PrintDriving(Dictionary.Bytes(), strMap, strText, false) && bGood;
        if (Asked.bScan) bGood = PrintDriving(Dictionary.Bytes(), strMap, strText, true) && bGood;
    }
    return bGood ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace taviro::effort
