// SPDX-License-Identifier: MIT
#include "settings/ini_file.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "platform/byte_order_mark.h"
#include "platform/text.h"

namespace taviro {

namespace {

using namespace std::string_view_literals;

constexpr size_t BUFFER_SIZE = 1024;           // what the settings' readers offer, in characters
constexpr std::string_view LINE_END = "\r\n";  // of lines that are added
constexpr std::string_view TEXT_ENDS = "\r\n\0"sv;
constexpr std::string_view DIGITS = "0123456789";

std::string_view UpToNul(std::string_view strText) {
    return strText.substr(0, strText.find('\0'));
}

/// The value as it is handed out: ended by a NUL, freed from enclosing quotes.
std::string_view Presented(std::string_view strValue) {
    strValue = UpToNul(TrimIniBlanks(strValue));
    const bool bQuoted = strValue.size() >= 2 && strValue.front() == strValue.back() &&
                         (strValue.front() == '"' || strValue.front() == '\'');
    return bQuoted ? strValue.substr(1, strValue.size() - 2) : strValue;
}

/// No half of a surrogate pair is left at the end.
std::wstring CutToBuffer(std::wstring strText) {
    constexpr size_t MOST = BUFFER_SIZE - 1;
    if (strText.size() <= MOST) return strText;
    const bool bFirstOfPair = strText[MOST - 1] >= 0xD800 && strText[MOST - 1] <= 0xDBFF;
    strText.resize(bFirstOfPair ? MOST - 1 : MOST);
    return strText;
}

int32_t LeadingInteger(std::string_view strText) {
    while (!strText.empty() && static_cast<unsigned char>(strText.front()) <= ' ')
        strText.remove_prefix(1);
    const bool bNegative = strText.starts_with('-');
    if (bNegative || strText.starts_with('+')) strText.remove_prefix(1);
    uint32_t nResult = 0;
    for (const char nDigit : strText.substr(0, strText.find_first_not_of(DIGITS)))
        nResult = nResult * 10 + static_cast<uint32_t>(nDigit - '0');
    return static_cast<int32_t>(bNegative ? 0 - nResult : nResult);
}

/// The changes to be made to a text: by the offset where it begins, where what goes ends and what
/// comes in there. They never overlap.
class Edits {
  public:
    explicit Edits(const IniText& objOriginal) : objText(objOriginal) {}

    void SetValue(const IniLine& objLine, std::string_view strValue) {
        if (!objLine.strSeparator.empty() && objLine.strValue == strValue) return;
        const std::string& strBytes = objText.Bytes();
        const auto nNameEnd =
            static_cast<size_t>(objLine.strName.data() - strBytes.data()) + objLine.strName.size();
        Edit& objEdit = Changes[objLine.nBegin];
        objEdit.nEnd = nNameEnd + objLine.strSeparator.size() + objLine.strValue.size();
        objEdit.strNew = strBytes.substr(objLine.nBegin, nNameEnd - objLine.nBegin);
        objEdit.strNew += objLine.strSeparator.empty() ? "=" : objLine.strSeparator;
        objEdit.strNew += strValue;
    }

    /// Adjoining lines go as one: a file may repeat a key millions of times.
    void Remove(const IniLine& objLine) {
        const auto objAfter = Changes.lower_bound(objLine.nBegin);
        const bool bAdjoins =
            objAfter != Changes.begin() && std::prev(objAfter)->second.nEnd == objLine.nBegin;
        Edit& objEdit = bAdjoins ? std::prev(objAfter)->second : Changes[objLine.nBegin];
        objEdit.nEnd = objLine.nNext;
    }

    void AppendToSection(const IniText::Section& objSection, std::string_view strLine) {
        const auto [objLast, bUnknown] = LineEnds.try_emplace(objSection.nBegin);
        if (bUnknown) objLast->second = objText.EndOfLastLine(objSection);
        const size_t nOffset = objLast->second.nNext;
        const auto [objFound, bFirst] = Changes.try_emplace(nOffset, Edit{nOffset, {}});
        if (bFirst && !objLast->second.bEnded) objFound->second.strNew += LINE_END;
        objFound->second.strNew += strLine;
    }

    [[nodiscard]] std::string Applied() const {
        std::string strResult;
        size_t nCopied = 0;
        for (const auto& [nOffset, objEdit] : Changes) {
            strResult.append(objText.Bytes(), nCopied, nOffset - nCopied).append(objEdit.strNew);
            nCopied = objEdit.nEnd;
        }
        return strResult.append(objText.Bytes(), nCopied);
    }

  private:
    struct Edit {
        size_t nEnd;
        std::string strNew;
    };

    const IniText& objText;
    std::map<size_t, Edit> Changes;
    std::map<size_t, IniLine> LineEnds;  ///< by section: found once, not for every key
};

/// The sections that the file does not have yet, in the order of their first key.
class NewSections {
  public:
    void Append(std::string_view strSection, std::string_view strLine) {
        auto objFound = std::find_if(Sections.begin(), Sections.end(), [=](const auto& objOne) {
            return IniNamesEqual(objOne.first, strSection);
        });
        if (objFound == Sections.end()) objFound = Sections.emplace(objFound, strSection, "");
        objFound->second += strLine;
    }

    void AppendTo(std::string& strBytes) const {
        for (const auto& [strName, strLines] : Sections) {
            const bool bInsideLine = !strBytes.empty() && strBytes != platform::UTF8_MARK &&
                                     strBytes.back() != '\n' && strBytes.back() != '\r';
            if (bInsideLine) strBytes += LINE_END;
            strBytes.append("[").append(strName).append("]").append(LINE_END).append(strLines);
        }
    }

  private:
    std::vector<std::pair<std::string, std::string>> Sections;  ///< name and lines
};

}  // namespace

IniFile::IniFile(std::string strBytes)
    : bUnicode(strBytes.starts_with(platform::UTF8_MARK)), objText(std::move(strBytes)) {}

std::wstring IniFile::Decoded(std::string_view strBytes) const {
    if (!bUnicode) return platform::FromAnsi(strBytes);
    std::wstring strText = platform::FromUtf8(strBytes);
    // The code page may stand behind the mark all the same: earlier versions wrote it there.
    return platform::ToUtf8(strText) == strBytes ? strText : platform::FromAnsi(strBytes);
}

std::string IniFile::Encoded(std::wstring_view strText) const {
    return bUnicode ? platform::ToUtf8(strText) : platform::ToAnsi(strText);
}

void IniFile::TurnToUtf8() {
    const auto Turned = [this](std::string_view strBytes) {
        return platform::ToUtf8(Decoded(strBytes));
    };
    objText = IniText(std::string(platform::UTF8_MARK) + Turned(objText.Bytes()));
    for (Pending& objOne : objPending) {
        objOne.strSection = Turned(objOne.strSection);
        objOne.strKey = Turned(objOne.strKey);
        if (objOne.strValue) objOne.strValue = Turned(*objOne.strValue);
    }
    bUnicode = true;
}

size_t IniFile::FindPending(std::string_view strSection, std::string_view strKey) const {
    size_t nFound = 0;
    while (nFound < objPending.size() &&
           !(IniNamesEqual(objPending[nFound].strKey, strKey) &&
             IniNamesEqual(objPending[nFound].strSection, strSection))) {
        ++nFound;
    }
    return nFound;
}

std::optional<std::string_view> IniFile::FindValue(std::string_view strSection,
                                                   std::string_view strKey) const {
    const size_t nPending = FindPending(strSection, strKey);
    if (nPending < objPending.size()) return objPending[nPending].strValue;
    const auto objSection = objText.FindSection(strSection);
    if (!objSection) return std::nullopt;
    const size_t nEntry = objText.FindEntry(*objSection, strKey, objSection->nFirstEntry);
    if (nEntry == objSection->nEndEntry) return std::nullopt;
    const IniLine objLine = objText.Entry(nEntry);
    if (objLine.strSeparator.empty()) return std::nullopt;
    return objLine.strValue;
}

std::wstring IniFile::ReadString(std::wstring_view strSection, std::wstring_view strKey,
                                 std::wstring_view strDefault) const {
    const auto strValue = FindValue(Encoded(strSection), Encoded(strKey));
    if (!strValue) return std::wstring(strDefault.substr(0, BUFFER_SIZE - 1));
    return CutToBuffer(Decoded(Presented(*strValue)));
}

int32_t IniFile::ReadInt(std::wstring_view strSection, std::wstring_view strKey,
                         int32_t nDefault) const {
    const auto strValue = FindValue(Encoded(strSection), Encoded(strKey));
    if (!strValue) return nDefault;
    return LeadingInteger(Presented(*strValue).substr(0, BUFFER_SIZE - 1));
}

size_t IniFile::SectionTextCount(std::wstring_view strSection) const {
    if (!objPending.empty()) return IniFile(Bytes()).SectionTextCount(strSection);
    constexpr size_t nMost = BUFFER_SIZE - 2;  // the buffer's last two characters are end marks
    const auto objSection = objText.FindSection(Encoded(strSection));
    if (!objSection) return 0;
    size_t nCount = 0;
    for (size_t i = objSection->nFirstEntry; i < objSection->nEndEntry && nCount < nMost; ++i) {
        const IniLine objLine = objText.Entry(i);
        const size_t nEquals = objLine.strSeparator.empty() ? 0 : 1;
        nCount += objLine.strName.size() + nEquals + UpToNul(objLine.strValue).size() + 1;
    }
    return std::min(nCount, nMost);
}

void IniFile::Write(const IniEntry& objEntry) {
    if (!bUnicode && objEntry.strValue && !platform::IsInCodePage(*objEntry.strValue)) TurnToUtf8();
    Pending objNew{Encoded(objEntry.strSection), Encoded(objEntry.strKey), {}};
    if (objEntry.strValue) {
        objNew.strValue = Encoded(*objEntry.strValue);
        objNew.strValue->resize(
            std::min(objNew.strValue->find_first_of(TEXT_ENDS), objNew.strValue->size()));
    }
    const size_t nOld = FindPending(objNew.strSection, objNew.strKey);
    if (nOld < objPending.size()) {
        objPending[nOld].strValue = std::move(objNew.strValue);
    } else {
        objPending.push_back(std::move(objNew));
    }
}

std::string IniFile::Bytes() const {
    Edits objEdits(objText);
    NewSections objNewSections;
    for (const Pending& objOne : objPending) {
        const auto objSection = objText.FindSection(objOne.strSection);
        const auto strLine = [&] { return objOne.strKey + "=" + *objOne.strValue + "\r\n"; };
        if (!objSection) {
            if (objOne.strValue) objNewSections.Append(objOne.strSection, strLine());
            continue;
        }
        size_t nEntry = objText.FindEntry(*objSection, objOne.strKey, objSection->nFirstEntry);
        if (!objOne.strValue) {
            while (nEntry < objSection->nEndEntry) {
                objEdits.Remove(objText.Entry(nEntry));
                nEntry = objText.FindEntry(*objSection, objOne.strKey, nEntry + 1);
            }
        } else if (nEntry < objSection->nEndEntry) {
            objEdits.SetValue(objText.Entry(nEntry), *objOne.strValue);
        } else {
            objEdits.AppendToSection(*objSection, strLine());
        }
    }
    std::string strResult = objEdits.Applied();
    objNewSections.AppendTo(strResult);
    return strResult;
}

}  // namespace taviro
