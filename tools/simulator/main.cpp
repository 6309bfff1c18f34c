// SPDX-License-Identifier: MIT
// The command line of the simulator: runs scenario files and says how many passed.
#include <cstdio>
#include <string_view>
#include <vector>

#include "tools/simulator/scenario_run.h"
#include "tools/simulator/sentences.h"

namespace {

using taviro::simulator::Outcome;
using taviro::simulator::RunOptions;

enum ExitCode { ExitPassed = 0, ExitFailed = 1, ExitBroken = 2 };

constexpr std::string_view USAGE =
    "taviro_simulator [--map] [--quiet] [--test] [--us | --russian] [--numlock] [--held] "
    "[--foreign]\n"
    "    SCENARIO...\n"
    "  --map        print the map after each step\n"
    "  --quiet      print only what went wrong\n"
    "  --test       quiet, and a scenario that expects nothing fails\n"
    "  --us, --russian  the keyboard layout of the programs in front; Czech unless said\n"
    "  --numlock    NumLock is on\n"
    "  --held       each file is held for a moment after it was written, as virus scanners do\n"
    "  --foreign    the folders of program and user have names that Windows-1250 lacks\n"
    "  --sentences  list the sentences that a scenario may hold\n"
    "Exit code: 0 all passed, 1 an expectation was not met, 2 a scenario is broken or missing.\n";

void Print(std::string_view strText) {
    (void)std::fwrite(strText.data(), 1, strText.size(), stdout);
}

void PrintSentences() {
    for (const auto& Known : taviro::simulator::Language()) {
        (void)std::printf("%-34s %s\n", Known.szPattern, Known.szMeaning);
    }
}

// Returns false when the word is no option.
bool TakeOption(std::string_view strWord, RunOptions& Options) {
    if (strWord == "--map") {
        Options.bMap = true;
    } else if (strWord == "--quiet") {
        Options.bQuiet = true;
    } else if (strWord == "--test") {
        Options.bQuiet = Options.bMustExpect = true;
    } else if (strWord == "--us") {
        Options.hLayout = taviro::platform::headless::US_LAYOUT;
    } else if (strWord == "--russian") {
        Options.hLayout = taviro::platform::headless::RUSSIAN_LAYOUT;
    } else if (strWord == "--numlock") {
        Options.bNumLock = true;
    } else if (strWord == "--held") {
        Options.bHeld = true;
    } else if (strWord == "--foreign") {
        Options.bForeign = true;
    } else {
        return false;
    }
    return true;
}

int RunAll(const std::vector<const char*>& Files, const RunOptions& Options) {
    int nPassed = 0;
    int nFailed = 0;
    int nExitCode = ExitPassed;
    for (const char* szFile : Files) {
        const Outcome nOutcome = taviro::simulator::RunScenarioFile(szFile, Options, Print);
        ++(nOutcome == Outcome::Passed ? nPassed : nFailed);
        if (nOutcome == Outcome::Broken) nExitCode = ExitBroken;
        if (nOutcome == Outcome::Failed && nExitCode == ExitPassed) nExitCode = ExitFailed;
    }
    (void)std::printf("%d passed, %d failed\n", nPassed, nFailed);
    return nExitCode;
}

}  // namespace

int main(int nArguments, char** pszArguments) {
    RunOptions Options;
    std::vector<const char*> Files;
    for (int n = 1; n < nArguments; ++n) {
        const std::string_view strWord = pszArguments[n];
        if (strWord == "--sentences") {
            PrintSentences();
            return ExitPassed;
        }
        if (TakeOption(strWord, Options)) continue;
        if (strWord.starts_with("-")) {
            Print(USAGE);
            return ExitBroken;
        }
        Files.push_back(pszArguments[n]);
    }
    if (Files.empty()) {
        Print(USAGE);
        return ExitBroken;
    }
    return RunAll(Files, Options);
}
