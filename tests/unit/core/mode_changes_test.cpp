// SPDX-License-Identifier: MIT
// Every change of the operating mode, driven by the joystick through the poll loop: where it leads,
// what the user hears, what the log says, which cell is kept.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "actions/choice_list.h"
#include "actions/foreground_watch.h"
#include "core/poll_loop.h"
#include "feedback/event_log.h"
#include "maps/app_positions.h"
#include "maps/shown_map.h"
#include "settings/button_table.h"
#include "state/mode_state.h"
#include "tests/unit/core/mode_scene.h"

namespace taviro {
namespace {

enum class From {
    Select,
    Arrow,
    Scan,
    Application,
    ListOverScan,
    ListOverApplication,
    ListOverArrowWithItsMap,
};
enum class Happens { ModeButton, OtherProgramInFront, EditorEnds };

struct Transition {
    const char* szName;
    From nFrom;
    Happens nHappens;
    int32_t nScanMode;  // the setting
    bool bHasMap;       // the editor, which is in front
    Mode nTo;
    Effects Heard;  // and the captions that the map's change brings
    Lines Logged;
    bool bRemembers;  // the cell left behind; otherwise C stays remembered
    int32_t nColumn;  // where the cursor stands afterwards
    int32_t nRow;
};

void PrintTo(const Transition& Row, std::ostream* pOut) {
    *pOut << Row.szName;
}

// Showing the editor's map sets the caption before the cursor finds its place there, so that it
// names the cell at the old position.
// clang-format off
const Transition TRANSITIONS[] = {
    {"SelectToArrow",
     From::Select, Happens::ModeButton, 0, true, Mode::Arrow,
     {Said("Šipky")}, {L"Say: Šipky", L"Arrow mode set"}, true, 2, 3},
    {"ArrowToScan_WhenScanningIsOn",
     From::Arrow, Happens::ModeButton, 1, true, Mode::Scan,
     {Said("Sken")}, {L"Say: Sken", L"ScanMode set"}, false, 2, 3},
    {"ArrowToApplication_WhenItHasAMap",
     From::Arrow, Happens::ModeButton, 0, true, Mode::Application,
     {"caption Taviro - V", Said("aplikace X")}, {L"AppMode set", L"Say: aplikace X"},
     false, 1, 1},
    {"ArrowToApplication_WhenScanSettingIsNotExactlyOne",
     From::Arrow, Happens::ModeButton, 2, true, Mode::Application,
     {"caption Taviro - V", Said("aplikace X")}, {L"AppMode set", L"Say: aplikace X"},
     false, 1, 1},
    {"ArrowToSelect_WhenApplicationHasNoMap",
     From::Arrow, Happens::ModeButton, 0, false, Mode::Select,
     {Said("výběr H")}, {L"Say: výběr H"}, false, 2, 3},
    {"ScanToApplication_WhenItHasAMap",
     From::Scan, Happens::ModeButton, 1, true, Mode::Application,
     {"caption Taviro - V", Said("aplikace X")}, {L"AppMode set", L"Say: aplikace X"},
     true, 1, 1},
    {"ScanToSelect_WhenApplicationHasNoMap",
     From::Scan, Happens::ModeButton, 1, false, Mode::Select,
     {Said("výběr H")}, {L"Say: výběr H"}, true, 2, 3},
    {"ApplicationToSelect",
     From::Application, Happens::ModeButton, 1, true, Mode::Select,
     {"caption Taviro - C", Said("výběr C")}, {L"Say: výběr C"}, false, 3, 1},
    {"ApplicationToSelect_WhenAProgramWithoutMapComesToFront",
     From::Application, Happens::OtherProgramInFront, 1, true, Mode::Select,
     {"caption Taviro - C", Said("výběr C")}, {L"Say: výběr C"}, false, 3, 1},
    {"ApplicationToSelect_WhenNothingIsInFrontAnyMore",
     From::Application, Happens::EditorEnds, 1, true, Mode::Select,
     {"caption Taviro - C", Said("výběr C")}, {L"Say: výběr C"}, false, 3, 1},
    {"ChoiceListToSelect_WhenOpenedInScanMode",
     From::ListOverScan, Happens::ModeButton, 1, true, Mode::Select,
     {Said("Výběr")}, {L"Say: Výběr", L"SelectMode set"}, true, 2, 3},
    {"ChoiceListBackToApplication_WhenOpenedInApplicationMode",
     From::ListOverApplication, Happens::ModeButton, 1, true, Mode::Application,
     {Said("Aplikace")}, {L"Say: Aplikace", L"AppMode set"}, false, 2, 2},
    {"ChoiceListToSelectOnTheCommonMap_WhenOpenedOverAMapThatArrowsKept",
     From::ListOverArrowWithItsMap, Happens::ModeButton, 1, true, Mode::Select,
     {Said("Výběr"), "caption Taviro - C"}, {L"Say: Výběr", L"SelectMode set"}, false, 3, 1},
};
// clang-format on

class ModeTransition : public ModeScene, public ::testing::WithParamInterface<Transition> {
  protected:
    void Prepare(const Transition& Row) {
        PutData(L"setting.ini", L"[Info]\r\nScanMode=" + std::to_wstring(Row.nScanMode) + L"\r\n");
        if (Row.bHasMap) GiveEditorAMap();
        Start();
        constexpr Mode MODES[] = {Mode::Select,      Mode::Arrow, Mode::Scan,
                                  Mode::Application, Mode::Scan,  Mode::Application,
                                  Mode::Application};
        BeIn(MODES[static_cast<size_t>(Row.nFrom)]);
        if (Row.nFrom == From::ListOverArrowWithItsMap) Modes.Set(Mode::Arrow);
        const bool bList = Row.nFrom >= From::ListOverScan;
        if (bList) ShowList(L"*nabídka;Jedna;Dvě");
        RunScan();
        StartLog();
        Desktop.TakeEffects();
    }
    static void LetHappen(Happens nWhat) {
        if (nWhat == Happens::ModeButton) PressButton(MODE_BUTTON);
        if (nWhat == Happens::OtherProgramInFront) Desktop.hForeground = OTHER_WINDOW;
        if (nWhat == Happens::EditorEnds) Desktop.hForeground = 0;
    }
};

TEST_P(ModeTransition, IsHeardLoggedAndKeepsItsCell) {
    const Transition& Row = GetParam();
    Prepare(Row);
    const CursorState Before = Cursor;
    LetHappen(Row.nHappens);
    Ticks(1);

    constexpr int FLAGS[] = {1, 2, 4, 8};  // exactly one is set
    EXPECT_EQ(ModeFlags(), FLAGS[static_cast<size_t>(Row.nTo)]);
    EXPECT_EQ(Desktop.TakeEffects(), Row.Heard);
    EXPECT_EQ(LoggedLines(), Row.Logged);
    EXPECT_FALSE(forms::FrmMain->ScanTimer.Enabled) << "scanning ends with every change";
    EXPECT_EQ(Cursor.nLastColumn, Row.bRemembers ? Before.nColumn : 3);
    EXPECT_EQ(Cursor.nLastRow, Row.bRemembers ? Before.nRow : 1);
    EXPECT_EQ(Cursor.nColumn, Row.nColumn);
    EXPECT_EQ(Cursor.nRow, Row.nRow);
    EXPECT_FALSE(Modes.bListMode);
    EXPECT_FALSE(forms::FrmMain->List1.Visible);
    EXPECT_EQ(Foreground.bAppMapShown, Row.nTo == Mode::Application) << "never between";
    if (Row.nFrom == From::ListOverArrowWithItsMap) {
        EXPECT_EQ(Foreground.hWindow, 0U) << "the program is looked at anew when it is asked for";
        EXPECT_EQ(Foreground.nProcess, 0U);
    }
}

TEST_P(ModeTransition, ChangesModeOnce_WhileTheButtonIsHeld) {
    const Transition& Row = GetParam();
    Prepare(Row);
    LetHappen(Row.nHappens);
    Ticks(1);
    const int nFlags = ModeFlags();
    Desktop.TakeEffects();
    Ticks(5);
    EXPECT_EQ(ModeFlags(), nFlags);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

INSTANTIATE_TEST_SUITE_P(All, ModeTransition, ::testing::ValuesIn(TRANSITIONS),
                         [](const auto& Info) { return std::string(Info.param.szName); });

class ModeSwitchingTest : public ModeScene {};

TEST_F(ModeSwitchingTest, ModeButton_GoesRound_WhenScanningIsOnAndApplicationHasAMap) {
    PutData(L"setting.ini", L"[Info]\r\nScanMode=1\r\n");
    GiveEditorAMap();
    Start();
    EXPECT_EQ(ModeFlags(), 0) << "no flag at the start, which counts as selection";
    for (const int nFlags : {4, 2, 8, 1, 4}) {
        PressButton(MODE_BUTTON);
        Ticks(1);
        EXPECT_EQ(ModeFlags(), nFlags);
        ReleaseButtons();
        Ticks(1);
    }
}

TEST_F(ModeSwitchingTest, ModeButton_ClosesListBox_WhenItIsStillShown) {
    GiveEditorAMap();
    for (const Mode nMode : {Mode::Select, Mode::Arrow, Mode::Scan, Mode::Application}) {
        StartAnew();
        Start();
        BeIn(nMode);
        forms::FrmMain->List1.Visible = true;
        PressButton(MODE_BUTTON);
        Ticks(1);
        EXPECT_FALSE(forms::FrmMain->List1.Visible) << static_cast<int>(nMode);
        ReleaseButtons();
    }
}

TEST_F(ModeSwitchingTest, LosingApplication_ClosesListBox_WhenAKeyOpenedOneMeanwhile) {
    GiveEditorAMap();
    Start();
    BeIn(Mode::Application);
    Desktop.Files.Put(L"C:\\Program Files\\Taviro\\sound\\mode_select.wav", "RIFF");
    Desktop.hForeground = OTHER_WINDOW;
    Desktop.At(Desktop.nNow + 150, [] { ShowList(L"*nabídka;Jedna"); });
    Ticks(1);
    EXPECT_TRUE(Modes.bSelectMode);
    EXPECT_FALSE(Modes.bListMode);
    EXPECT_FALSE(forms::FrmMain->List1.Visible);
}

TEST_F(ModeSwitchingTest, LeavingApplication_SavesItsCellAndForgetsIt_WhenModeButtonIsPressed) {
    GiveEditorAMap();
    Start();
    BeIn(Mode::Application);
    ASSERT_EQ(Foreground.strCurrentAppName, L"EDITOR.EXE");
    PressButton(MODE_BUTTON);
    Ticks(1);
    EXPECT_EQ(Foreground.strCurrentAppName, L"");
    EXPECT_EQ(Foreground.hWindow, 0U);
    EXPECT_EQ(Foreground.nProcess, 0U);
    int32_t nColumn = 0, nRow = 0;
    GetAppPosition(L"EDITOR.EXE", nColumn, nRow);
    EXPECT_EQ(nColumn, 2);
    EXPECT_EQ(nRow, 2);
}

TEST_F(ModeSwitchingTest, ReturnToApplication_FindsItsCell_WhenItWasLeftBefore) {
    GiveEditorAMap();
    Start();
    BeIn(Mode::Application);
    for (int n = 0; n < 3; ++n) {  // select, arrow, application
        PressButton(MODE_BUTTON);
        Ticks(1);
        ReleaseButtons();
        Ticks(1);
    }
    EXPECT_TRUE(Modes.bAppMode);
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(Cursor.nRow, 2);
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"W");
}

TEST_F(ModeSwitchingTest, List_EndsTheScan_WhoeverOpensIt) {
    Start();
    BeIn(Mode::Scan);
    RunScan();
    ButtonTable[5] = {.Kind = ButtonKind::Command, .Command = L"*nabídka;Jedna", .Code = 0};
    PressButton(5);
    Ticks(1);
    EXPECT_TRUE(Modes.bListMode);
    EXPECT_FALSE(forms::FrmMain->ScanTimer.Enabled);
}

TEST_F(ModeSwitchingTest, PickedMap_StaysAndKeepsTheCommonCell_WhenAListOverItIsLeft) {
    GiveEditorAMap();
    Start();
    BeIn(Mode::Select);
    ShowPickedMap(L"EDITOR.EXE");
    StandOn(2, 2);
    ShowList(L"*nabídka;Jedna");
    PressButton(MODE_BUTTON);
    Ticks(1);
    EXPECT_TRUE(Modes.bSelectMode);
    EXPECT_TRUE(Foreground.bAppMapShown);
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(Cursor.nLastColumn, 3) << "the picked map's cell is not the common one's";
    EXPECT_EQ(Cursor.nLastRow, 1);
}

TEST_F(ModeSwitchingTest, LosingApplication_ForgetsItAndKeepsTickMemories_WhenMapIsGone) {
    GiveEditorAMap();
    Start();
    BeIn(Mode::Application);
    TiltRight();
    PressButton(2);  // unassigned
    Ticks(1);
    const PollState Before = Poll;
    ASSERT_EQ(Before.nPrevTilt, Tilt::Right);
    ASSERT_EQ(Before.nPrevButton, 1);
    CentreStick();
    ReleaseButtons();
    Desktop.hForeground = OTHER_WINDOW;
    Ticks(1);
    EXPECT_TRUE(Modes.bSelectMode);
    EXPECT_EQ(Foreground.hWindow, 0U);
    EXPECT_EQ(Foreground.nProcess, 0U);
    EXPECT_EQ(Poll.nPrevTilt, Tilt::Right);
    EXPECT_EQ(Poll.nPrevButton, 1);
    EXPECT_EQ(Poll.nTiltCount, Before.nTiltCount);
}

}  // namespace
}  // namespace taviro
