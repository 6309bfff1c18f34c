// SPDX-License-Identifier: MIT
// What typing Czech texts on maps costs, and arrangements of a map's letters that cost less.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "maps/map_file.h"
#include "platform/text.h"
#include "tools/effort/arrangement.h"
#include "tools/effort/commands.h"
#include "tools/effort/typing_run.h"

namespace taviro::effort {

namespace {

struct NamedMapWay {
    const char* szName;
    TypingWay Way;
};
constexpr NamedMapWay MAP_WAYS[] = {
    {"stick, as delivered", {}},
    {"stick, columns wrap too", {.Edges = {.bRow = true, .bColumn = true}}},
    {"stick, nothing wraps", {.Edges = {.bRow = false, .bColumn = false}}},
    {"stick, back to the first cell", {.Edges = {}, .bResets = true}},
    {"scan, back to the first cell", {.Edges = {}, .bResets = true, .bScans = true}},
};

bool PrintCost(const char* szMap, const std::vector<std::wstring>& Texts) {
    std::string strMap;
    if (!ReadFile(szMap, strMap)) return false;
    std::printf("%s\n", szMap);
    for (const NamedMapWay& Named : MAP_WAYS) {
        TypingCost All;
        for (const std::wstring& strText : Texts) {
            const TypingCost One = TypeText(strMap, strText, Named.Way);
            All.nCharacters += One.nCharacters;
            All.nMoves += One.nMoves;
            All.nPresses += One.nPresses;
            All.nMilliseconds += One.nMilliseconds;
            if (!One.strError.empty()) All.strError = One.strError;
        }
        if (!All.strError.empty()) {
            (void)std::fprintf(stderr, "  %s: %s\n", Named.szName, All.strError.c_str());
            return false;
        }
        const auto dCharacters = static_cast<double>(All.nCharacters);
        std::printf("  %-30s %7.3f moves %7.3f presses %8.3f s a character (%zu characters)\n",
                    Named.szName, static_cast<double>(All.nMoves) / dCharacters,
                    static_cast<double>(All.nPresses) / dCharacters,
                    All.nMilliseconds / 1000.0 / dCharacters, All.nCharacters);
    }
    return true;
}

bool OrderOf(const char* szName, Order& Wanted) {
    constexpr struct {
        const char* szName;
        Order Meant;
    } ORDERS[] = {{"frequency", Order::Frequency},
                  {"near", Order::Near},
                  {"annealed", Order::Annealed},
                  {"readable", Order::Readable}};
    for (const auto& Named : ORDERS) {
        if (std::strcmp(Named.szName, szName) != 0) continue;
        Wanted = Named.Meant;
        return true;
    }
    return false;
}

}  // namespace

int MeasureMaps(CommandWords Given) {
    std::vector<const char*> Maps;
    std::vector<std::wstring> Texts;
    bool bTexts = false;
    for (const char* szWord : Given) {
        std::string strBytes;
        if (std::strcmp(szWord, "--texts") == 0) {
            bTexts = true;
        } else if (!bTexts) {
            Maps.push_back(szWord);
        } else if (ReadFile(szWord, strBytes)) {
            Texts.push_back(platform::FromUtf8(strBytes));
        } else {
            return EXIT_FAILURE;
        }
    }
    if (Maps.empty() || Texts.empty()) return WRONG_WORDS;
    bool bGood = true;
    for (const char* szMap : Maps)
        bGood = PrintCost(szMap, Texts) && bGood;
    return bGood ? EXIT_SUCCESS : EXIT_FAILURE;
}

// The new map goes to the standard output, what it costs to the other.
int ArrangeMap(CommandWords Given) {
    Order Wanted{};
    std::string strWords;
    std::string strMap;
    if (Given.size() != 5 || !OrderOf(Given[0], Wanted)) return WRONG_WORDS;
    if (!ReadFile(Given[2], strWords) || !ReadFile(Given[3], strMap)) return EXIT_FAILURE;
    MapGrid Grid;
    (void)ReadMapText(strMap, Grid);
    const LetterCounts Counts = CountLetters(strWords);
    const double dBefore = ExpectedTilts(Grid, Counts);
    Arrange(Grid, std::atoi(Given[1]), Wanted, Counts,
            static_cast<uint32_t>(std::strtoul(Given[4], nullptr, 10)));
    (void)std::fprintf(stderr, "expected tilts a character: %.4f before, %.4f now\n", dBefore,
                       ExpectedTilts(Grid, Counts));
    const std::string strNew = WriteMapText(Grid);
    (void)std::fwrite(strNew.data(), 1, strNew.size(), stdout);
    return EXIT_SUCCESS;
}

bool ReadFile(const char* szPath, std::string& strBytes) {
    std::ifstream File(szPath, std::ios::binary);
    strBytes.assign(std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>());
    if (File.good() && !strBytes.empty()) return true;
    (void)std::fprintf(stderr, "%s: cannot be read, or is empty\n", szPath);
    return false;
}

}  // namespace taviro::effort
