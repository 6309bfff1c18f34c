// SPDX-License-Identifier: MIT
// What the fuzzers of the settings files share: lines that saving does not own stay, in their
// order.
#pragma once

#include <cstdlib>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "settings/ini_text.h"

namespace taviro {

inline void Require(bool bHolds) {
    if (!bHolds) std::abort();
}

/// A fresh desktop, also behind each input: the fuzzer looks for leaks in all memory, a hundred
/// times slower, while an input leaves anything allocated.
inline void ForgetFiles() {
    platform::headless::Desktop.Files = {};
    platform::headless::Desktop.Transcript = {};
    platform::headless::Desktop.WrittenFiles = {};
}

inline std::string Lower(std::string_view strName) {
    return platform::ToAnsi(platform::ToLower(platform::FromAnsi(strName)));
}

/// Whether saving owns a key; both names in lower case.
using OwnKeys = std::function<bool(const std::string& strSection, const std::string& strKey)>;

/// The lines that saving must keep, without their line ends.
inline std::vector<std::string> ForeignLines(const std::string& strBytes, const OwnKeys& IsOwnKey) {
    const IniText objText(strBytes);
    std::vector<std::string> Lines;
    std::set<std::string> Seen;
    std::string strSection;
    for (size_t nOffset = objText.FirstLine(); nOffset < strBytes.size();) {
        const IniLine objLine = objText.LineAt(nOffset);
        if (objLine.nType == IniLine::Type::Header) {
            const std::string strName = Lower(objLine.strName);
            strSection = Seen.insert(strName).second ? strName : "(repeated)";
        }
        const bool bOwn =
            objLine.nType == IniLine::Type::Entry && IsOwnKey(strSection, Lower(objLine.strName));
        std::string strLine = strBytes.substr(nOffset, objLine.nNext - nOffset);
        while (!strLine.empty() && (strLine.back() == '\r' || strLine.back() == '\n')) {
            strLine.pop_back();
        }
        if (!bOwn && !strLine.empty()) Lines.push_back(std::move(strLine));
        nOffset = objLine.nNext;
    }
    return Lines;
}

inline void RequireForeignLines(const std::string& strBefore, const std::string& strAfter,
                                const OwnKeys& IsOwnKey) {
    const std::vector<std::string> After = ForeignLines(strAfter, IsOwnKey);
    auto objNext = After.begin();
    for (const std::string& strLine : ForeignLines(strBefore, IsOwnKey)) {
        while (objNext != After.end() && *objNext != strLine)
            ++objNext;
        Require(objNext != After.end());
        ++objNext;
    }
}

}  // namespace taviro
