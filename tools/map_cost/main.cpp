// SPDX-License-Identifier: MIT
// taviro_map_cost: what typing Czech texts on maps costs, and arrangements of a map's letters that
// cost less.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "maps/map_file.h"
#include "platform/text.h"
#include "tools/map_cost/arrangement.h"
#include "tools/map_cost/typing_run.h"

namespace {

using namespace taviro;
using namespace taviro::map_cost;

constexpr const char* USAGE =
    "usage: taviro_map_cost MAP... --texts TEXT...\n"
    "       taviro_map_cost --arrange frequency|near|annealed|readable ROWS WORDS MAP SEED\n";

bool ReadFile(const char* szPath, std::string& strBytes) {
    std::ifstream File(szPath, std::ios::binary);
    strBytes.assign(std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>());
    if (File.good() && !strBytes.empty()) return true;
    (void)std::fprintf(stderr, "%s: cannot be read, or is empty\n", szPath);
    return false;
}

struct NamedWay {
    const char* szName;
    TypingWay Way;
};
constexpr NamedWay WAYS[] = {
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
    for (const NamedWay& Named : WAYS) {
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

int PrintCosts(int nCount, char** Arguments) {
    std::vector<const char*> Maps;
    std::vector<std::wstring> Texts;
    bool bTexts = false;
    for (int n = 1; n < nCount; ++n) {
        std::string strBytes;
        if (std::strcmp(Arguments[n], "--texts") == 0) {
            bTexts = true;
        } else if (!bTexts) {
            Maps.push_back(Arguments[n]);
        } else if (ReadFile(Arguments[n], strBytes)) {
            Texts.push_back(platform::FromUtf8(strBytes));
        } else {
            return 1;
        }
    }
    if (Maps.empty() || Texts.empty()) {
        (void)std::fputs(USAGE, stderr);
        return 2;
    }
    bool bGood = true;
    for (const char* szMap : Maps)
        bGood = PrintCost(szMap, Texts) && bGood;
    return bGood ? 0 : 1;
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

// ORDER ROWS WORDS MAP SEED: the new map on the standard output, what it costs on the other.
int PrintArranged(char** Arguments) {
    Order Wanted{};
    std::string strWords;
    std::string strMap;
    if (!OrderOf(Arguments[0], Wanted)) {
        (void)std::fputs(USAGE, stderr);
        return 2;
    }
    if (!ReadFile(Arguments[2], strWords) || !ReadFile(Arguments[3], strMap)) return 1;
    MapGrid Grid;
    (void)ReadMapText(strMap, Grid);
    const LetterCounts Counts = CountLetters(strWords);
    const double dBefore = ExpectedTilts(Grid, Counts);
    Arrange(Grid, std::atoi(Arguments[1]), Wanted, Counts,
            static_cast<uint32_t>(std::strtoul(Arguments[4], nullptr, 10)));
    (void)std::fprintf(stderr, "expected tilts a character: %.4f before, %.4f now\n", dBefore,
                       ExpectedTilts(Grid, Counts));
    const std::string strNew = WriteMapText(Grid);
    (void)std::fwrite(strNew.data(), 1, strNew.size(), stdout);
    return 0;
}

}  // namespace

int main(int nCount, char** Arguments) {
    if (nCount == 7 && std::strcmp(Arguments[1], "--arrange") == 0)
        return PrintArranged(Arguments + 2);
    return PrintCosts(nCount, Arguments);
}
