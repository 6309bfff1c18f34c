// SPDX-License-Identifier: MIT
// What a text means to a key of each kind.
#include "settings/comfort_key.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "tests/unit/settings/comfort_fixture.h"

namespace taviro {
namespace {

using Meaning = ComfortReading::Meaning;

struct ComfortReadRow {
    const ComfortKey& objKey;
    const wchar_t* strText;
    Meaning nMeaning;
    const wchar_t* strNormal;
};

TEST(ComfortKeys, Text_MeansAValueInRangeOrNothing) {
    const ComfortReadRow Rows[] = {
        {WATCH, L"0", Meaning::AsItStands, L"0"},
        {WATCH, L"1", Meaning::AsItStands, L"1"},
        {WATCH, L" 1\t", Meaning::AsItStands, L"1"},
        {WATCH, L"01", Meaning::AsItStands, L"1"},
        {WATCH, L"on", Meaning::AsItStands, L"1"},
        {WATCH, L" OFF ", Meaning::AsItStands, L"0"},
        {WATCH, L"2", Meaning::Bounded, L"1"},
        {WATCH, L"-1", Meaning::Bounded, L"0"},
        {WATCH, L"", Meaning::Nothing, L""},
        {WATCH, L"1 ; off", Meaning::Nothing, L""},
        {WATCH, L"maybe", Meaning::Nothing, L""},
        {STEP, L"300", Meaning::AsItStands, L"300"},
        {STEP, L"6000", Meaning::AsItStands, L"6000"},
        {STEP, L"+750.4", Meaning::AsItStands, L"750"},
        {STEP, L"299", Meaning::Bounded, L"300"},
        {STEP, L"6001", Meaning::Bounded, L"6000"},
        {STEP, L"-5", Meaning::Bounded, L"300"},
        {STEP, L"99999999999999999999", Meaning::Bounded, L"6000"},
        {STEP, L"-99999999999999999999", Meaning::Bounded, L"300"},
        {STEP, L"1e3", Meaning::Nothing, L""},
        {STEP, L"on", Meaning::Nothing, L""},
        {STEP, L"cells", Meaning::Nothing, L""},
        {VOLUME, L"-100", Meaning::AsItStands, L"-100"},
        {VOLUME, L"-101", Meaning::Bounded, L"-100"},
        {PATTERN, L"cells", Meaning::AsItStands, L"cells"},
        {PATTERN, L" Groups ", Meaning::AsItStands, L"groups"},
        {PATTERN, L"1", Meaning::Nothing, L""},
        {PATTERN, L"row", Meaning::Nothing, L""},
        {PATTERN, L"", Meaning::Nothing, L""},
        {DEVICE, L"", Meaning::AsItStands, L""},
        {DEVICE, L" USB  Páka ", Meaning::AsItStands, L" USB  Páka "},
        {DEVICE, L"\u4E2D", Meaning::AsItStands, L"?"},
        {DEVICE, L"a\nb", Meaning::AsItStands, L"a"},
    };
    for (const ComfortReadRow& Row : Rows) {
        SCOPED_TRACE(platform::ToUtf8(std::wstring(Row.objKey.strKey) + L"=" + Row.strText));
        const ComfortReading objReading = ReadComfort(Row.objKey, Row.strText);
        EXPECT_EQ(objReading.nMeaning, Row.nMeaning);
        EXPECT_EQ(objReading.strNormal, Row.strNormal);
    }
}

TEST(ComfortKeys, RulesValue_IsAllowed_WhenItLiesOutsideTheRange) {
    EXPECT_EQ(ReadComfort(STEP, L"0").nMeaning, Meaning::AsItStands);
    EXPECT_EQ(ReadComfort(STEP, L"1").nMeaning, Meaning::Bounded);
}

TEST(ComfortKeys, LongText_IsCut) {
    const ComfortReading objReading = ReadComfort(DEVICE, std::wstring(1024, L'x'));
    EXPECT_EQ(objReading.nMeaning, Meaning::Bounded);
    EXPECT_EQ(objReading.strNormal, std::wstring(1023, L'x'));
    EXPECT_EQ(ReadComfort(DEVICE, std::wstring(1023, L'x')).nMeaning, Meaning::AsItStands);
}

TEST(ComfortKeys, Text_EndsAtAZeroCharacter) {
    EXPECT_EQ(ReadComfort(DEVICE, std::wstring_view(L"a\0b", 3)).strNormal, L"a");
}

struct ComfortStepRow {
    const ComfortKey& objKey;
    const wchar_t* strFrom;
    bool bUp;
    const wchar_t* strTo;
};

TEST(ComfortKeys, Step_GoesToTheNextValueAndStopsAtTheEnds) {
    const ComfortStepRow Rows[] = {
        {WATCH, L"0", true, L"1"},           {WATCH, L"1", true, L"1"},
        {WATCH, L"1", false, L"0"},          {WATCH, L"0", false, L"0"},
        {STEP, L"300", true, L"400"},        {STEP, L"350", false, L"300"},
        {STEP, L"5950", true, L"6000"},      {STEP, L"6000", true, L"6000"},
        {STEP, L"300", false, L"300"},       {STEP, L"0", true, L"300"},
        {STEP, L"0", false, L"0"},           {VOLUME, L"-90", false, L"-100"},
        {VOLUME, L"90", true, L"100"},       {VOLUME, L"0", false, L"-30"},
        {PATTERN, L"cells", true, L"rows"},  {PATTERN, L"groups", true, L"groups"},
        {PATTERN, L"rows", false, L"cells"}, {PATTERN, L"cells", false, L"cells"},
    };
    for (const ComfortStepRow& Row : Rows) {
        EXPECT_EQ(StepComfort(Row.objKey, Row.strFrom, Row.bUp), Row.strTo)
            << platform::ToUtf8(Row.strFrom) << (Row.bUp ? " up" : " down");
    }
    EXPECT_EQ(StepComfort(DEVICE, L"a", true), std::nullopt);
}

TEST(ComfortKeys, Range_IsSaidInWords) {
    const struct {
        const ComfortKey& objKey;
        const wchar_t* strEnglish;
        const wchar_t* strCzech;
    } Rows[] = {
        {WATCH, L"0 or 1", L"0 nebo 1"},
        {STEP, L"0 or 300 to 6000", L"0 nebo 300 až 6000"},
        {VOLUME, L"-100 to 100", L"-100 až 100"},
        {PATTERN, L"cells, rows or groups", L"cells, rows nebo groups"},
        {DEVICE, L"any text", L"libovolný text"},
    };
    for (const auto& Row : Rows) {
        EXPECT_EQ(RangeText(Row.objKey, EnglishRange), Row.strEnglish);
        EXPECT_EQ(RangeText(Row.objKey, CzechRange), Row.strCzech);
    }
}

}  // namespace
}  // namespace taviro
