// SPDX-License-Identifier: MIT
#include "settings/comfort_store.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/files.h"
#include "platform/text.h"
#include "settings/comfort_faults.h"
#include "settings/ini_file.h"

namespace taviro {

namespace {

using Meaning = ComfortReading::Meaning;

// No value can be a line end, so this one tells a key that is not there from an empty text.
constexpr wchar_t NO_SUCH_KEY[] = L"\n";

/// A file as Init found it; a missing one is empty.
struct ComfortFile {
    IniFile objIni;
    bool bDamaged = false;  ///< unreadable, or with zeroes, which no editor writes
    std::vector<std::wstring> strFaults{};
};

ComfortFile OpenComfort(const std::wstring& strPath, std::span<const ComfortKey> Keys) {
    ComfortFile objFile;
    if (!platform::FileExists(strPath)) return objFile;
    std::string strBytes;
    objFile.bDamaged = !platform::ReadFileBytes(strPath, strBytes);
    objFile.bDamaged = objFile.bDamaged || strBytes.find('\0') != std::string::npos;
    for (const ComfortFault& objFault : FindComfortFaults(strBytes, Keys)) {
        objFile.strFaults.push_back(strPath + L", line " + std::to_wstring(objFault.nLine) + L": " +
                                    objFault.strText);
    }
    objFile.objIni = IniFile(std::move(strBytes));
    return objFile;
}

/// What the file says of the key; no text when it does not name it.
std::optional<ComfortReading> LookUp(const ComfortFile& objFile, const ComfortKey& objKey) {
    const std::wstring strText =
        objFile.objIni.ReadString(objKey.strSection, objKey.strKey, NO_SUCH_KEY);
    if (strText == NO_SUCH_KEY) return std::nullopt;
    return ReadComfort(objKey, strText);
}

/// The text to be written, in quotes where it would not be read back without them.
std::wstring WrittenText(const std::wstring& strNormal) {
    IniFile objTrial;
    objTrial.Write({L"s", L"k", strNormal});
    const bool bReadBack = objTrial.ReadString(L"s", L"k", L"") == strNormal;
    return bReadBack ? strNormal : L"\"" + strNormal + L"\"";
}

}  // namespace

ComfortStore::ComfortStore(std::span<const ComfortKey> objAll) : Keys(objAll) {
    for (const ComfortKey& objKey : Keys)
        Values.push_back({.strBase = objKey.strDefault, .strInForce = objKey.strDefault});
}

void ComfortStore::Init(const std::wstring& strUserFile, const std::wstring& strProgramFile) {
    strUserPath = strUserFile;
    ComfortFile objUser = OpenComfort(strUserFile, Keys);
    const ComfortFile objProgram = OpenComfort(strProgramFile, Keys);
    for (size_t i = 0; i < Keys.size(); ++i) {
        const auto objDelivered = LookUp(objProgram, Keys[i]);
        const bool bDelivered = objDelivered && objDelivered->nMeaning != Meaning::Nothing;
        Values[i] = {.strBase = bDelivered ? objDelivered->strNormal : Keys[i].strDefault,
                     .bBaseKnown = bDelivered || (!objDelivered && !objProgram.bDamaged)};
        const auto objOwn = LookUp(objUser, Keys[i]);
        const bool bOwn = objOwn && objOwn->nMeaning != Meaning::Nothing;
        PutInForce(i, bOwn ? objOwn->strNormal : Values[i].strBase);
    }
    strFaults = std::move(objUser.strFaults);
    strFaults.insert(strFaults.end(), objProgram.strFaults.begin(), objProgram.strFaults.end());
}

const ComfortKey* ComfortStore::Find(std::wstring_view strName) const {
    const std::wstring strWanted = platform::ToLower(strName);
    const ComfortKey* pFound = nullptr;
    for (const ComfortKey& objKey : Keys) {
        const std::wstring strKey = platform::ToLower(objKey.strKey);
        if (platform::ToLower(objKey.strSection) + L"." + strKey == strWanted) return &objKey;
        if (strKey != strWanted) continue;
        if (pFound != nullptr) return nullptr;
        pFound = &objKey;
    }
    return pFound;
}

size_t ComfortStore::NumberOf(const ComfortKey& objKey) const {
    return static_cast<size_t>(&objKey - Keys.data());
}

const std::wstring& ComfortStore::Text(const ComfortKey& objKey) const {
    return Values[NumberOf(objKey)].strInForce;
}

void ComfortStore::PutInForce(size_t nKey, const std::wstring& strNormal) {
    Values[nKey].strInForce = strNormal;
    ApplyComfort(Keys[nKey], strNormal);
}

void ComfortStore::Change(size_t nKey, const std::wstring& strNormal) {
    PutInForce(nKey, strNormal);
    Values[nKey].bChanged = true;
}

ComfortOutcome ComfortStore::Set(const ComfortKey& objKey, std::wstring_view strText) {
    const ComfortReading objReading = ReadComfort(objKey, strText);
    if (objReading.nMeaning == Meaning::Nothing) return ComfortOutcome::Refused;
    Change(NumberOf(objKey), objReading.strNormal);
    const bool bBounded = objReading.nMeaning == Meaning::Bounded;
    return bBounded ? ComfortOutcome::Bounded : ComfortOutcome::Taken;
}

ComfortOutcome ComfortStore::Step(const ComfortKey& objKey, bool bUp) {
    const std::wstring strBefore = Text(objKey);
    const auto strAfter = StepComfort(objKey, strBefore, bUp);
    if (!strAfter || *strAfter == strBefore) {
        return strAfter ? ComfortOutcome::Bounded : ComfortOutcome::Refused;
    }
    Change(NumberOf(objKey), *strAfter);
    return ComfortOutcome::Taken;
}

bool ComfortStore::Save() {
    const auto IsChanged = [](const Value& objValue) { return objValue.bChanged; };
    if (std::none_of(Values.begin(), Values.end(), IsChanged)) return true;
    std::string strOld;
    // What cannot be read would be lost if it were replaced.
    if (platform::FileExists(strUserPath) && !platform::ReadFileBytes(strUserPath, strOld)) {
        return false;
    }
    IniFile objFile(strOld);
    for (const ComfortKey& objKey : Keys) {
        const Value& objValue = Values[NumberOf(objKey)];
        if (!objValue.bChanged) continue;
        const bool bAsWithout = objValue.bBaseKnown && objValue.strInForce == objValue.strBase;
        std::optional<std::wstring> strText;
        if (!bAsWithout) strText = WrittenText(objValue.strInForce);
        objFile.Write({objKey.strSection, objKey.strKey, std::move(strText)});
    }
    const std::string strNew = objFile.Bytes();
    if (strNew != strOld && !platform::ReplaceFileBytes(strUserPath, strNew)) return false;
    for (Value& objValue : Values)
        objValue.bChanged = false;
    return true;
}

}  // namespace taviro
