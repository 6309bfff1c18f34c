// SPDX-License-Identifier: MIT
// A Windows program through which the tests look at the desktop from inside: it reads commands from
// its standard input, one a line, and answers each on its standard output until the input ends.
#include <windows.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <string>

#include "tests/e2e/probe/answer.h"
#include "tests/e2e/probe/commands.h"

namespace {

using namespace taviro::probe;

// Reads one line without its line feed. Returns false at the end of the input.
bool ReadLine(std::string& strLine) {
    strLine.clear();
    int nByte = std::getchar();
    while (nByte != EOF && nByte != '\n') {
        strLine += static_cast<char>(nByte);
        nByte = std::getchar();
    }
    return nByte != EOF;
}

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
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    std::string strLine;
    while (ReadLine(strLine))
        EndAnswer(RunCommand(SplitFields(strLine)));
    return 0;
}
