// SPDX-License-Identifier: MIT
#include "actions/entry_typing.h"

#include <algorithm>

#include "actions/choice_list.h"
#include "actions/prediction.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

class ChosenText : public ActionTest {
  protected:
    static void Open(const std::wstring& strText) {
        ShowList(strText);
        Desktop.TakeEffects();
    }
    // Opens the list as the word prediction does.
    static void Offer(const std::wstring& strPrefix, const std::wstring& strText) {
        Desktop.Keyboard.strTyped = strPrefix;
        Prediction.strPrefix = strPrefix;
        Prediction.nTypedCount = static_cast<int32_t>(strPrefix.size());
        SetStanding(Prediction.Standing, strPrefix);
        Open(strText);
        ChoiceList.bCompletions = true;
    }
    static Effects Accept() {
        ListAccept();
        return Desktop.TakeEffects();
    }
};

TEST_F(ChosenText, AcceptedCompletion_ArrivesWholeAndOnce) {
    const struct {
        const char* szName;
        std::wstring strPrefix, strSegment, strTyped, strPrefixAfter;
    } Rows[] = {
        {"begins with the prefix", L"ah", L"ahoj", L"ahoj", L"ahoj"},
        {"with a blank", L"ah", L"ahoj ", L"ahoj ", L""},
        {"other case", L"ah", L"Ahoj", L"Ahoj", L"Ahoj"},
        {"another word", L"ah", L"oko", L"oko", L"oko"},
        {"marked", L"ah", L"ahoj*", L"ahoj", L"ahoj"},
        {"shorter than the prefix", L"ahoj", L"ah", L"ah", L"ah"},
        {"typed already", L"ahoj", L"ahoj", L"ahoj", L"ahoj"},
        {"typed already, with a blank", L"ahoj", L"ahoj ", L"ahoj ", L""},
        {"letter of a dead key", L"te", L"teď ", L"teď ", L""},
        {"repeats the prefix", L"ba", L"baba", L"baba", L"baba"},
        {"empty", L"ah", L" ", L"ah", L"ah"},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        Offer(Row.strPrefix, L"*;" + Row.strSegment);
        Accept();
        EXPECT_EQ(Typed(), Row.strTyped);
        EXPECT_EQ(Prediction.strPrefix, Row.strPrefixAfter);
    }
}

TEST_F(ChosenText, AcceptedCompletion_TapsBackspaceForEachTypedCharacter_ThenTypes) {
    Offer(L"ab", L"*;abc");
    EXPECT_EQ(
        Accept(),
        (Effects{"say abc", "SendInput: vk 8 down, vk 8 up", "SendInput: vk 8 down, vk 8 up",
                 "keybd_event: vk 65 scan 30 flags 0", "keybd_event: vk 65 scan 30 flags 2",
                 "keybd_event: vk 66 scan 48 flags 0", "keybd_event: vk 66 scan 48 flags 2",
                 "keybd_event: vk 67 scan 46 flags 0", "keybd_event: vk 67 scan 46 flags 2"}));
}

struct HeldStep {
    const wchar_t* szSegment;
    const wchar_t* szTyped;
    const wchar_t* szHeld;
};

TEST_F(ChosenText, MarkedEntry_StandsInFrontOfWhatIsHeld) {
    const struct {
        const char* szName;
        std::vector<HeldStep> Steps;
    } Rows[] = {
        {"put in front", {{L"hezčí*", L"hezčí", L"hezčí"}, {L"nej*", L"nejhezčí", L"nejhezčí"}}},
        {"twice", {{L"c*", L"c", L"c"}, {L"b*", L"bc", L"bc"}, {L"a*", L"abc", L"abc"}}},
        {"begins with it already",
         {{L"auto*", L"auto", L"auto"}, {L"autobus*", L"autobus", L"autobus"}}},
        {"with a blank", {{L"hezčí*", L"hezčí", L"hezčí"}, {L"nej* ", L"nejhezčí ", L""}}},
        {"dropped by an unmarked word",
         {{L"a*", L"a", L"a"}, {L"b", L"b", L""}, {L"c*", L"c", L"c"}}},
        {"dropped by a word with a blank", {{L"a*", L"a", L"a"}, {L"b ", L"b ", L""}}},
        {"mark alone", {{L"a*", L"a", L"a"}, {L"*", L"a", L"a"}}},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        Prediction = {};
        Desktop.Keyboard.strTyped.clear();
        for (const HeldStep& Step : Row.Steps) {
            Offer(Desktop.Keyboard.strTyped, std::wstring(L"*;") + Step.szSegment);
            Accept();
            EXPECT_EQ(Typed(), Step.szTyped);
            EXPECT_EQ(Prediction.strSuffix, Step.szHeld);
        }
    }
}

TEST_F(ChosenText, MarkedPhrase_HoldsOnlyItself) {
    Prediction.strSuffix = L"old";
    Open(L"*;good*");
    Accept();
    EXPECT_EQ(Typed(), L"good");
    EXPECT_EQ(Prediction.strSuffix, L"good");
}

TEST_F(ChosenText, TypedAfterTheListOpened_IsCutOffOrErased) {
    const struct {
        const char* szName;
        std::wstring strStanding, strSegment;
        size_t nBackspaces;
        std::wstring strTyped;
    } Rows[] = {
        {"begins with what is left", L"aho", L"ahoj", 2, L"ahoj"},
        {"does not begin with it", L"eho", L"ahoj", 3, L"ahoj"},
        {"fewer than counted", L"a", L"ahoj", 1, L"ahoj"},
        {"nothing", L"", L"ahoj", 0, L"ahoj"},
        {"whole, longer than counted", L"ahoj", L"ahoj ", 0, L"ahoj "},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        Offer(Row.strStanding, L"*;" + Row.strSegment);
        Prediction.nTypedCount = 2;
        const Effects Sent = Accept();
        EXPECT_EQ(std::count(Sent.begin(), Sent.end(), "SendInput: vk 8 down, vk 8 up"),
                  Row.nBackspaces);
        EXPECT_EQ(Typed(), Row.strTyped);
    }
}

TEST_F(ChosenText, AcceptedTwice_TypesOnce) {
    Offer(L"ah", L"*;ahoj ");
    Accept();
    EXPECT_EQ(Accept(), Effects{});
    EXPECT_EQ(Typed(), L"ahoj ");
}

TEST_F(ChosenText, AcceptInAnotherWindow_ErasesNothingThere) {
    Desktop.hForeground = 7;
    Offer(L"ah", L"*;ahoj ");
    Desktop.hForeground = 8;
    Accept();
    EXPECT_EQ(Typed(), L"ahahoj ");
}

TEST_F(ChosenText, DeadKeyLetters_AreTypedAsTheirCellsDo) {
    Open(L"*;teď sóla, síň;óďťň ");
    ListMove(40);
    Accept();
    EXPECT_EQ(Typed(), L"óďťň ");
    for (const wchar_t nLetter : std::wstring(L"aéřůŠ"))
        EXPECT_EQ(IsTypedFromList(nLetter), nLetter != L'Š') << static_cast<int>(nLetter);
    for (const wchar_t nLetter : std::wstring(L"ďťňóĎ\u0142"))
        EXPECT_EQ(IsTypedFromList(nLetter), nLetter != L'Ď') << static_cast<int>(nLetter);
}

TEST_F(ChosenText, ChosenWord_StandsInTheText_UnlessItsLettersAreUnknown) {
    TypeChosenText(L"ahoj", false, false);
    EXPECT_EQ(StandingText(Prediction.Standing), L"ahoj");
    TypeChosenText(L"a+b", false, false);
    EXPECT_EQ(StandingText(Prediction.Standing), L"") << "the plus sign is Shift here";
    TypeChosenText(L"ahoj", false, false);
    TypeChosenText(L"\u4e2d", false, false);
    EXPECT_EQ(StandingText(Prediction.Standing), L"") << "no key types it";
}

}  // namespace
}  // namespace taviro
