// SPDX-License-Identifier: MIT
#include "actions/command_action.h"

#include <limits>

#include "actions/choice_list.h"
#include "actions/prediction.h"
#include "settings/button_table.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

using forms::FrmMain;

const std::string TAP_A = "SendInput: vk 65 down, vk 65 up";
const std::string AT_FIRST_COLUMN = "caption Taviro - e";  // where a reset leads from (3, 2)
const Effects EMPTY_ACTION{"silence", "launch \"\""};

class CommandRun : public ActionTest {
  protected:
    CommandRun() { MoveTo(3, 2); }

    static void MoveTo(int32_t nColumn, int32_t nRow) {
        Cursor.nColumn = nColumn;
        Cursor.nRow = nRow;
        HighlightCursor();
        Desktop.TakeEffects();
    }
    // Runs the cell under the cursor with the given action.
    static Effects Run(const std::wstring& strCommand, int32_t nCode = 0) {
        MapCell* pCell = ShownMap().Cell(Cursor.nColumn, Cursor.nRow);
        pCell->Command = strCommand;
        pCell->Code = nCode;
        CommandAction(CELL_UNDER_CURSOR);
        return Desktop.TakeEffects();
    }
    static Effects RunButton(int32_t nButton) {
        CommandAction(nButton);
        return Desktop.TakeEffects();
    }
    static std::wstring Here() {
        return std::to_wstring(Cursor.nColumn) + L"," + std::to_wstring(Cursor.nRow);
    }
    static std::wstring Highlighted() { return FrmMain->Label1.Caption; }
};

struct LaunchRow {
    const char* szName;
    std::wstring strCommand;
    std::string strLaunched;
};

TEST_F(CommandRun, LaunchTexts_OpenProgramWithArguments) {
    const std::string strFolder = "C:\\Program Files\\Taviro";
    const LaunchRow Rows[] = {
        {"program", L"notepad", "launch \"notepad\""},
        {"document", L"report.doc", "launch \"report.doc\""},
        {"arguments", L"notepad:c.txt", "launch \"notepad\" with \"c.txt\""},
        {"empty arguments", L"notepad:", "launch \"notepad\""},
        {"no program", L":c.txt", "launch \"\" with \"c.txt\""},
        {"arguments with a colon", L"p:a:b", "launch \"p\" with \"a:b\""},
        {"drive letter splits", L"C:\\x.exe", "launch \"C\" with \"\\x.exe\""},
        {"quoted path", L"\"C:\\x y.exe\"", "launch \"\"C:\\x y.exe\"\""},
        {"quote anywhere", L"p:\"a b\"", "launch \"p:\"a b\"\""},
        {"program folder", L"\\games\\x.exe", "launch \"" + strFolder + "\\games\\x.exe\""},
        {"program folder and arguments", L"\\x.exe:1",
         "launch \"" + strFolder + "\\x.exe\" with \"1\""},
        {"backslash alone", L"\\", "launch \"" + strFolder + "\\\""},
        {"backslash inside", L"a\\b", "launch \"a\\b\""},
        {"caret at the end", L"calc^", "launch \"calc\""},
        {"caret in front of a backslash", L"^\\x.exe", "launch \"" + strFolder + "\\x.exe\""},
        {"carets in both parts", L"x^:y^z", "launch \"x\" with \"y^z\""},
        {"carets of the arguments", L"x:y^z", "launch \"x\" with \"y^z\""},
        {"caret alone", L"^", "launch \"\""},
        {"nothing", L"", "launch \"\""},
        {"blanks are kept", L" a ", "launch \" a \""},
        {"Czech", L"účty.exe:příjmy", "launch \"účty.exe\" with \"příjmy\""},
        {"prefix in second place", L"a|b", "launch \"a|b\""},
        {"star in second place", L"a*b", "launch \"a*b\""},
    };
    for (const LaunchRow& Row : Rows) {
        SCOPED_TRACE(Row.szName);
        Effects Wanted{"silence", Row.strLaunched};
        if (Row.strCommand.find(L'^') != std::wstring::npos) Wanted.emplace_back(AT_FIRST_COLUMN);
        EXPECT_EQ(Run(Row.strCommand), Wanted);
        MoveTo(3, 2);
    }
}

TEST_F(CommandRun, FailingLaunch_IsSilent_RestIsCarriedOut) {
    Desktop.nShellResult = 2;
    EXPECT_EQ(Run(L"nothing^"), (Effects{"silence", "launch \"nothing\"", AT_FIRST_COLUMN}));
    EXPECT_EQ(Here(), L"1,2");
}

TEST_F(CommandRun, Key_IsPressed_CommandIsNot) {
    EXPECT_EQ(Run(L"notepad", 65), (Effects{"silence", TAP_A}));
    EXPECT_EQ(Typed(), L"a");
}

TEST_F(CommandRun, KeyNumberOfZeroOrLess_RunsTheCommand) {
    for (const int32_t nCode :
         {0, -1, -65, -10065, 10000, 91000, 1000, std::numeric_limits<int32_t>::min()}) {
        SCOPED_TRACE(nCode);
        EXPECT_EQ(Run(L"calc", nCode), (Effects{"silence", "launch \"calc\""}));
    }
}

TEST_F(CommandRun, Caret_SendsTheHighlightToTheFirstColumn) {
    Run(L"calc^");
    EXPECT_EQ(Here(), L"1,2");
    EXPECT_EQ(Highlighted(), L"e");
    MoveTo(3, 2);
    EXPECT_EQ(Run(L"^", 65), (Effects{"silence", TAP_A, AT_FIRST_COLUMN}));
    EXPECT_EQ(Here(), L"1,2");
    MoveTo(3, 2);
    Run(L"|^");
    EXPECT_EQ(Here(), L"1,2");
    Cursor.nLastColumn = 4;
    Cursor.nLastRow = 3;
    Run(L"<^");
    EXPECT_EQ(Here(), L"1,3") << "in the row of the cell to which the prefix leads back";
    MoveTo(3, 2);
    Run(L"*T;a^b");
    EXPECT_EQ(Here(), L"1,2");
    EXPECT_EQ(FrmMain->List1.ItemText(0), L"a^b");
}

TEST_F(CommandRun, TriggerSettings_CrossOver) {
    const struct {
        int32_t nColumnReset, nRowReset;
        const wchar_t* strHere;
        const wchar_t* strHighlighted;
    } Rows[] = {{0, 0, L"3,2", L"g"}, {1, 0, L"3,1", L"c"}, {0, 1, L"1,2", L"e"},
                {1, 1, L"1,1", L"a"}, {2, 2, L"3,2", L"g"}, {-1, 5, L"3,2", L"g"}};
    for (const auto& Row : Rows) {
        SCOPED_TRACE(testing::Message() << Row.nColumnReset << " " << Row.nRowReset);
        objSetting.TriggerColumnReset(Row.nColumnReset);
        objSetting.TriggerRowReset(Row.nRowReset);
        MoveTo(3, 2);
        Run(L"", 65);
        EXPECT_EQ(Here(), Row.strHere);
        EXPECT_EQ(Highlighted(), Row.strHighlighted);
    }
}

TEST_F(CommandRun, TriggerSettings_DoNotConcernButtons) {
    objSetting.TriggerColumnReset(1);
    objSetting.TriggerRowReset(1);
    ButtonTable[3] = {.Kind = ButtonKind::Code, .Command = L"", .Code = 65};
    EXPECT_EQ(RunButton(3), (Effects{"silence", TAP_A}));
    EXPECT_EQ(Here(), L"3,2");
}

TEST_F(CommandRun, Button_RunsItsRecord_CaretMovesTheHighlight) {
    ButtonTable[0] = {.Kind = ButtonKind::Command, .Command = L"calc^", .Code = 0};
    ButtonTable[15] = {.Kind = ButtonKind::Command, .Command = L"mail:new", .Code = 0};
    EXPECT_EQ(RunButton(15), (Effects{"silence", "launch \"mail\" with \"new\""}));
    EXPECT_EQ(Here(), L"3,2");
    EXPECT_EQ(RunButton(0), (Effects{"silence", "launch \"calc\"", AT_FIRST_COLUMN}));
    EXPECT_EQ(Here(), L"1,2");
}

TEST_F(CommandRun, Button_RunsWhatItsKindSays_AndNotWhatItDidBefore) {
    ButtonTable[3] = {.Kind = ButtonKind::Command, .Command = L"calc", .Code = 65};
    EXPECT_EQ(RunButton(3), (Effects{"silence", "launch \"calc\""}));
    ButtonTable[3] = {.Kind = ButtonKind::Code, .Command = L"|calc^", .Code = 65};
    EXPECT_EQ(RunButton(3), (Effects{"silence", TAP_A}));
    EXPECT_FALSE(Modes.bArrowMode);
    EXPECT_EQ(Here(), L"3,2");
    ButtonTable[3] = {.Kind = ButtonKind::Code, .Command = L"calc", .Code = 20000};
    EXPECT_EQ(RunButton(3), EMPTY_ACTION);
    for (const ButtonKind nKind : {ButtonKind::Action, ButtonKind::Mode, ButtonKind::Unassigned}) {
        ButtonTable[3] = {.Kind = nKind, .Command = L"calc", .Code = 65};
        EXPECT_EQ(RunButton(3), EMPTY_ACTION) << static_cast<int>(nKind);
    }
}

// The fetch fails and is skipped: what follows runs with an empty text and code 0.
TEST_F(CommandRun, IndexOutsideTheTable_RunsTheEmptyAction) {
    ButtonTable.fill({.Kind = ButtonKind::Command, .Command = L"calc^", .Code = 65});
    objSetting.TriggerColumnReset(1);
    objSetting.TriggerRowReset(1);
    for (const int32_t nIndex :
         {-2, 16, 1000, std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()}) {
        SCOPED_TRACE(nIndex);
        Prediction.strPrefix = L"a";
        EXPECT_EQ(RunButton(nIndex), EMPTY_ACTION);
        EXPECT_EQ(Here(), L"3,2") << "the reset concerns cells alone";
        EXPECT_EQ(Prediction.strPrefix, std::wstring(L"a\0", 2));
    }
}

TEST_F(CommandRun, CursorOutsideTheGrid_RunsTheEmptyAction_IsBroughtBackByTheReset) {
    const struct {
        int32_t nColumn, nRow;
    } Places[] = {{41, 2}, {-1, 2}, {3, 21}, {3, -1}, {std::numeric_limits<int32_t>::max(), 2}};
    for (const auto& Place : Places) {
        SCOPED_TRACE(testing::Message() << Place.nColumn << "," << Place.nRow);
        objSetting.TriggerColumnReset(0);
        objSetting.TriggerRowReset(0);
        Cursor.nColumn = Place.nColumn;
        Cursor.nRow = Place.nRow;
        EXPECT_EQ(RunButton(CELL_UNDER_CURSOR), EMPTY_ACTION);
        EXPECT_EQ(Cursor.nColumn, Place.nColumn);
        EXPECT_EQ(Cursor.nRow, Place.nRow);
        objSetting.TriggerColumnReset(1);
        objSetting.TriggerRowReset(1);
        RunButton(CELL_UNDER_CURSOR);
        EXPECT_EQ(Here(), L"1,1");
        EXPECT_EQ(Highlighted(), L"a");
        EXPECT_EQ(FrmMain->Caption.Get(), L"Taviro - a");
    }
}

// Row and column 0 belong to the grid: cells without a text, whose action is empty as well.
TEST_F(CommandRun, CursorAtZero_RunsTheEmptyAction) {
    Cursor.nColumn = 0;
    EXPECT_EQ(RunButton(CELL_UNDER_CURSOR), EMPTY_ACTION);
    EXPECT_EQ(Highlighted(), L"g") << "no setting moved the highlight";
}

TEST_F(CommandRun, ShownApplicationMap_GivesTheCell) {
    AppMap.Cell(3, 2)->Command = L"from the application map";
    CommonMap.Cell(3, 2)->Command = L"from the common map";
    Foreground.bAppMapShown = true;
    CommandAction(CELL_UNDER_CURSOR);
    Foreground.bAppMapShown = false;
    CommandAction(CELL_UNDER_CURSOR);
    EXPECT_EQ(Desktop.TakeEffects(), (Effects{"silence", "launch \"from the application map\"",
                                              "silence", "launch \"from the common map\""}));
}

TEST_F(CommandRun, ShiftDelete_EndsTheAction_NoResetNoCaretNoPrediction) {
    objSetting.TriggerRowReset(1);
    EXPECT_EQ(Run(L"^", 10046),
              (Effects{"silence", "SendInput: vk 16 down", "SendInput: scan 54 down",
                       "SendInput: vk 46 down, vk 46 up", "SendInput: vk 16 up",
                       "SendInput: scan 54 up"}));
    EXPECT_EQ(Here(), L"3,2");
    EXPECT_EQ(Prediction.strPrefix, L"");
}

TEST_F(CommandRun, EveryOtherAction_UpdatesThePrediction) {
    Run(L"", 65);
    EXPECT_EQ(Prediction.strPrefix, L"a");
    Run(L"", 3032);
    EXPECT_EQ(Prediction.strPrefix, L"aď");
    Run(L"calc");
    EXPECT_EQ(Prediction.strPrefix, std::wstring(L"aď\0", 3));
    Run(L"", 32);
    EXPECT_EQ(Prediction.strPrefix, L"");
}

TEST_F(CommandRun, ArrowPrefix_SwitchesOnce_RunsTheRest) {
    EXPECT_EQ(Run(L"|calc"), (Effects{"silence", "say Šipky", "launch \"calc\""}));
    EXPECT_TRUE(Modes.bArrowMode);
    EXPECT_FALSE(Modes.bSelectMode || Modes.bScanMode || Modes.bAppMode);
    EXPECT_EQ(Run(L"|calc"), (Effects{"silence", "launch \"calc\""}));
    EXPECT_TRUE(Modes.bArrowMode);
}

TEST_F(CommandRun, PrefixAlone_OnlySwitches) {
    Modes.Set(Mode::Scan);
    EXPECT_EQ(Run(L"|"), (Effects{"silence", "say Šipky", "launch \"\""}));
    EXPECT_TRUE(Modes.bArrowMode);
    EXPECT_FALSE(Modes.bScanMode);
    EXPECT_EQ(Here(), L"3,2");
}

TEST_F(CommandRun, Prefix_WorksWithAKeyToo) {
    EXPECT_EQ(Run(L"|", 65), (Effects{"silence", "say Šipky", TAP_A}));
    EXPECT_TRUE(Modes.bArrowMode);
}

TEST_F(CommandRun, OnlyTheFirstCharacter_IsAPrefix) {
    EXPECT_EQ(Run(L"|>x"), (Effects{"silence", "say Šipky", "launch \">x\""}));
    EXPECT_TRUE(Modes.bArrowMode);
    EXPECT_EQ(Run(L" >x"), (Effects{"silence", "launch \" >x\""}));
    EXPECT_FALSE(Modes.bAppMode);
}

TEST_F(CommandRun, ApplicationPrefix_DetectsTheApplication_RunsTheCellThatWasChosen) {
    Desktop.Windows = {{11, L"a.txt", L"", 1, 101}};
    Desktop.Processes = {{1, L"notepad.exe"}};
    Desktop.hForeground = 11;
    PutData(L"data_NOTEPAD.EXE.ini", L"[1,1]N1,65,other\r\n");
    EXPECT_EQ(Run(L">calc")[1], "say Aplikace");
    EXPECT_TRUE(Modes.bAppMode);
    EXPECT_FALSE(Modes.bSelectMode || Modes.bScanMode || Modes.bArrowMode);
    EXPECT_TRUE(Foreground.bAppMapShown);
    EXPECT_EQ(Foreground.strCurrentAppName, L"NOTEPAD.EXE");
    EXPECT_EQ(Here(), L"1,1");
}

TEST_F(CommandRun, ApplicationPrefix_LaunchesItsRest) {
    const Effects Done = Run(L">notepad");
    EXPECT_EQ(Done.front(), "silence");
    EXPECT_EQ(Done.back(), "launch \"notepad\"");
}

TEST_F(CommandRun, ApplicationPrefix_NeitherAnnouncesNorDetects_WhenTheModeIsActive) {
    Modes.Set(Mode::Application);
    Desktop.Windows = {{11, L"a.txt", L"", 1, 101}};
    Desktop.Processes = {{1, L"notepad.exe"}};
    Desktop.hForeground = 11;
    PutData(L"data_NOTEPAD.EXE.ini", L"[1,1]N1,65\r\n");
    EXPECT_EQ(Run(L">"), (Effects{"silence", "launch \"\""}));
    EXPECT_FALSE(Foreground.bAppMapShown);
}

TEST_F(CommandRun, SelectionPrefix_ReturnsToTheRememberedCell) {
    Modes.Set(Mode::Application);
    Foreground.bAppMapShown = true;
    Cursor.nLastColumn = 4;
    Cursor.nLastRow = 3;
    const Effects Done = Run(L"<");
    EXPECT_EQ(Done[0], "silence");
    EXPECT_EQ(Done[1], "say Výběr");
    EXPECT_EQ(Done.back(), "launch \"\"");
    EXPECT_TRUE(Modes.bSelectMode);
    EXPECT_FALSE(Modes.bAppMode || Modes.bScanMode || Modes.bArrowMode);
    EXPECT_FALSE(Foreground.bAppMapShown);
    EXPECT_EQ(Here(), L"4,3");
    EXPECT_EQ(Highlighted(), L"l");
}

TEST_F(CommandRun, SelectionPrefix_ChangesNothing_WhenTheModeIsActive) {
    Modes.Set(Mode::Select);
    EXPECT_EQ(Run(L"<"), (Effects{"silence", "launch \"\""}));
    EXPECT_EQ(Here(), L"3,2");
}

TEST_F(CommandRun, Star_OpensTheChoiceList) {
    EXPECT_EQ(Run(L"*Programs;Notepad,notepad;Help,\\help.exe"),
              (Effects{"silence", "say Notepad"}));
    EXPECT_TRUE(Modes.bListMode);
    EXPECT_EQ(FrmMain->List1.ListCount(), 2);
}

TEST_F(CommandRun, StarAfterAPrefix_SwitchesAndOpensTheList) {
    EXPECT_EQ(Run(L"|*T;a"), (Effects{"silence", "say Šipky", "say a"}));
    EXPECT_TRUE(Modes.bListMode);
    EXPECT_TRUE(Modes.bArrowMode);
}

TEST_F(CommandRun, Sounds_AreAnnouncedInsteadOfSpeech) {
    Desktop.Files.Put(Desktop.strProgramFolder + L"\\sound\\mode_arrow.wav", "x");
    EXPECT_EQ(Run(L"|")[1], "sound C:\\Program Files\\Taviro\\sound\\mode_arrow.wav");
}

TEST_F(CommandRun, ResolvePath_PutsTheProgramFolderBeforeABackslash) {
    EXPECT_EQ(ResolvePath(L"\\help.exe"), L"C:\\Program Files\\Taviro\\help.exe");
    EXPECT_EQ(ResolvePath(L"help.exe"), L"help.exe");
    EXPECT_EQ(ResolvePath(L"a\\b"), L"a\\b");
    EXPECT_EQ(ResolvePath(L""), L"");
}

TEST_F(CommandRun, MegabyteOfCommand_IsCarriedOut) {
    const std::wstring strLong(1 << 20, L'x');
    EXPECT_EQ(Run(strLong)[1].size(), strLong.size() + std::string("launch \"\"").size());
    Run(std::wstring(1 << 20, L'^'));
    EXPECT_EQ(Here(), L"1,2");
    Run(L"*" + strLong + L";" + strLong);
    EXPECT_EQ(FrmMain->List1.ItemText(0), strLong);
}

TEST_F(CommandRun, LowestKeyNumber_IsPressed_AndNothingLaunched) {
    EXPECT_EQ(Run(L"calc", 1), (Effects{"silence", "SendInput: vk 1 down, vk 1 up"}));
}

}  // namespace
}  // namespace taviro
