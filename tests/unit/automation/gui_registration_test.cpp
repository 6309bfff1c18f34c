// SPDX-License-Identifier: MIT
// The command line's orders, and what registering writes.
#include <algorithm>
#include <gtest/gtest.h>

#include "automation/registration.h"

namespace taviro {
namespace {

struct LineCase {
    const wchar_t* szLine;
    StartOrder Order;
};

TEST(CommandLine, IsUnderstood) {
    const StartOrder Normal;
    const std::vector<LineCase> Cases = {
        {L"", Normal},
        {L"   ", Normal},
        {L"/regserver", {StartKind::Register, RegistrationScope::User}},
        {L"-RegServer", {StartKind::Register, RegistrationScope::User}},
        {L"  /REGSERVER  ", {StartKind::Register, RegistrationScope::User}},
        {L"/regserver:machine", {StartKind::Register, RegistrationScope::Machine}},
        {L"/unregserver", {StartKind::Unregister, RegistrationScope::User}},
        {L"/UnregServer:Machine", {StartKind::Unregister, RegistrationScope::Machine}},
        {L"-Embedding", {StartKind::Embedding, RegistrationScope::User}},
        {L"/Embedding more", {StartKind::Embedding, RegistrationScope::User}},
        {L"regserver", Normal},
        {L"/", Normal},
        {L"/regserverx", Normal},
        {L"/regserver:all", Normal},
        {L"map.ini /regserver", Normal},
    };
    for (const LineCase& Case : Cases)
        EXPECT_EQ(ParseCommandLine(Case.szLine), Case.Order) << std::wstring(Case.szLine).size();
}

const std::wstring PROGRAM = L"C:\\Program Files\\Můj Taviro\\taviro.exe";

const com::Registration& Entries() {
    static const com::Registration ALL = GuiRegistration(PROGRAM);
    return ALL;
}

std::wstring TextOf(const std::wstring& strKey, const std::wstring& strName = L"") {
    for (const com::RegistryValue& Value : Entries().Values) {
        if (Value.strKey == strKey && Value.strName == strName) return Value.strText;
    }
    return L"(none)";
}

TEST(Registration, NameLeadsToTheProgram_WhosePathIsQuoted) {
    const std::wstring strClass = TextOf(L"Taviro.GUI\\CLSID");
    EXPECT_EQ(TextOf(L"Taviro.GUI\\CurVer"), L"Taviro.GUI.1");
    EXPECT_EQ(TextOf(L"Taviro.GUI.1\\CLSID"), strClass);
    EXPECT_EQ(TextOf(L"CLSID\\" + strClass + L"\\LocalServer32"), L"\"" + PROGRAM + L"\"");
    EXPECT_EQ(TextOf(L"CLSID\\" + strClass + L"\\ProgID"), L"Taviro.GUI.1");
    EXPECT_EQ(TextOf(L"CLSID\\" + strClass + L"\\VersionIndependentProgID"), L"Taviro.GUI");
}

TEST(Registration, ClassLeadsToTheLibraryInsideTheProgram) {
    const std::wstring strClass = L"CLSID\\" + TextOf(L"Taviro.GUI\\CLSID");
    const std::wstring strLibrary = L"TypeLib\\" + TextOf(strClass + L"\\TypeLib") + L"\\1.0";
    EXPECT_EQ(TextOf(strLibrary + L"\\0\\win32"), PROGRAM);
    EXPECT_EQ(TextOf(strLibrary + L"\\0\\win64"), PROGRAM);
}

bool IsWithin(const std::wstring& strKey, const com::RegistryTree& Tree) {
    const std::wstring strTop =
        Tree.strParent.empty() ? Tree.strKey : Tree.strParent + L"\\" + Tree.strKey;
    return strKey == strTop || strKey.starts_with(strTop + L"\\");
}

TEST(Registration, EveryKey_IsRemovedByUnregistering) {
    for (const com::RegistryValue& Value : Entries().Values) {
        const auto& Trees = Entries().Trees;
        EXPECT_EQ(std::count_if(Trees.begin(), Trees.end(),
                                [&](const auto& Tree) { return IsWithin(Value.strKey, Tree); }),
                  1);
    }
}

TEST(Registration, Trees_AreNeverKeysOfOthers) {
    for (const com::RegistryTree& Tree : Entries().Trees) {
        EXPECT_TRUE(Tree.strKey.starts_with(L"Taviro.GUI") || Tree.strKey.starts_with(L"{"));
        EXPECT_EQ(Tree.strKey.find(L'\\'), std::wstring::npos);
    }
}

TEST(Registration, NoPermission_IsOpened) {
    for (const com::RegistryValue& Value : Entries().Values) {
        EXPECT_FALSE(Value.strKey.starts_with(L"AppID"));
        for (const wchar_t* szName :
             {L"AppID", L"AccessPermission", L"LaunchPermission", L"RunAs", L"RemoteServerName"}) {
            EXPECT_NE(Value.strName, szName);
        }
    }
}

TEST(Registration, Failure_IsToldInTheUsersWords) {
    EXPECT_EQ(RegistrationFailure({StartKind::Register, RegistrationScope::User}, L"plno"),
              L"Objekt Taviro.GUI se nepodařilo zaregistrovat: plno");
    EXPECT_EQ(RegistrationFailure({StartKind::Unregister, RegistrationScope::User}, L"plno"),
              L"Registraci objektu Taviro.GUI se nepodařilo zrušit: plno");
    EXPECT_NE(RegistrationFailure({StartKind::Register, RegistrationScope::Machine}, L"plno")
                  .find(L"správce"),
              std::wstring::npos);
}

}  // namespace
}  // namespace taviro
