// SPDX-License-Identifier: MIT
#include "predictor/options.h"

#include <algorithm>
#include <charconv>

namespace taviro::predictor {

namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
constexpr std::string_view SECTION = "presager";

std::string_view Trimmed(std::string_view strText) {
    constexpr std::string_view BLANKS = " \t\r";
    const size_t nStart = std::min(strText.find_first_not_of(BLANKS), strText.size());
    strText.remove_prefix(nStart);
    return strText.substr(0, strText.find_last_not_of(BLANKS) + 1);
}

// Names are of plain letters.
std::string SmallLetters(std::string_view strText) {
    std::string strSmall(strText);
    std::transform(strSmall.begin(), strSmall.end(), strSmall.begin(), [](char n) {
        return n >= 'A' && n <= 'Z' ? static_cast<char>(n - 'A' + 'a') : n;
    });
    return strSmall;
}

bool ReadNumber(std::string_view strText, size_t nLeast, size_t nMost, size_t& nNumber) {
    size_t nRead = 0;
    const char* pEnd = strText.data() + strText.size();
    const auto Result = std::from_chars(strText.data(), pEnd, nRead);
    if (Result.ec != std::errc{} || Result.ptr != pEnd) return false;
    if (nRead < nLeast || nRead > nMost) return false;
    nNumber = nRead;
    return true;
}

bool ReadSwitch(std::string_view strText, bool& bSwitch) {
    size_t nNumber = 0;
    if (!ReadNumber(strText, 0, 1, nNumber)) return false;
    bSwitch = nNumber == 1;
    return true;
}

bool TakeOption(const std::string& strName, std::string_view strValue,
                PredictorSettings& Settings) {
    if (strName == "words") return ReadNumber(strValue, 1, MOST_OFFERED, Settings.nWords);
    if (strName == "learn") return ReadSwitch(strValue, Settings.bLearns);
    if (strName == "blanks") return ReadSwitch(strValue, Settings.bBlanks);
    return false;
}

}  // namespace

std::vector<std::string> ReadOptions(std::string_view strText, PredictorSettings& Settings) {
    std::vector<std::string> Complaints;
    if (strText.starts_with(BYTE_ORDER_MARK)) strText.remove_prefix(BYTE_ORDER_MARK.size());
    bool bOurs = false;
    while (!strText.empty()) {
        const size_t nEnd = std::min(strText.find('\n'), strText.size());
        const std::string_view strLine = Trimmed(strText.substr(0, nEnd));
        strText.remove_prefix(std::min(nEnd + 1, strText.size()));
        if (strLine.empty() || strLine[0] == ';' || strLine[0] == '#') continue;
        if (strLine[0] == '[') {
            bOurs = SmallLetters(strLine) == "[" + std::string(SECTION) + "]";
            continue;
        }
        const size_t nSign = strLine.find('=');
        const std::string strName = SmallLetters(Trimmed(strLine.substr(0, nSign)));
        const std::string_view strValue =
            nSign == std::string_view::npos ? "" : Trimmed(strLine.substr(nSign + 1));
        if (bOurs && !TakeOption(strName, strValue, Settings)) {
            Complaints.push_back("The option \"" + std::string(strLine) + "\" has no sense.");
        }
    }
    return Complaints;
}

}  // namespace taviro::predictor
