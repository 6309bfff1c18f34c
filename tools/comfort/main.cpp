// SPDX-License-Identifier: MIT
// taviro_comfort: says what is wrong with a comfort.ini, and writes the delivered one anew.
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/text.h"
#include "settings/comfort.h"
#include "settings/comfort_faults.h"
#include "tools/comfort/delivered_text.h"

namespace {

enum ExitCode { ExitGood = 0, ExitFaults = 1, ExitNoFile = 2 };

constexpr const char* USAGE =
    "usage: taviro_comfort FILE...\n"
    "           what is wrong with each comfort.ini, by line\n"
    "       taviro_comfort --delivered\n"
    "           the file that belongs beside the program, as the table of keys has it\n"
    "Exit code: 0 all is well, 1 there are faults, 2 a file cannot be read.\n";

int Check(const char* szPath) {
    std::ifstream File(szPath, std::ios::binary);
    const std::string strBytes{std::istreambuf_iterator<char>(File), {}};
    if (!File.is_open() || File.bad()) {
        (void)std::fprintf(stderr, "%s cannot be read\n", szPath);
        return ExitNoFile;
    }
    const auto Faults = taviro::FindComfortFaults(strBytes, taviro::ComfortKeys());
    for (const auto& objFault : Faults) {
        (void)std::printf("%s:%zu: %s\n", szPath, objFault.nLine,
                          taviro::platform::ToUtf8(objFault.strText).c_str());
    }
    return Faults.empty() ? ExitGood : ExitFaults;
}

}  // namespace

int main(int nCount, char** Arguments) {
    if (nCount == 2 && std::strcmp(Arguments[1], "--delivered") == 0) {
        const std::string strText = taviro::comfort::DeliveredText(taviro::ComfortKeys());
        return std::fwrite(strText.data(), 1, strText.size(), stdout) == strText.size()
                   ? ExitGood
                   : ExitNoFile;
    }
    if (nCount < 2 || Arguments[1][0] == '-') {
        (void)std::fputs(USAGE, stderr);
        return ExitNoFile;
    }
    int nWorst = ExitGood;
    for (int n = 1; n < nCount; ++n) {
        const int nCode = Check(Arguments[n]);
        if (nCode > nWorst) nWorst = nCode;
    }
    return nWorst;
}
