// SPDX-License-Identifier: MIT
// The table of keys, the delivered comfort.ini, its page of documentation and the help say the
// same.
#include <gtest/gtest.h>
#include <set>
#include <utility>

#include "platform/text.h"
#include "settings/comfort.h"
#include "settings/comfort_faults.h"
#include "settings/ini_file.h"
#include "tests/unit/settings/comfort_fixture.h"
#include "tests/unit/source_tree.h"
#include "tools/comfort/delivered_text.h"
#include "tools/simulator/host_files.h"

namespace taviro {
namespace {

std::string SourceFile(const char* strPath) {
    std::string strBytes;
    EXPECT_TRUE(simulator::ReadHostFile(SourceTree() / strPath, strBytes)) << strPath;
    return strBytes;
}

std::wstring NameOf(const ComfortKey& objKey) {
    return std::wstring(L"[") + objKey.strSection + L"] " + objKey.strKey;
}

/// The lines that begin like that, in their order.
std::vector<std::wstring> LinesOf(const char* strPath, const std::string& strBegin) {
    std::vector<std::wstring> Lines;
    const std::string strText = SourceFile(strPath);
    for (size_t n = 0; n < strText.size();) {
        const size_t nEnd = std::min(strText.find('\n', n), strText.size());
        const std::string strLine = strText.substr(n, nEnd - n);
        if (strLine.starts_with(strBegin)) Lines.push_back(platform::FromUtf8(strLine));
        n = nEnd + 1;
    }
    return Lines;
}

TEST(ComfortTable, EveryRow_IsWholeAndOneOfItsName) {
    std::set<std::wstring> Names;
    std::set<std::wstring> Sections;
    std::wstring strSection;
    for (const ComfortKey& objKey : ComfortKeys()) {
        SCOPED_TRACE(platform::ToUtf8(NameOf(objKey)));
        EXPECT_TRUE(Names.insert(platform::ToLower(NameOf(objKey))).second);
        if (strSection != objKey.strSection) {
            strSection = objKey.strSection;
            EXPECT_TRUE(Sections.insert(strSection).second) << "its keys follow one another";
        }
        EXPECT_NE(std::wstring(objKey.strMeaning), L"");
        EXPECT_LE(objKey.nLeast, objKey.nMost);
        EXPECT_GT(objKey.nStep, 0);
        for (const wchar_t* strText : {objKey.strDefault, objKey.strDelivered}) {
            const ComfortReading objReading = ReadComfort(objKey, strText);
            EXPECT_EQ(objReading.nMeaning, ComfortReading::Meaning::AsItStands)
                << platform::ToUtf8(strText);
            EXPECT_EQ(objReading.strNormal, strText) << "not as it would be written";
        }
    }
}

// Whoever reads a field before start-up, or without the files, gets what the rules say.
TEST(ComfortTable, Fields_StartAsTheRulesHaveThem) {
    const auto CheckedValue = [](const ComfortKey& objKey) {
        return std::visit(
            [](const auto* pField) -> std::wstring {
                if constexpr (std::is_same_v<decltype(pField), const std::wstring*>)
                    return *pField;
                else
                    return std::to_wstring(*pField);
            },
            objKey.Target);
    };
    for (const ComfortKey& objKey : ComfortKeys()) {
        Comfort = {};
        const std::wstring strFresh = CheckedValue(objKey);
        ApplyComfort(objKey, objKey.strDefault);
        EXPECT_EQ(strFresh, CheckedValue(objKey)) << platform::ToUtf8(NameOf(objKey));
    }
    Comfort = {};
}

TEST(DeliveredComfort, File_SaysWhatTheTableSays) {
    const IniFile objFile(SourceFile("comfort.ini"));
    for (const ComfortKey& objKey : ComfortKeys()) {
        EXPECT_EQ(objFile.ReadString(objKey.strSection, objKey.strKey, L"(none)"),
                  objKey.strDelivered)
            << platform::ToUtf8(NameOf(objKey));
    }
    EXPECT_TRUE(FindComfortFaults(SourceFile("comfort.ini"), ComfortKeys()).empty())
        << "a key that the table does not have";
}

TEST(DeliveredComfort, File_IsWhatTheToolWrites) {
    EXPECT_EQ(SourceFile("comfort.ini"), comfort::DeliveredText(ComfortKeys()))
        << "taviro_comfort --delivered > comfort.ini";
}

TEST(DeliveredComfort, Text_TellsMeaningAndValuesOfEveryKind) {
    const std::wstring strText = platform::FromAnsi(comfort::DeliveredText(SAMPLE_KEYS));
    const size_t nFirst = strText.find(L"\r\n\r\n");
    ASSERT_NE(nFirst, std::wstring::npos);
    EXPECT_EQ(
        strText.substr(nFirst),
        L"\r\n\r\n[Stick]\r\n; sleduje\r\n; Hodnoty: 0 nebo 1. Bez tohoto řádku: 0.\r\n"
        L"Watch=1\r\n\r\n; jméno\r\n; Hodnoty: libovolný text. Bez tohoto řádku: prázdné.\r\n"
        L"Device=\r\n\r\n[Scan]\r\n; krok\r\n"
        L"; Hodnoty: 0 nebo 300 až 6000. Bez tohoto řádku: 0.\r\nStepMs=1000\r\n\r\n; vzor\r\n"
        L"; Hodnoty: cells, rows nebo groups. Bez tohoto řádku: cells.\r\nPattern=rows\r\n"
        L"\r\n[Sound]\r\n; hlasitost\r\n; Hodnoty: -100 až 100. Bez tohoto řádku: 50.\r\n"
        L"Volume=50\r\n");
    EXPECT_TRUE(FindComfortFaults(platform::ToAnsi(strText), SAMPLE_KEYS).empty());
}

TEST(DeliveredComfort, Documentation_ListsEveryKeyAndNoOther) {
    const auto Rows = LinesOf("docs/comfort.md", "| `[");
    ASSERT_EQ(Rows.size(), ComfortKeys().size());
    for (size_t i = 0; i < Rows.size(); ++i) {
        const ComfortKey& objKey = ComfortKeys()[i];
        const std::wstring strBegin = L"| `" + NameOf(objKey) + L"` | " + objKey.strDefault +
                                      L" | " + objKey.strDelivered + L" | " +
                                      RangeText(objKey, EnglishRange) + L" | ";
        EXPECT_TRUE(Rows[i].starts_with(strBegin)) << platform::ToUtf8(strBegin);
        EXPECT_GT(Rows[i].size(), strBegin.size() + 2) << "no meaning";
    }
}

TEST(DeliveredComfort, Help_ExplainsEveryKeyInTheSameWords) {
    const auto Rows = LinesOf("help/taviro.htm", "<tr><td><code>[");
    ASSERT_EQ(Rows.size(), ComfortKeys().size());
    for (size_t i = 0; i < Rows.size(); ++i) {
        const ComfortKey& objKey = ComfortKeys()[i];
        EXPECT_EQ(Rows[i], L"<tr><td><code>" + NameOf(objKey) + L"=" + objKey.strDelivered +
                               L"</code></td><td>" + RangeText(objKey, CzechRange) + L"</td><td>" +
                               objKey.strMeaning + L"</td></tr>");
    }
}

}  // namespace
}  // namespace taviro
