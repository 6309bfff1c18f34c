// SPDX-License-Identifier: MIT
#include "actions/prediction.h"

#include <map>

#include "actions/choice_list.h"
#include "actions/command_action.h"
#include "state/mode_state.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

using forms::FrmMain;
using platform::AutomationArgument;
using platform::AutomationValue;
using platform::headless::MemberUse;

std::wstring WithNul(const std::wstring& strText) {
    return strText + L'\0';
}

// A dictionary of exact prefixes, with everything that it was asked.
struct Dictionary {
    std::map<std::wstring, AutomationValue> Lists;
    std::vector<std::wstring> Asked;
    int nCreated = 0;
    bool bByReference = true;
    bool bFails = false;
    std::wstring strChangedPrefix;

    bool Answer(MemberUse nUse, const std::wstring& strMember,
                std::span<AutomationArgument> Arguments, AutomationValue& Result) {
        if (nUse != MemberUse::Method || strMember != L"GetPrediction") return false;
        if (Arguments.size() != 1 || bFails) return false;
        bByReference = bByReference && Arguments[0].bByReference;
        const auto strPrefix = std::get<std::wstring>(Arguments[0].Value);
        Asked.push_back(strPrefix);
        if (!strChangedPrefix.empty()) Arguments[0].Value = strChangedPrefix;
        const auto it = Lists.find(strPrefix);
        Result = it == Lists.end() ? AutomationValue{std::wstring{}} : it->second;
        return true;
    }
};

class WordPrediction : public ActionTest {
  protected:
    WordPrediction() {
        Desktop.Classes[L"Presager.Dict"] = [this] {
            ++Words.nCreated;
            return platform::headless::MakeObject(
                [this](MemberUse nUse, const std::wstring& strMember,
                       std::span<AutomationArgument> Arguments, AutomationValue& Result) {
                    return Words.Answer(nUse, strMember, Arguments, Result);
                });
        };
    }

    // Types letters as virtual keys, as the map's letter cells do.
    static void Type(const std::string& strKeys) {
        for (const char nKey : strKeys) {
            CommonMap.Cell(1, 1)->Code = static_cast<unsigned char>(nKey);
            CommandAction(CELL_UNDER_CURSOR);
        }
    }

    Dictionary Words;
};

TEST_F(WordPrediction, Letters_AreAskedInLowerCase_OneByOne) {
    Type("AHO");
    EXPECT_EQ(Words.Asked, (std::vector<std::wstring>{L"a", L"ah", L"aho"}));
    EXPECT_TRUE(Words.bByReference);
    EXPECT_EQ(Prediction.strPrefix, L"aho");
    EXPECT_FALSE(Modes.bListMode);
}

TEST_F(WordPrediction, Dictionary_IsCreatedOnceAndKept) {
    EXPECT_EQ(Words.nCreated, 0);
    Type("AHO J");
    EXPECT_EQ(Words.nCreated, 1);
}

TEST_F(WordPrediction, MissingDictionary_PredictsNothing_IsTakenWhenItComes) {
    const auto Class = Desktop.Classes[L"Presager.Dict"];
    Desktop.Classes.clear();
    Type("A");
    EXPECT_EQ(Prediction.strPrefix, L"a");
    EXPECT_EQ(Prediction.objDictionary, nullptr);
    Desktop.Classes[L"Presager.Dict"] = Class;
    Type("H");
    EXPECT_EQ(Words.Asked, std::vector<std::wstring>{L"ah"});
}

TEST_F(WordPrediction, Offer_OpensTheList_CountsWhatWasTyped) {
    Words.Lists[L"ah"] = std::wstring(L"*;ahoj;ahoy");
    Type("A");
    EXPECT_FALSE(Modes.bListMode);
    Type("H");
    EXPECT_TRUE(Modes.bListMode);
    EXPECT_EQ(Prediction.nTypedCount, 2);
    EXPECT_EQ(FrmMain->List1.Items.Get(), (std::vector<std::wstring>{L"ahoj", L"ahoy"}));
}

TEST_F(WordPrediction, OfferWhileAListIsOpen_CountsButKeepsTheList) {
    ShowList(L"*;one");
    Words.Lists[L"a"] = std::wstring(L"*;ahoj");
    UpdatePrediction('A', 0, 0);
    EXPECT_EQ(Prediction.nTypedCount, 1);
    EXPECT_EQ(FrmMain->List1.Items.Get(), std::vector<std::wstring>{L"one"});
    EXPECT_FALSE(ChoiceList.bCompletions);
}

TEST_F(WordPrediction, NoOffer_KeepsTheEarlierCount) {
    Prediction.nTypedCount = 7;
    Type("A");
    EXPECT_EQ(Prediction.nTypedCount, 7);
}

TEST_F(WordPrediction, FailingOrForeignAnswer_OpensNothing) {
    Words.bFails = true;
    Type("A");
    Words.bFails = false;
    Words.Lists[L"ah"] = int32_t{5};
    Type("H");
    Words.Lists[L"aho"] = std::monostate{};
    Type("O");
    EXPECT_FALSE(Modes.bListMode);
    EXPECT_EQ(Prediction.strPrefix, L"aho");
}

TEST_F(WordPrediction, PrefixChangedByTheDictionary_IsThePrefix) {
    Words.strChangedPrefix = L"aho";
    Words.Lists[L"a"] = std::wstring(L"*;ahoj");
    Type("A");
    EXPECT_EQ(Prediction.strPrefix, L"aho");
    EXPECT_EQ(Prediction.nTypedCount, 3);
}

TEST_F(WordPrediction, BlanksInTheDictionarysPrefix_StayBetweenLetters_NotAround) {
    Words.strChangedPrefix = L" a ";
    Type("A");
    Words.strChangedPrefix.clear();
    Type("H");
    EXPECT_EQ(Words.Asked.back(), L"a h");
}

TEST_F(WordPrediction, EndsOfWords_ClearPrefixAndSuffix_AskNothing) {
    const struct {
        const char* szName;
        int32_t nKey, nKind;
    } Rows[] = {
        {"blank", 32, 0}, {"comma", 188, 0}, {"full stop", 190, 0},  {"semicolon", 192, 0},
        {"Enter", 13, 0}, {"!", 33, 1},      {"(", 40, 1},           {")", 41, 1},
        {"+", 43, 1},     {"-", 45, 1},      {"?", 63, 1},           {"Page Up", 33, 0},
        {"Down", 40, 0},  {"Insert", 45, 0}, {"Alt and 33", 33, 40}, {"caron and scan 33", 33, 3},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        Prediction.strPrefix = L"ah";
        Prediction.strSuffix = L"oj";
        UpdatePrediction(Row.nKey, 0, Row.nKind);
        EXPECT_EQ(Prediction.strPrefix, L"");
        EXPECT_EQ(Prediction.strSuffix, L"");
        EXPECT_TRUE(Words.Asked.empty());
    }
}

TEST_F(WordPrediction, OtherActions_AppendTheirCharacter_OrANul) {
    const struct {
        const char* szName;
        int32_t nKey, nKind;
        std::wstring strPrefix;
    } Rows[] = {
        {"letter key", 'B', 0, L"xb"},
        {"Czech letter of the digit row", '2', 0, L"xě"},
        {"typed character", 'b', 1, WithNul(L"x")},
        {"typed blank", 32, 1, WithNul(L"x")},
        {"typed comma", 44, 1, WithNul(L"x")},
        {"acute", 30, 2, WithNul(L"x")},
        {"caron d", 32, 3, L"xď"},
        {"caron n", 49, 3, L"xň"},
        {"caron t", 20, 3, L"xť"},
        {"caron c", 46, 3, WithNul(L"x")},
        {"scan code", 30, 4, WithNul(L"x")},
        {"Shift and a letter", 'B', 10, WithNul(L"x")},
        {"key without a character", 116, 0, WithNul(L"x")},
        {"dead key", 191, 0, WithNul(L"x")},
        {"Backspace", 8, 0, L"x\b"},
        {"command", 0, 0, WithNul(L"x")},
        {"negative key", -65, 0, WithNul(L"x")},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        Prediction.strPrefix = L"x";
        Prediction.strSuffix = L"y";
        Words.Asked.clear();
        UpdatePrediction(Row.nKey, 0, Row.nKind);
        EXPECT_EQ(Prediction.strPrefix, Row.strPrefix);
        EXPECT_EQ(Prediction.strSuffix, L"y");
        EXPECT_EQ(Words.Asked, std::vector<std::wstring>{Row.strPrefix});
    }
}

TEST_F(WordPrediction, Modifier_IsNotUsed) {
    UpdatePrediction('A', 9, 0);
    EXPECT_EQ(Prediction.strPrefix, L"a");
}

TEST_F(WordPrediction, ShiftDelete_IsNoPartOfAWord) {
    Type("A");
    CommonMap.Cell(1, 1)->Code = 10046;
    CommandAction(CELL_UNDER_CURSOR);
    EXPECT_EQ(Prediction.strPrefix, L"a");
}

TEST_F(WordPrediction, ChosenCompletion_ReplacesWhatWasTyped) {
    Words.Lists[L"ah"] = std::wstring(L"*;ahoj;ahoy");
    Type("AH");
    ListAccept();
    EXPECT_EQ(Typed(), L"ahoj");
    EXPECT_EQ(Prediction.strPrefix, L"ahoj");
    Type("E");
    EXPECT_EQ(Words.Asked.back(), L"ahoje");
    EXPECT_EQ(Typed(), L"ahoje");
}

TEST_F(WordPrediction, ChosenCompletion_ArrivesWhole_WhenLettersWereTypedOtherwise) {
    // By scan code, and by a dead key: the prefix knows neither letter.
    Words.Lists[std::wstring(2, L'\0')] = std::wstring(L"*;čáslav ");
    CommonMap.Cell(1, 1)->Code = 4005;
    CommandAction(CELL_UNDER_CURSOR);
    CommonMap.Cell(1, 1)->Code = 2030;
    CommandAction(CELL_UNDER_CURSOR);
    EXPECT_EQ(Typed(), L"čá");
    ListAccept();
    EXPECT_EQ(Typed(), L"čáslav ");
    EXPECT_EQ(Prediction.strPrefix, L"");
}

TEST_F(WordPrediction, LettersTypedWhileTheListIsOpen_BelongToTheWord) {
    Words.Lists[L"ah"] = std::wstring(L"*;ahoj ");
    Type("AHO");
    EXPECT_EQ(Prediction.nTypedCount, 2);  // of when the list was opened
    ListAccept();
    EXPECT_EQ(Typed(), L"ahoj ");
}

TEST_F(WordPrediction, BlankTypedWhileTheListIsOpen_EndsTheWord) {
    Words.Lists[L"ah"] = std::wstring(L"*;ahoj ");
    Type("AH ");
    ListAccept();
    EXPECT_EQ(Typed(), L"ah ahoj ");
}

TEST_F(WordPrediction, VanishedDictionary_LeavesTheOpenListUsable) {
    Words.Lists[L"ah"] = std::wstring(L"*;ahoj ");
    Type("AH");
    Words.bFails = true;
    Type("O");
    ListAccept();
    EXPECT_EQ(Typed(), L"ahoj ");
    Type("AH");
    EXPECT_FALSE(Modes.bListMode);
    EXPECT_EQ(Words.nCreated, 1);
}

TEST_F(WordPrediction, PrefixMadeUpByTheDictionary_DoesNotEraseMore) {
    Type("X ");
    Words.strChangedPrefix = L"abcdef";
    Words.Lists[L"a"] = std::wstring(L"*;ahoj ");
    Type("A");
    EXPECT_EQ(Prediction.nTypedCount, 6);
    ListAccept();
    EXPECT_EQ(Typed(), L"x ahoj ");
}

TEST_F(WordPrediction, BackspacesInThePrefix_AreNotErasedAgain) {
    Type("X ");
    Words.Lists[L"ah\bb\b"] = std::wstring(L"*;auto ");  // not corrected by this dictionary
    Type("AH\bB\b");
    EXPECT_EQ(Prediction.nTypedCount, 5);
    ListAccept();
    EXPECT_EQ(Typed(), L"x auto ");
}

TEST_F(WordPrediction, WordTypedToItsEnd_OnlyGetsItsBlank) {
    Words.Lists[L"ah"] = std::wstring(L"*;ah ");
    Type("AH");
    Desktop.TakeEffects();
    ListAccept();
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"say ah ", "keybd_event: vk 32 scan 57 flags 0",
                                              "keybd_event: vk 32 scan 57 flags 2"}));
}

TEST_F(WordPrediction, PhraseOfACommand_ErasesNothing_EvenAfterAnOffer) {
    Words.Lists[L"ah"] = std::wstring(L"*;ahoj");
    Type("AH");
    HideList();
    CommonMap.Cell(1, 1)->Code = 0;
    CommonMap.Cell(1, 1)->Command = L"*phrases;good";
    Words.Lists[WithNul(L"ah")] = std::wstring(L"*;ahoj");  // a dictionary that stops at the NUL
    CommandAction(CELL_UNDER_CURSOR);
    ListAccept();
    EXPECT_EQ(Typed(), L"ahgood");
}

}  // namespace
}  // namespace taviro
