// SPDX-License-Identifier: MIT
// A Windows program through which the tests look at the desktop from inside: it reads commands from
// its standard input, one a line, and answers each on its standard output until the input ends.
#include <windows.h>

#include <string>

#include "tests/e2e/probe/answer.h"
#include "tests/e2e/probe/commands.h"

namespace {

using namespace taviro::probe;

std::wstring RunCommand(const Fields& Request) {
    for (const std::vector<Command>* pCommands :
         {&WindowCommands, &SystemCommands, &DesktopCommands, &DialogCommands}) {
        for (const Command& Candidate : *pCommands) {
            if (Request[0] != Candidate.strName) continue;
            if (Request.size() != Candidate.nFields + 1) return L"wrong number of fields";
            return Candidate.pRun(Request);
        }
    }
    return L"unknown command " + Request[0];
}

}  // namespace

int main() {
    // Sizes as the screen has them, whatever its scale.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    AnswerCommands(RunCommand);
    return 0;
}
