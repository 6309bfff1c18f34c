// SPDX-License-Identifier: MIT
// Any bytes as both comfort.ini files, and any wishes: the user's file, a byte 1, the program's, a
// byte 1, then a wish in each line. Every value in force lies in its range; what is saved is read
// back; a key that says what counts without it is not there; lines of others stay.
#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/foreign_lines.h"
#include "platform/files.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "settings/comfort_faults.h"
#include "settings/comfort_store.h"
#include "settings/ini_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize);

namespace taviro {
namespace {

const std::wstring USER_FILE = L"C:\\user.ini";
const std::wstring PROGRAM_FILE = L"C:\\program.ini";
constexpr char PART_END = '\x01';
constexpr wchar_t NOT_THERE[] = L"\n";

struct FuzzedValues {
    bool bSwitch = false;
    int32_t nNumber = 0;
    int32_t nWord = 0;
    std::wstring strText;
};
FuzzedValues Fuzzed;

constexpr ComfortKey FUZZED_KEYS[] = {
    {.strSection = L"S",
     .strKey = L"a",
     .Target = &Fuzzed.bSwitch,
     .strDefault = L"0",
     .strDelivered = L"1",
     .strMeaning = L""},
    {.strSection = L"S",
     .strKey = L"b",
     .Target = &Fuzzed.nNumber,
     .strDefault = L"0",
     .strDelivered = L"9",
     .nLeast = 3,
     .nMost = 60,
     .nStep = 7,
     .strMeaning = L""},
    {.strSection = L"T",
     .strKey = L"c",
     .Target = &Fuzzed.nWord,
     .strDefault = L"x",
     .strDelivered = L"y",
     .Words = {L"x", L"y", L"z"},
     .strMeaning = L""},
    {.strSection = L"T",
     .strKey = L"d",
     .Target = &Fuzzed.strText,
     .strDefault = L"",
     .strDelivered = L"",
     .strMeaning = L""},
};

/// Takes the bytes up to the next end mark from the front.
std::string TakePart(std::string& strRest, char nEnd) {
    const size_t nLength = std::min(strRest.find(nEnd), strRest.size());
    const std::string strPart = strRest.substr(0, nLength);
    strRest.erase(0, nLength + 1);
    return strPart;
}

void RequireInRange(const ComfortStore& objStore) {
    const int32_t nNumber = Fuzzed.nNumber;
    Require(nNumber == 0 || (nNumber >= 3 && nNumber <= 60));
    Require(Fuzzed.nWord >= 0 && Fuzzed.nWord <= 2);
    Require(Fuzzed.strText.size() <= 1023);
    for (const ComfortKey& objKey : FUZZED_KEYS) {
        const ComfortReading objReading = ReadComfort(objKey, objStore.Text(objKey));
        Require(objReading.nMeaning == ComfortReading::Meaning::AsItStands);
        Require(objReading.strNormal == objStore.Text(objKey));
    }
}

/// The first character of a wish chooses the key and "more", "less" or the rest as a value. Returns
/// which keys took theirs.
std::array<bool, std::size(FUZZED_KEYS)> Wish(ComfortStore& objStore, std::string strWishes) {
    std::array<bool, std::size(FUZZED_KEYS)> Changed{};
    while (!strWishes.empty()) {
        const std::string strWish = TakePart(strWishes, '\n');
        if (strWish.empty()) continue;
        const auto nChoice = static_cast<unsigned char>(strWish.front());
        const ComfortKey& objKey = FUZZED_KEYS[nChoice % 4];
        const std::wstring strBefore = objStore.Text(objKey);
        const bool bStep = nChoice % 12 < 8;
        const ComfortOutcome nOutcome =
            bStep ? objStore.Step(objKey, nChoice % 12 < 4)
                  : objStore.Set(objKey, platform::FromAnsi(strWish.substr(1)));
        const bool bTaken =
            nOutcome == ComfortOutcome::Taken || (nOutcome == ComfortOutcome::Bounded && !bStep);
        Require(bTaken || objStore.Text(objKey) == strBefore);
        Changed[nChoice % 4] = Changed[nChoice % 4] || bTaken;
        RequireInRange(objStore);
    }
    return Changed;
}

bool IsFuzzedKey(const std::string& strSection, const std::string& strKey) {
    return (strSection == "s" && (strKey == "a" || strKey == "b")) ||
           (strSection == "t" && (strKey == "c" || strKey == "d"));
}

std::string BytesOf(const std::wstring& strPath) {
    std::string strBytes;
    if (platform::FileExists(strPath)) Require(platform::ReadFileBytes(strPath, strBytes));
    return strBytes;
}

void TestBytes(std::string strRest) {
    ForgetFiles();
    const std::string strUser = TakePart(strRest, PART_END);
    platform::headless::Desktop.Files.Put(USER_FILE, strUser);
    platform::headless::Desktop.Files.Put(PROGRAM_FILE, TakePart(strRest, PART_END));
    Require(FindComfortFaults(strUser, FUZZED_KEYS).size() <= 20);

    ComfortStore objFirst(FUZZED_KEYS);
    objFirst.Init(L"C:\\none.ini", PROGRAM_FILE);
    std::vector<std::wstring> Base;
    for (const ComfortKey& objKey : FUZZED_KEYS)
        Base.push_back(objFirst.Text(objKey));
    objFirst.Init(USER_FILE, PROGRAM_FILE);
    RequireInRange(objFirst);
    const auto Changed = Wish(objFirst, strRest);
    Require(objFirst.Save());

    ComfortStore objSecond(FUZZED_KEYS);
    objSecond.Init(USER_FILE, PROGRAM_FILE);
    const std::string strAfter = BytesOf(USER_FILE);
    const IniFile objAfter(strAfter);
    const bool bSureBase = BytesOf(PROGRAM_FILE).find('\0') == std::string::npos;
    for (size_t i = 0; i < std::size(FUZZED_KEYS); ++i) {
        const ComfortKey& objKey = FUZZED_KEYS[i];
        Require(objSecond.Text(objKey) == objFirst.Text(objKey));
        const std::wstring strBefore =
            IniFile(strUser).ReadString(objKey.strSection, objKey.strKey, NOT_THERE);
        const std::wstring strNow =
            objAfter.ReadString(objKey.strSection, objKey.strKey, NOT_THERE);
        Require(Changed[i] || strNow == strBefore);
        const bool bAsBase = objFirst.Text(objKey) == Base[i];
        // A base that is no more than the rules' may be unsure, and then it is written out.
        if (Changed[i] && bAsBase && bSureBase && Base[i] != objKey.strDefault)
            Require(strNow == NOT_THERE);
        if (Changed[i] && !bAsBase) Require(strNow != NOT_THERE);
    }
    RequireForeignLines(strUser, strAfter, IsFuzzedKey);
    ForgetFiles();
    Fuzzed = {};
}

}  // namespace
}  // namespace taviro

int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    taviro::TestBytes(std::string(pData, pData + nSize));
    return 0;
}
