// SPDX-License-Identifier: MIT
#include "actions/standing_word.h"

#include "actions/command_action.h"
#include "actions/prediction.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

const std::wstring ONE(1, UNKNOWN_CHARACTER);

class Standing : public ActionTest {
  protected:
    static std::wstring After(const std::vector<int32_t>& Codes) {
        Prediction = {};
        for (const int32_t nCode : Codes) {
            CommonMap.Cell(1, 1)->Code = nCode;
            CommandAction(CELL_UNDER_CURSOR);
        }
        return StandingText(Prediction.Standing);
    }
};

TEST_F(Standing, Word_IsWhatTheKeysLeaveInTheText) {
    const struct {
        const char* szName;
        std::vector<int32_t> Codes;
        std::wstring strStands;
    } Rows[] = {
        {"letters", {65, 50}, L"aě"},
        {"typed characters", {1080, 65}, L"Pa"},
        {"typed character that no key has", {65, 1239}, L"a"},
        {"typed character that would need AltGr", {65, 1064}, L"a" + ONE},
        {"acute", {2024}, ONE},
        {"caron known", {3032}, L"ď"},
        {"caron unknown", {3046}, ONE},
        {"scan codes", {4030, 4005}, L"a" + ONE},
        {"AltGr", {5047}, ONE},
        {"Shift", {10065, 10050}, L"A" + ONE},
        {"dead key and letter", {66, 191, 65}, L"b" + ONE},
        {"letter behind a composed one", {191, 65, 66}, ONE + L"b"},
        {"dead key by scan code", {4013, 65, 66}, ONE + L"b"},
        {"last letter by scan code", {4021}, L"z"},
        {"code of no kind", {6065}, L"a"},
        {"dead key and Backspace", {66, 191, 8}, L"b"},
        {"letter behind a dead key that was taken back", {66, 191, 8, 65}, L"ba"},
        {"Backspace", {65, 66, 8}, L"a"},
        {"more Backspaces than letters", {65, 8, 8, 66}, L"b"},
        {"keys that type nothing", {65, 112, 16, 46, 4042}, L"a"},
        {"Caps Lock", {20, 65, 20, 66}, ONE + L"b"},
        {"command", {65, 0}, L"a"},
        {"command of a cell with a kind alone", {65, 2000}, L"a"},
        {"end of the word", {65, 32}, L""},
        {"arrow", {65, 37, 66}, L"b"},
        {"Home", {65, 36}, L""},
        {"Home by scan code", {65, 4071}, L""},
        {"Tab", {65, 9}, L""},
        {"Escape", {65, 27}, L""},
        {"typed Enter", {65, 1013}, L""},
        {"Shift and an arrow", {65, 10037}, L""},
        {"Ctrl and a letter", {65, 20086}, L""},
        {"Windows and a letter", {65, 90068}, L""},
        {"Ctrl and the lowest key", {65, 20001}, L""},
    };
    for (const auto& Row : Rows)
        EXPECT_EQ(After(Row.Codes), Row.strStands) << Row.szName;
}

TEST_F(Standing, AnotherWindow_HasNothingOfTheWord) {
    Desktop.hForeground = 1;
    EXPECT_EQ(After({65, 66}), L"ab");
    Desktop.hForeground = 2;
    EXPECT_EQ(StandingText(Prediction.Standing), L"");
    Desktop.hForeground = 1;
    EXPECT_EQ(StandingText(Prediction.Standing), L"ab");
    Desktop.hForeground = 0;  // the system does not say
    EXPECT_EQ(StandingText(Prediction.Standing), L"ab");
}

TEST_F(Standing, LettersInAnotherWindow_BeginAnew) {
    Desktop.hForeground = 1;
    (void)After({65, 66});
    Desktop.hForeground = 2;
    UpdatePrediction(67, 0, 0);
    EXPECT_EQ(StandingText(Prediction.Standing), L"c");
}

}  // namespace
}  // namespace taviro
