// SPDX-License-Identifier: MIT
#include "settings/ini_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/text.h"

namespace taviro {

namespace {

/// A mark that some editors put before a text; it is no part of the first line.
constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

const std::array<char, 256> LowerBytes = [] {
    std::array<char, 256> Result{};
    for (size_t i = 0; i < Result.size(); ++i) {
        const auto nByte = static_cast<char>(i);
        Result[i] = platform::ToAnsi(platform::ToLower(platform::FromAnsi({&nByte, 1})))[0];
    }
    return Result;
}();

char LowerByte(char nByte) {
    return LowerBytes[static_cast<unsigned char>(nByte)];
}

constexpr bool IsBlank(char nByte) {
    return nByte == ' ' || nByte == '\t' || nByte == '\v' || nByte == '\f' || nByte == '\x1A';
}

constexpr bool IsLineEnd(char nByte) {
    return nByte == '\r' || nByte == '\n';
}

/// One byte that equal names share and most different ones do not.
char PrintOf(std::string_view strName) {
    uint32_t nHash = 2166136261U;  // FNV-1a
    for (const char nByte : strName) {
        nHash = (nHash ^ static_cast<unsigned char>(LowerByte(nByte))) * 16777619U;
    }
    return static_cast<char>(nHash >> 24U);
}

void ParseEntry(std::string_view strLine, IniLine& objLine) {
    objLine.nType = IniLine::Type::Entry;
    const size_t nEquals = strLine.find('=');
    objLine.strName = TrimIniBlanks(strLine.substr(0, nEquals));
    if (nEquals == std::string_view::npos) return;
    objLine.strValue = TrimIniBlanks(strLine.substr(nEquals + 1));
    const size_t nValue = strLine.size() - objLine.strValue.size();
    objLine.strSeparator = strLine.substr(objLine.strName.size(), nValue - objLine.strName.size());
}

/// Takes a trimmed line apart.
void ParseLine(std::string_view strLine, IniLine& objLine) {
    if (strLine.empty() || strLine.front() == ';') return;
    const size_t nClose = strLine.front() == '[' ? strLine.rfind(']') : std::string_view::npos;
    if (nClose == std::string_view::npos) {
        ParseEntry(strLine, objLine);
    } else {
        objLine.nType = IniLine::Type::Header;
        objLine.strName = TrimIniBlanks(strLine.substr(1, nClose - 1));
    }
}

}  // namespace

std::string_view TrimIniBlanks(std::string_view strBytes) {
    while (!strBytes.empty() && IsBlank(strBytes.front()))
        strBytes.remove_prefix(1);
    while (!strBytes.empty() && IsBlank(strBytes.back()))
        strBytes.remove_suffix(1);
    return strBytes;
}

bool IniNamesEqual(std::string_view strFirst, std::string_view strSecond) {
    return std::equal(strFirst.begin(), strFirst.end(), strSecond.begin(), strSecond.end(),
                      [](char nOne, char nTwo) { return LowerByte(nOne) == LowerByte(nTwo); });
}

void IniText::NamedLines::Add(const IniLine& objLine) {
    strPrints += PrintOf(objLine.strName);
    nOffsets.push_back(objLine.nBegin);
}

IniText::IniText(std::string strFileBytes) : strBytes(std::move(strFileBytes)) {
    // Line ends are passed over at once: a file may be nothing else.
    const auto BehindLineEnds = [this](size_t nFrom) {
        const auto objFrom = strBytes.begin() + static_cast<std::ptrdiff_t>(nFrom);
        const auto objText = std::find_if_not(objFrom, strBytes.end(), IsLineEnd);
        return static_cast<size_t>(objText - strBytes.begin());
    };
    for (IniLine objLine = LineAt(BehindLineEnds(FirstLine())); objLine.nBegin < strBytes.size();
         objLine = LineAt(BehindLineEnds(objLine.nNext))) {
        if (objLine.nType == IniLine::Type::Header) {
            objHeaders.Add(objLine);
            nFirstEntries.push_back(objEntries.nOffsets.size());
        } else if (objLine.nType == IniLine::Type::Entry) {
            objEntries.Add(objLine);
        }
    }
}

size_t IniText::FirstLine() const {
    return strBytes.starts_with(BYTE_ORDER_MARK) ? BYTE_ORDER_MARK.size() : 0;
}

IniLine IniText::LineAt(size_t nOffset) const {
    const auto objBegin = strBytes.begin() + static_cast<std::ptrdiff_t>(nOffset);
    const auto objEnd = std::find_if(objBegin, strBytes.end(), IsLineEnd);
    const bool bEnded = objEnd != strBytes.end();
    const bool bPair =
        bEnded && *objEnd == '\r' && objEnd + 1 != strBytes.end() && objEnd[1] == '\n';
    IniLine objLine;
    objLine.nBegin = nOffset;
    objLine.nNext = static_cast<size_t>(objEnd - strBytes.begin());
    if (bEnded) objLine.nNext += bPair ? 2 : 1;
    objLine.bEnded = bEnded;
    ParseLine(TrimIniBlanks({objBegin, objEnd}), objLine);
    return objLine;
}

size_t IniText::Find(const NamedLines& objLines, std::string_view strName, size_t nFirst,
                     size_t nEnd) const {
    const auto strPrints = std::string_view(objLines.strPrints).substr(0, nEnd);
    const char nPrint = PrintOf(strName);
    size_t nFound = strPrints.find(nPrint, nFirst);
    while (nFound != std::string_view::npos &&
           !IniNamesEqual(LineAt(objLines.nOffsets[nFound]).strName, strName)) {
        nFound = strPrints.find(nPrint, nFound + 1);
    }
    return std::min(nFound, nEnd);
}

std::optional<IniText::Section> IniText::FindSection(std::string_view strName) const {
    const size_t nCount = objHeaders.nOffsets.size();
    const size_t nHeader = Find(objHeaders, strName, 0, nCount);
    if (nHeader == nCount) return std::nullopt;
    const bool bLast = nHeader + 1 == nCount;
    return Section{
        .nFirstEntry = nFirstEntries[nHeader],
        .nEndEntry = bLast ? objEntries.nOffsets.size() : nFirstEntries[nHeader + 1],
        .nBegin = objHeaders.nOffsets[nHeader],
        .nEnd = bLast ? strBytes.size() : objHeaders.nOffsets[nHeader + 1],
    };
}

size_t IniText::FindEntry(const Section& objSection, std::string_view strKey, size_t nEntry) const {
    return Find(objEntries, strKey, nEntry, objSection.nEndEntry);
}

IniLine IniText::EndOfLastLine(const Section& objSection) const {
    size_t nBegin = objSection.nEnd;  // the header stops the search if nothing else does
    while (IsBlank(strBytes[nBegin - 1]) || IsLineEnd(strBytes[nBegin - 1]))
        --nBegin;
    return LineAt(nBegin);
}

}  // namespace taviro
