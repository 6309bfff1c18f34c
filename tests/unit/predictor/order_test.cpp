// SPDX-License-Identifier: MIT
// The orders of the dictionary's server, what registering writes, and the options of its user.
#include "predictor/order.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "actions/entry_typing.h"
#include "predictor/letters.h"
#include "predictor/options.h"
#include "predictor/registration.h"
#include "predictor/typeable.h"

namespace taviro::predictor {
namespace {

TEST(PredictorOrder, CommandLine_IsUnderstood) {
    struct Case {
        const wchar_t* szLine;
        Order Meant;
    };
    const Order Unknown{.nKind = OrderKind::Unknown};
    const std::vector<Case> Cases = {
        {L"", {}},
        {L" \t ", {}},
        {L"/regserver", {OrderKind::Register, Scope::User}},
        {L"-RegServer", {OrderKind::Register, Scope::User}},
        {L"  /REGSERVER:MACHINE ", {OrderKind::Register, Scope::Machine}},
        {L"/unregserver", {OrderKind::Unregister, Scope::User}},
        {L"/UnregServer:Machine", {OrderKind::Unregister, Scope::Machine}},
        {L"/forget", {OrderKind::Forget, Scope::User}},
        {L"-Embedding", {OrderKind::Serve, Scope::User}},
        {L"/Embedding", {OrderKind::Serve, Scope::User}},
        {L"regserver", Unknown},
        {L"/", Unknown},
        {L"--regserver", Unknown},
        {L"/regserverx", Unknown},
        {L"/regserver:all", Unknown},
        {L"/regserver /forget", Unknown},
        {L"czech.dict", Unknown},
    };
    for (const Case& One : Cases)
        EXPECT_EQ(ParseOrder(One.szLine), One.Meant) << testing::PrintToString(One.szLine);
}

TEST(PredictorOrder, Usage_NamesEveryOrder) {
    for (const wchar_t* szWord : {L"/regserver ", L"/regserver:machine ", L"/unregserver ",
                                  L"/unregserver:machine ", L"/forget "}) {
        EXPECT_NE(Usage().find(szWord), std::wstring::npos) << testing::PrintToString(szWord);
        EXPECT_NE(ParseOrder(szWord).nKind, OrderKind::Unknown) << testing::PrintToString(szWord);
    }
}

TEST(PredictorOrder, Failure_TellsWhatAndWhy) {
    const std::wstring strReason = L"Přístup byl odepřen.";
    EXPECT_EQ(FailureText({OrderKind::Register, Scope::User}, strReason),
              L"Slovník se nepodařilo zaregistrovat: " + strReason);
    EXPECT_EQ(FailureText({OrderKind::Unregister, Scope::Machine}, strReason),
              L"Registraci slovníku se nepodařilo zrušit pro celý počítač (je k tomu třeba správce"
              L" počítače): " +
                  strReason);
    EXPECT_EQ(FailureText({OrderKind::Forget, Scope::User}, strReason),
              L"Naučená slova se nepodařilo zapomenout: " + strReason);
}

const std::wstring SERVER = L"C:\\Program Files\\Můj Taviro\\presager.exe";

const com::Registration& Entries() {
    static const com::Registration ALL = DictionaryRegistration(SERVER);
    return ALL;
}

std::wstring TextOf(const std::wstring& strKey) {
    for (const com::RegistryValue& Value : Entries().Values) {
        if (Value.strKey == strKey) return Value.strText;
    }
    return L"(none)";
}

TEST(PredictorRegistration, Name_LeadsToTheServerWhosePathIsQuoted) {
    const std::wstring strClass = TextOf(L"Presager.Dict\\CLSID");
    EXPECT_EQ(TextOf(L"Presager.Dict\\CurVer"), L"Presager.Dict.1");
    EXPECT_EQ(TextOf(L"Presager.Dict.1\\CLSID"), strClass);
    EXPECT_EQ(TextOf(L"CLSID\\" + strClass + L"\\LocalServer32"), L"\"" + SERVER + L"\"");
    EXPECT_EQ(TextOf(L"CLSID\\" + strClass + L"\\ProgID"), L"Presager.Dict.1");
    EXPECT_EQ(TextOf(L"CLSID\\" + strClass + L"\\VersionIndependentProgID"), L"Presager.Dict");
    EXPECT_EQ(TextOf(L"CLSID\\" + strClass), L"Slovník programu Taviro");
}

TEST(PredictorRegistration, EveryKey_GoesWithOneOfTheTrees) {
    for (const com::RegistryValue& Value : Entries().Values) {
        const std::vector<com::RegistryTree>& Trees = Entries().Trees;
        EXPECT_TRUE(std::any_of(Trees.begin(), Trees.end(), [&](const com::RegistryTree& Tree) {
            const std::wstring strTree =
                Tree.strParent.empty() ? Tree.strKey : Tree.strParent + L"\\" + Tree.strKey;
            return Value.strKey == strTree || Value.strKey.starts_with(strTree + L"\\");
        })) << testing::PrintToString(Value.strKey);
    }
}

struct OptionCase {
    const char* szText;
    size_t nWords;
    bool bLearns;
    bool bBlanks;
    size_t nComplaints;
};

TEST(PredictorOptions, Text_IsRead) {
    const OptionCase CASES[] = {
        {"", 5, true, true, 0},
        {"[Presager]\r\nWords=7\r\nLearn=0\r\nBlanks=0\r\n", 7, false, false, 0},
        {"[presager]\nWORDS = 1\n learn\t=\t0", 1, false, true, 0},
        {"\xEF\xBB\xBF[Presager]\nWords=20", 20, true, true, 0},
        {"; a note\n# another\n\n[Presager]\nWords=3", 3, true, true, 0},
        {"[Presager]\n; a note\n\n#another\n;\nWords=3", 3, true, true, 0},
        {"[PRESAGER]\nBLANKS=0\nWORDS=2\nLEARN=0", 2, false, false, 0},
        {"Words=3", 5, true, true, 0},
        {"[Other]\nWords=3\nnonsense\n[Presager]\nBlanks=0\n[Other]\nLearn=0", 5, true, false, 0},
        {"[Presager]\nWords=3\nWords=4", 4, true, true, 0},
        {"[Presager]\nLearn=0\nLearn=1\nBlanks=0\nBlanks=1", 5, true, true, 0},
        // Without sense: told, and the option stays.
        {"[Presager]\nWords=0\nWords=21\nWords=-1\nWords=5x\nWords=\nWords", 5, true, true, 6},
        {"[Presager]\nLearn=2\nBlanks=yes\nBlanks=0", 5, true, false, 2},
        {"[Presager]\nColour=1\n=\n", 5, true, true, 2},
        {"[Presager]\nWords=99999999999999999999999", 5, true, true, 1},
    };
    for (const OptionCase& Case : CASES) {
        PredictorSettings Settings;
        const std::vector<std::string> Complaints = ReadOptions(Case.szText, Settings);
        EXPECT_EQ(Settings.nWords, Case.nWords) << Case.szText;
        EXPECT_EQ(Settings.bLearns, Case.bLearns) << Case.szText;
        EXPECT_EQ(Settings.bBlanks, Case.bBlanks) << Case.szText;
        EXPECT_EQ(Complaints.size(), Case.nComplaints) << Case.szText;
    }
}

TEST(PredictorOptions, Complaint_NamesTheLine) {
    PredictorSettings Settings;
    EXPECT_EQ(ReadOptions("[Presager]\n Words = many \n", Settings),
              std::vector<std::string>{"The option \"Words = many\" has no sense."});
}

TEST(PredictorTypeable, Letters_AreThoseThatTheProgramTypesFromAList) {
    const std::wstring strUntypeable = UntypeableLetters();
    for (wchar_t nLetter = 1; nLetter < 0x200; ++nLetter) {
        const bool bTypeable = strUntypeable.find(nLetter) == std::wstring::npos;
        // Some have a key with AltGr, which typing from a list does not press.
        const bool bWithAltGr =
            std::wstring_view(L"ßĐđŁł").find(nLetter) != std::wstring_view::npos;
        if (IsLetter(nLetter)) {
            EXPECT_EQ(bTypeable, IsTypedFromList(nLetter) && !bWithAltGr)
                << static_cast<unsigned>(nLetter);
        } else {
            EXPECT_TRUE(bTypeable) << "no letter: " << static_cast<unsigned>(nLetter);
        }
    }
}

}  // namespace
}  // namespace taviro::predictor
