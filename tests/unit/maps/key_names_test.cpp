// SPDX-License-Identifier: MIT
// The keys that can be picked by name: which there are, of which kind, and the ways between a
// place in the list and a code.
#include "maps/key_names.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/text.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

constexpr int32_t KIND_STEP = 1000;

class KeyNamesTest : public ProgramTest {
  protected:
    KeyNamesTest() { InitKeyTable(); }

    static int32_t CodeOf(const std::string& strName) {
        for (const KeyName& Entry : KeyTable) {
            if (platform::ToUtf8(Entry.Name) == strName) return Entry.Code;
        }
        return -1;
    }
};

using Codes = std::map<std::string, int32_t>;

// Every entry once more, but by kinds and by what the codes mean.
Codes ExpectedCodes() {
    Codes All;
    for (const char n : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ"))
        All[std::string(1, n)] = static_cast<uint8_t>(n);
    for (const char n : std::string("0123456789"))
        All[std::string(1, n)] = KIND_STEP + static_cast<uint8_t>(n);
    for (int32_t n = 1; n <= 12; ++n)
        All["F" + std::to_string(n)] = 111 + n;
    // The Czech letters stand on the row of digits, from 2 to 0, and beside the letters.
    const char* DIGIT_ROW[] = {"Ě", "Š", "Č", "Ř", "Ž", "Ý", "Á", "Í"};
    for (int32_t n = 0; n < 8; ++n)
        All[DIGIT_ROW[n]] = '2' + n;
    All.merge(Codes{{"É", '0'}, {"Ú", 219}, {"Ů", 186}});
    // Characters.
    All.merge(Codes{{"dvojtečka", 1000 + ':'},
                    {"otazník", 1000 + '?'},
                    {"vykřičník", 1000 + '!'},
                    {"levá závorka", 1000 + '('},
                    {"pravá závorka", 1000 + ')'},
                    {"rovno", 1000 + '='},
                    {"plus", 1000 + '+'},
                    {"mínus", 1000 + '-'},
                    {"lomítko", 1000 + '/'},
                    {"procento", 1000 + '%'},
                    {"menší", 1000 + '<'},
                    {"větší", 1000 + '>'}});
    // Scan codes: after a dead key, alone, with AltGr.
    All.merge(Codes{{"Ó", 2024}, {"ď", 3032}, {"ň", 3049}, {"Ť", 3020}});
    All.merge(Codes{{"hvězdička", 4055}, {"ALT", 4056}, {"CONTROL", 4029}});
    All.merge(Codes{{"zavináč", 5047}, {"number", 5045}, {"ampersand", 5046}});
    // Named virtual keys.
    All.merge(
        Codes{{"mezera", 32},      {"čárka", 188},       {"tečka", 190},       {"středník", 192},
              {"CAPS", 20},        {"ENTER", 13},        {"DELETE", 46},       {"BACKSPACE", 8},
              {"ESCAPE", 27},      {"TAB", 9},           {"CONTEXT", 93},      {"HOME", 36},
              {"END", 35},         {"PAGE UP", 33},      {"PAGE DOWN", 34},    {"INSERT", 45},
              {"šipka vlevo", 37}, {"šipka vpravo", 39}, {"šipka nahoru", 38}, {"šipka dolů", 40}});
    return All;
}

TEST_F(KeyNamesTest, Table_HoldsEveryKeyWithItsCode) {
    const Codes Expected = ExpectedCodes();
    ASSERT_EQ(Expected.size(), static_cast<size_t>(KEY_NAME_COUNT));
    for (const auto& [strName, nCode] : Expected)
        EXPECT_EQ(CodeOf(strName), nCode) << strName;
}

TEST_F(KeyNamesTest, List_IsTheTableInItsOrder) {
    const std::vector<std::wstring> Names = KeyNames();
    ASSERT_EQ(Names.size(), 101U);
    const std::pair<size_t, const wchar_t*> PLACES[] = {
        {0, L"A"},           {1, L"Á"},       {6, L"ď"},          {22, L"Ó"},
        {39, L"Z"},          {40, L"Ž"},      {41, L"0"},         {51, L"F1"},
        {62, L"F12"},        {63, L"mezera"}, {75, L"hvězdička"}, {80, L"ampersand"},
        {98, L"šipka dolů"}, {99, L"menší"},  {100, L"větší"},
    };
    for (const auto& [nPlace, szName] : PLACES)
        EXPECT_EQ(platform::ToUtf8(Names[nPlace]), platform::ToUtf8(szName));
}

TEST_F(KeyNamesTest, List_EndsBeforeTheFirstEmptyName) {
    KeyTable[3].Name.clear();
    EXPECT_EQ(KeyNames().size(), 3U);
    KeyTable = {};
    EXPECT_TRUE(KeyNames().empty());
}

TEST_F(KeyNamesTest, EveryPlace_LeadsToItsCodeAndBack) {
    for (int32_t n = 0; n < KEY_NAME_COUNT; ++n) {
        int32_t nCode = -1;
        ASSERT_TRUE(KeyCodeAt(n, nCode));
        EXPECT_EQ(KeyIndexOf(nCode), n);
    }
    int32_t nCode = 0;
    EXPECT_TRUE(KeyCodeAt(63, nCode));
    EXPECT_EQ(nCode, 32);
    EXPECT_EQ(KeyIndexOf(1048), 41);
    EXPECT_EQ(KeyIndexOf(65), 0);
}

TEST_F(KeyNamesTest, PlaceOutsideTheTable_GivesNoCode) {
    for (const int32_t n : {-1, 101, INT32_MIN, INT32_MAX}) {
        int32_t nCode = 7;
        EXPECT_FALSE(KeyCodeAt(n, nCode));
        EXPECT_EQ(nCode, 7);
    }
}

TEST_F(KeyNamesTest, CodeOfNoEntry_HasNoPlace) {
    for (const int32_t nCode : {91, 0, -1, 10065, 90065, 1065, INT32_MAX})
        EXPECT_EQ(KeyIndexOf(nCode), -1) << nCode;
}

TEST_F(KeyNamesTest, FirstEntry_IsFound_WhenSeveralHaveTheCode) {
    KeyTable[5].Code = KeyTable[50].Code = 777;
    EXPECT_EQ(KeyIndexOf(777), 5);
}

}  // namespace
}  // namespace taviro
