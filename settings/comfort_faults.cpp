// SPDX-License-Identifier: MIT
#include "settings/comfort_faults.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "platform/text.h"
#include "settings/ini_file.h"
#include "settings/ini_text.h"

namespace taviro {

namespace {

constexpr size_t MOST_FAULTS = 20;
constexpr size_t LOOKED_AT = 65536;      // bytes; what is longer is no file of settings
constexpr size_t SHOWN_CHARACTERS = 40;  // of a name or value; it may be the rest of a video

/// What can be shown in one line of a log.
std::wstring Shown(std::wstring strText) {
    if (strText.size() > SHOWN_CHARACTERS) strText = strText.substr(0, SHOWN_CHARACTERS) + L"…";
    for (wchar_t& nCharacter : strText) {
        if (nCharacter < L' ') nCharacter = L'?';
    }
    return strText;
}

std::wstring ShownBytes(std::string_view strBytes) {
    return Shown(platform::FromAnsi(strBytes.substr(0, SHOWN_CHARACTERS + 1)));
}

bool IsNamed(const wchar_t* strName, std::string_view strBytes) {
    return IniNamesEqual(platform::ToAnsi(strName), strBytes);
}

/// The whole lines among the first bytes.
std::string HeadOf(const std::string& strBytes) {
    if (strBytes.size() <= LOOKED_AT) return strBytes;
    const size_t nLineEnd = strBytes.find_last_of("\r\n", LOOKED_AT - 1);
    return strBytes.substr(0, nLineEnd == std::string::npos ? 0 : nLineEnd + 1);
}

/// Takes the lines of a file in their order.
class ComfortLines {
  public:
    ComfortLines(const std::string& strFileBytes, std::span<const ComfortKey> objAll)
        : Keys(objAll), objIni(strFileBytes) {}

    /// What is wrong with the line; empty when nothing is.
    std::wstring Fault(const IniLine& objLine) {
        if (objLine.nType == IniLine::Type::Header) return HeaderFault(objLine.strName);
        if (objLine.nType == IniLine::Type::Entry) return EntryFault(objLine);
        return {};
    }

  private:
    std::wstring HeaderFault(std::string_view strName) {
        const auto objFirst = std::find_if(Keys.begin(), Keys.end(), [=](const ComfortKey& objKey) {
            return IsNamed(objKey.strSection, strName);
        });
        nSection = Section::Ignored;
        if (objFirst == Keys.end()) return L"there is no section [" + ShownBytes(strName) + L"]";
        strSection = objFirst->strSection;
        if (!SeenSections.insert(strSection).second) {
            return L"[" + strSection + L"] stands there twice, the first counts";
        }
        nSection = Section::Known;
        return {};
    }

    std::wstring EntryFault(const IniLine& objLine) {
        if (nSection == Section::Ignored) return {};
        const std::wstring strName = ShownBytes(objLine.strName);
        if (nSection == Section::None) return strName + L" stands before the first section";
        const auto objKey = std::find_if(Keys.begin(), Keys.end(), [&](const ComfortKey& objOne) {
            return objOne.strSection == strSection && IsNamed(objOne.strKey, objLine.strName);
        });
        const std::wstring strWhere = L"[" + strSection + L"] ";
        if (objKey == Keys.end()) return strWhere + strName + L" is no key";
        if (!Seen.emplace(strSection, objKey->strKey).second) {
            return strWhere + objKey->strKey + L" stands there twice, the first counts";
        }
        if (objLine.strSeparator.empty()) return strWhere + objKey->strKey + L" has no value";
        return ValueFault(*objKey);
    }

    std::wstring ValueFault(const ComfortKey& objKey) const {
        using enum ComfortReading::Meaning;
        const std::wstring strText = objIni.ReadString(objKey.strSection, objKey.strKey, L"");
        const ComfortReading objReading = ReadComfort(objKey, strText);
        if (objReading.nMeaning == AsItStands) return {};
        const std::wstring strEntry =
            L"[" + strSection + L"] " + objKey.strKey + L"=" + Shown(strText);
        const std::wstring strRange = L" (" + RangeText(objKey, EnglishRange) + L")";
        if (objReading.nMeaning == Nothing) return strEntry + L" means nothing" + strRange;
        return strEntry + L" is out of range, " + Shown(objReading.strNormal) + L" counts" +
               strRange;
    }

    enum class Section { None, Known, Ignored };

    std::span<const ComfortKey> Keys;
    IniFile objIni;
    Section nSection = Section::None;
    std::wstring strSection;  ///< the one that goes on
    std::set<std::wstring> SeenSections;
    std::set<std::pair<std::wstring, std::wstring>> Seen;  ///< keys with their sections
};

}  // namespace

std::vector<ComfortFault> FindComfortFaults(const std::string& strBytes,
                                            std::span<const ComfortKey> Keys) {
    std::vector<ComfortFault> Faults;
    if (strBytes.find('\0') != std::string::npos) {
        Faults.push_back({1, L"there are zero bytes: the file is damaged, or saved as Unicode"});
    }
    const IniText objText(HeadOf(strBytes));
    ComfortLines objLines(objText.Bytes(), Keys);
    size_t nLine = 1;
    for (size_t nOffset = objText.FirstLine();
         nOffset < objText.Bytes().size() && Faults.size() < MOST_FAULTS; ++nLine) {
        const IniLine objLine = objText.LineAt(nOffset);
        std::wstring strFault = objLines.Fault(objLine);
        if (!strFault.empty()) Faults.push_back({nLine, std::move(strFault)});
        nOffset = objLine.nNext;
    }
    return Faults;
}

}  // namespace taviro
