// SPDX-License-Identifier: MIT
#include "predictor/options.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "predictor/letters.h"
#include "predictor/utf8.h"

namespace taviro::predictor {

namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
constexpr std::string_view SECTION = "[presager]";

std::string_view Trimmed(std::string_view strText) {
    constexpr std::string_view BLANKS = " \t\r";
    const size_t nStart = std::min(strText.find_first_not_of(BLANKS), strText.size());
    strText.remove_prefix(nStart);
    return strText.substr(0, strText.find_last_not_of(BLANKS) + 1);
}

std::string SmallLetters(std::string_view strText) {
    return ToUtf8(LowerText(FromUtf8(strText)));
}

std::optional<size_t> ReadNumber(std::string_view strText, size_t nLeast, size_t nMost) {
    size_t nRead = 0;
    const char* pEnd = strText.data() + strText.size();
    const auto Result = std::from_chars(strText.data(), pEnd, nRead);
    if (Result.ec != std::errc{} || Result.ptr != pEnd) return {};
    if (nRead < nLeast || nRead > nMost) return {};
    return nRead;
}

// Each takes over what has sense, and says whether it had.
bool TakeNumber(std::string_view strText, size_t& nNumber) {
    const auto Read = ReadNumber(strText, 1, MOST_OFFERED);
    nNumber = Read.value_or(nNumber);
    return Read.has_value();
}

bool TakeSwitch(std::string_view strText, bool& bSwitch) {
    const auto Read = ReadNumber(strText, 0, 1);
    if (Read) bSwitch = *Read == 1;
    return Read.has_value();
}

bool TakeOption(std::string_view strLine, PredictorSettings& Settings) {
    const size_t nSign = strLine.find('=');
    if (nSign == std::string_view::npos) return false;
    const std::string strName = SmallLetters(Trimmed(strLine.substr(0, nSign)));
    const std::string_view strValue = Trimmed(strLine.substr(nSign + 1));
    return strName == "words"   ? TakeNumber(strValue, Settings.nWords)
           : strName == "learn" ? TakeSwitch(strValue, Settings.bLearns)
                                : strName == "blanks" && TakeSwitch(strValue, Settings.bBlanks);
}

bool IsNote(std::string_view strLine) {
    return strLine.empty() || strLine.front() == ';' || strLine.front() == '#';
}

}  // namespace

std::vector<std::string> ReadOptions(std::string_view strText, PredictorSettings& Settings) {
    std::vector<std::string> Complaints;
    if (strText.starts_with(BYTE_ORDER_MARK)) strText.remove_prefix(BYTE_ORDER_MARK.size());
    bool bOurs = false;
    while (!strText.empty()) {
        const size_t nEnd = std::min(strText.find('\n'), strText.size());
        const std::string_view strLine = Trimmed(strText.substr(0, nEnd));
        if (strLine.starts_with('[')) {
            bOurs = SmallLetters(strLine) == SECTION;
        } else if (bOurs && !IsNote(strLine) && !TakeOption(strLine, Settings)) {
            Complaints.push_back("The option \"" + std::string(strLine) + "\" has no sense.");
        }
        strText.remove_prefix(std::min(nEnd + 1, strText.size()));
    }
    return Complaints;
}

}  // namespace taviro::predictor
