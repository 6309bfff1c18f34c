// SPDX-License-Identifier: MIT
#include "tools/simulator/line_diff.h"

#include <algorithm>

namespace taviro::simulator {

std::vector<std::string> DiffLines(const std::vector<std::string>& Expected,
                                   const std::vector<std::string>& Happened) {
    const size_t nExpected = Expected.size();
    const size_t nHappened = Happened.size();
    // Length of the longest common part of the lines from here to the ends.
    std::vector<std::vector<size_t>> Common(nExpected + 1, std::vector<size_t>(nHappened + 1, 0));
    for (size_t n = nExpected; n-- > 0;) {
        for (size_t m = nHappened; m-- > 0;) {
            Common[n][m] = Expected[n] == Happened[m]
                               ? Common[n + 1][m + 1] + 1
                               : std::max(Common[n + 1][m], Common[n][m + 1]);
        }
    }
    std::vector<std::string> Lines;
    size_t n = 0;
    size_t m = 0;
    while (n < nExpected && m < nHappened) {
        if (Expected[n] == Happened[m]) {
            Lines.push_back("  " + Expected[n++]);
            ++m;
        } else if (Common[n + 1][m] >= Common[n][m + 1]) {
            Lines.push_back("- " + Expected[n++]);
        } else {
            Lines.push_back("+ " + Happened[m++]);
        }
    }
    while (n < nExpected)
        Lines.push_back("- " + Expected[n++]);
    while (m < nHappened)
        Lines.push_back("+ " + Happened[m++]);
    return Lines;
}

}  // namespace taviro::simulator
