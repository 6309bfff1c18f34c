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
    SetProcessDPIAware();  // sizes as the system has them, not as it shows them to old programs
    AnswerCommands(RunCommand);
    return 0;
}
