// SPDX-License-Identifier: MIT
// taviro_effort: what typing costs a user without errors. See commands.h.
#include <cstdio>
#include <cstring>
#include <vector>

#include "tools/effort/commands.h"

namespace {

using namespace taviro::effort;

struct NamedCommand {
    const char* szName;
    int (*pRun)(CommandWords Given);
};
constexpr NamedCommand COMMANDS[] = {
    {"words", MeasureWords}, {"maps", MeasureMaps}, {"arrange", ArrangeMap}};

constexpr const char* USAGE =
    "usage: taviro_effort words [--keys|--learn|--stick|--scan] DICTIONARY MAP TEXT...\n"
    "           what typing each text costs, by keys with a list after each letter, and by\n"
    "           moves, presses and time in the real program, without and with the predictor;\n"
    "           --learn: what a long text by one writer gains when the predictor learns from it\n"
    "       taviro_effort maps MAP... --texts TEXT...\n"
    "           what typing the texts costs on each map\n"
    "       taviro_effort arrange frequency|near|annealed|readable ROWS WORDS MAP SEED\n"
    "           writes the map with its upper rows in an order that costs less\n";

}  // namespace

int main(int nCount, char** Arguments) {
    const std::vector<const char*> Given(Arguments + 1, Arguments + nCount);
    int nResult = WRONG_WORDS;
    for (const NamedCommand& Known : COMMANDS) {
        if (!Given.empty() && std::strcmp(Given[0], Known.szName) == 0) {
            nResult = Known.pRun(CommandWords(Given).subspan(1));
        }
    }
    if (nResult == WRONG_WORDS) (void)std::fputs(USAGE, stderr);
    return nResult;
}
