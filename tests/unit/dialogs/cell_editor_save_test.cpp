// SPDX-License-Identifier: MIT
// What the cell editor does to maps: where it writes, what it must not touch, and that nothing a
// user enters makes a map file unreadable.
#include <algorithm>
#include <filesystem>

#include "forms/main_form.h"
#include "maps/key_names.h"
#include "maps/shown_map.h"
#include "platform/files.h"
#include "tests/unit/dialogs/cell_editor_fixture.h"
#include "tests/unit/source_tree.h"
#include "tools/simulator/host_files.h"
#include "vocabulary/action_code.h"

namespace taviro {
namespace {

constexpr const wchar_t* GRID = L"[1,1]a,65\r\n[2,1]b,66\r\n[1,2]c,67\r\n[2,2]d,68\r\n";

TEST_F(CellEditorTest, Cell_IsRemoved_WhenItsCaptionIsCleared) {
    ShowCommon(GRID);
    OpenAt(2, 1);
    frmConfig->Text4.Type(L"");
    Ok();
    EXPECT_EQ(CommonFile(), L"[1,1]a,65\r\n[1,2]c,67\r\n[2,2]d,68\r\n");
    EXPECT_EQ(CommonMap.Cell(2, 1)->Code, 0);
}

TEST_F(CellEditorTest, Map_EndsBeforeTheRow_WhenItsFirstCellIsRemoved) {
    ShowCommon(GRID);
    OpenAt(1, 2);
    frmConfig->Text4.Type(L"");
    Ok();
    EXPECT_EQ(CommonFile(), L"[1,1]a,65\r\n[2,1]b,66\r\n");
}

TEST_F(CellEditorTest, Cell_IsCopied_WhenAnotherPositionIsChosen) {
    ShowCommon(GRID);
    OpenAt(2, 1);
    frmConfig->ComboX.Select(2);
    frmConfig->ComboY.Select(1);
    Ok();
    EXPECT_EQ(CommonFile(), std::wstring(GRID) + L"[3,2]b,66\r\n");
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(Cursor.nRow, 1);
}

TEST_F(CellEditorTest, Highlight_ReturnsToTheOpenedCell_WhenItMovedMeanwhile) {
    ShowCommon(GRID);
    OpenAt(2, 1);
    Cursor.nColumn = 1;
    Cursor.nRow = 2;
    SetHi(1, 2);
    Ok();
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(Cursor.nRow, 1);
    EXPECT_EQ(forms::FrmMain->HiIndex, 2);
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"b");
}

TEST_F(CellEditorTest, ChangedCaption_IsOnScreenAtOnce) {
    ShowCommon(GRID);
    OpenAt(2, 2);
    frmConfig->Text4.Type(L"nový");
    Ok();
    EXPECT_EQ(forms::FrmMain->CellLabel(52)->Caption.Get(), L"nový");
    EXPECT_EQ(forms::FrmMain->Label1.Caption.Get(), L"nový");
}

TEST_F(CellEditorTest, Cell_IsInItsFile_BeforeTheEditorIsGone) {
    ShowCommon(GRID);
    OpenAt(2, 1);
    frmConfig->Text4.Type(L"nová");
    Desktop.TakeEffects();
    Ok();
    const auto Done = Desktop.TakeEffects();
    ASSERT_FALSE(Done.empty());
    EXPECT_EQ(
        std::count(Done.begin(), Done.end(), "save " + platform::ToUtf8(DATA_PATH) + "\\data.ini"),
        1);
    EXPECT_EQ(Done.back(), "frmConfig hidden");
}

TEST_F(CellEditorTest, Nothing_IsSaved_WhenClosedWithoutOk) {
    ShowCommon(GRID);
    OpenAt(1, 1);
    Desktop.TakeEffects();
    frmConfig->Text4.Type(L"other");
    frmConfig->cmdCancel.Click();
    EXPECT_EQ(Desktop.TakeEffects(), std::vector<std::string>{"frmConfig hidden"});
    EXPECT_EQ(CommonFile(), GRID);
    EXPECT_EQ(CommonMap.Cell(1, 1)->Caption, L"a");
}

TEST_F(CellEditorTest, NewCell_StandsAtAnEmptyPosition) {
    ShowCommon(GRID);
    OpenAt(3, 1);
    frmConfig->Text4.Type(L"nová");
    Ok();
    EXPECT_EQ(CommonFile(), L"[1,1]a,65\r\n[2,1]b,66\r\n[3,1]nová,0\r\n[1,2]c,67\r\n[2,2]d,68\r\n");
}

TEST_F(CellEditorTest, ApplicationMap_IsEdited_WhileItIsOnScreen) {
    ShowCommon(GRID);
    ShowApplication(L"A.EXE", L"[1,1]x,65\r\n[2,1]y,66\r\n");
    OpenAt(2, 1);
    EXPECT_EQ(Text(frmConfig->Text4), "y");
    frmConfig->Text4.Type(L"z");
    Ok();
    EXPECT_EQ(DataText(L"data_A.EXE.ini"), L"[1,1]x,65\r\n[2,1]z,66\r\n");
    EXPECT_EQ(CommonFile(), GRID);
    EXPECT_EQ(Cursor.nColumn, 2);
    EXPECT_EQ(forms::FrmMain->HiIndex, 2);
}

TEST_F(CellEditorTest, ApplicationMap_ComesBackForTheCell_WhenItLeftTheScreenMeanwhile) {
    ShowCommon(GRID);
    ShowApplication(L"A.EXE", L"[1,1]x,65\r\n[2,1]y,66\r\n");
    OpenAt(2, 1);
    AppMap.Clear();  // as when an application without a map comes to the front
    ShowMap(true);
    frmConfig->Text4.Type(L"z");
    Ok();
    EXPECT_EQ(CommonFile(), GRID);
    EXPECT_EQ(DataText(L"data_A.EXE.ini"), L"[1,1]x,65\r\n[2,1]z,66\r\n");
    EXPECT_TRUE(Foreground.bAppMapShown);
    EXPECT_EQ(Foreground.AppMapName, L"A.EXE");
}

TEST_F(CellEditorTest, NoMap_IsTouched_WhenTheOpenedOneIsGone) {
    ShowCommon(GRID);
    ShowApplication(L"A.EXE", L"[1,1]x,65\r\n");
    OpenAt(1, 1);
    ShowApplication(L"B.EXE", L"[1,1]q,65\r\n");
    Desktop.Files.Remove(DATA_PATH + L"\\data_A.EXE.ini");
    frmConfig->Text4.Type(L"z");
    Desktop.TakeEffects();
    Ok();
    const Effects Done = Desktop.TakeEffects();
    EXPECT_EQ(std::count(Done.begin(), Done.end(),
                         "information \"Mapa, do které položka patří, už není. Úpravy se "
                         "neuložily.\" titled \"Nastavení položky - x\""),
              1);
    EXPECT_FALSE(frmConfig->IsLoaded());
    EXPECT_EQ(CommonFile(), GRID);
    EXPECT_EQ(DataText(L"data_B.EXE.ini"), L"[1,1]q,65\r\n");
    EXPECT_FALSE(platform::FileExists(DATA_PATH + L"\\data_A.EXE.ini"));
    EXPECT_FALSE(Foreground.bAppMapShown);
}

TEST_F(CellEditorTest, CommonMap_IsEdited_ThoughAnApplicationMapCameMeanwhile) {
    ShowCommon(GRID);
    OpenAt(2, 1);
    ShowApplication(L"A.EXE", L"[1,1]x,65\r\n[2,1]y,66\r\n");
    frmConfig->Text4.Type(L"z");
    Ok();
    EXPECT_EQ(DataText(L"data_A.EXE.ini"), L"[1,1]x,65\r\n[2,1]y,66\r\n");
    EXPECT_EQ(CommonFile(), L"[1,1]a,65\r\n[2,1]z,66\r\n[1,2]c,67\r\n[2,2]d,68\r\n");
}

TEST_F(CellEditorTest, DeliveredMaps_StayAsTheyAre_WhenEachCellIsOpenedAndSaved) {
    std::vector<std::filesystem::path> Paths;
    ASSERT_TRUE(simulator::ListHostFiles(SourceTree() / "data", Paths));
    int32_t nUnnamed = 0;
    for (const auto& Path : Paths) {
        if (!Path.filename().string().starts_with("data")) continue;
        std::string strBytes;
        ASSERT_TRUE(simulator::ReadHostFile(Path, strBytes));
        const std::wstring strFile = platform::FromAnsi(strBytes);
        ShowCommon(strFile);
        for (int32_t nRow = 1; nRow <= MAP_ROWS; ++nRow) {
            for (int32_t nColumn = 1; nColumn <= MAP_COLUMNS; ++nColumn) {
                const MapCell& Cell = *CommonMap.Cell(nColumn, nRow);
                if (Cell.Caption.empty()) continue;
                if (Cell.Code != 0 && KeyIndexOf(UnmodifiedCode(Cell.Code)) < 0) ++nUnnamed;
                OpenAt(nColumn, nRow);
                Ok();
                ASSERT_FALSE(frmConfig->IsLoaded()) << Path << nColumn << "," << nRow;
            }
        }
        EXPECT_EQ(platform::ToUtf8(CommonFile()), platform::ToUtf8(strFile)) << Path;
    }
    EXPECT_GT(nUnnamed, 200) << "capitals, and keys that the list does not name";
}

TEST_F(CellEditorTest, KeyWithoutName_StaysAndTakesModifiers_WhenNoOtherIsChosen) {
    OpenCell(L"x,1065,calc");
    EXPECT_EQ(SavedCell(), "x,1065,calc");
    OpenCell(L"x,80065");  // modifiers that no box shows
    EXPECT_EQ(SavedCell(), "x,80065");
    OpenCell(L"x,20000,calc");
    EXPECT_EQ(SavedCell(), "x,20000,calc");
    OpenCell(L"x,91");
    frmConfig->chkALT.Click();
    EXPECT_EQ(SavedCell(), "x,40091");
    OpenCell(L"x,1065");
    frmConfig->ComboKey.SelectText(L"S");
    EXPECT_EQ(SavedCell(), "x,83");
}

struct EntryCase {
    const char* szName;
    std::wstring strEntered;
    const char* szShown;
    const char* szCell;  // the whole line after its key
};

TEST_F(CellEditorTest, Caption_ShowsWhatTheFileCanHold_WhenSomethingElseIsEntered) {
    const EntryCase CASES[] = {
        {"Comma", L"a,b", "ab", "ab,66,cmd"},
        {"OnlyCommas", L",,", "", ""},
        {"LineBreak", L"a\r\nb", "a b", "a b,66,cmd"},
        {"LoneBreaks", L"a\nb\rc", "a b c", "a b c,66,cmd"},
        {"ControlsAtTheEndsOfTheirRanges",
         L"a\x1F"
         L"b\x7F"
         L"c",
         "a b c", "a b c,66,cmd"},
        {"TabAndZero", std::wstring(L"a\tb\0c", 5), "a b c", "a b c,66,cmd"},
        {"CzechLetters", L"příšerně žluťoučký", "příšerně žluťoučký", "příšerně žluťoučký,66,cmd"},
        {"ContinuationMark", L"_x", "_x", "_x,66,cmd"},
        {"KeyOfAnotherCell", L"[2,2]x", "[22]x", "[22]x,66,cmd"},
        {"Bracket", L"]", "]", "],66,cmd"},
        {"LineOfAnotherCell", L"x,1\r\n[1,1]y,2", "x1 [11]y2", "x1 [11]y2,66,cmd"},
        {"LeadingBlanks", L"  x", "x", "x,66,cmd"},
        {"OnlyBlanks", L"   ", "", ""},
        {"TrailingBlanks", L"x  ", "x  ", "x,66,cmd"},
    };
    for (const EntryCase& Case : CASES) {
        SCOPED_TRACE(Case.szName);
        ShowCommon(L"[1,1]a,65\r\n[2,1]b,66,cmd\r\n[1,2]c,67\r\n");
        OpenAt(2, 1);
        frmConfig->Text4.Type(Case.strEntered);
        EXPECT_EQ(Text(frmConfig->Text4), Case.szShown);
        Ok();
        const std::string strCell = Case.szCell;
        const std::string strLine = strCell.empty() ? "" : "[2,1]" + strCell + "\r\n";
        EXPECT_EQ(platform::ToUtf8(CommonFile()), "[1,1]a,65\r\n" + strLine + "[1,2]c,67\r\n");
    }
}

TEST_F(CellEditorTest, Command_ShowsWhatTheFileCanHold_WhenSomethingElseIsEntered) {
    const EntryCase CASES[] = {
        {"Comma", L"a,b", "a,b", "b,0,a,b"},
        {"LineBreak", L"a\r\nb", "a b", "b,0,a b"},
        {"ContinuationMark", L"x\n_y", "x _y", "b,0,x _y"},
        {"LineOfAnotherCell", L"x\r\n[1,1]y,2", "x [1,1]y,2", "b,0,x [1,1]y,2"},
        {"CzechLetters", L"C:\\ěšč", "C:\\ěšč", "b,0,C:\\ěšč"},
    };
    for (const EntryCase& Case : CASES) {
        SCOPED_TRACE(Case.szName);
        ShowCommon(L"[1,1]a,65\r\n[2,1]b,0\r\n[1,2]c,67\r\n");
        OpenAt(2, 1);
        frmConfig->Text3.Type(Case.strEntered);
        EXPECT_EQ(Text(frmConfig->Text3), Case.szShown);
        Ok();
        EXPECT_EQ(platform::ToUtf8(CommonFile()),
                  "[1,1]a,65\r\n[2,1]" + std::string(Case.szCell) + "\r\n[1,2]c,67\r\n");
        OpenAt(2, 1);
        EXPECT_EQ(Text(frmConfig->Text3), Case.szShown);
        frmConfig->cmdCancel.Click();
    }
}

TEST_F(CellEditorTest, ForeignLetters_StayAsTheyAre_AndMakeTheFileUtf8) {
    ShowCommon(L"[1,1]ž,65\r\n[2,1]b,0\r\n");
    OpenAt(2, 1);
    frmConfig->Text4.Type(L"книга");
    frmConfig->Text3.Type(L"C:\\Жанна 日本\\a.docx");
    Ok();
    std::string strBytes;
    Desktop.Files.Read(DATA_PATH + L"\\data.ini", strBytes);
    EXPECT_EQ(strBytes, "\xEF\xBB\xBF[1,1]ž,65\r\n[2,1]книга,0,C:\\Жанна 日本\\a.docx\r\n");
    OpenAt(2, 1);
    EXPECT_EQ(Text(frmConfig->Text3), "C:\\Жанна 日本\\a.docx");
}

TEST_F(CellEditorTest, TextOfTenThousandCharacters_ComesBackWhole) {
    const std::wstring strLong(10000, L'ž');
    ShowCommon(GRID);
    OpenAt(2, 1);
    frmConfig->Text4.Type(strLong);
    frmConfig->Text3.Type(strLong + L",x");
    Ok();
    CommonMap.Clear();
    ASSERT_TRUE(LoadMap(L""));
    EXPECT_TRUE(CommonMap.Cell(2, 1)->Caption == strLong);
    EXPECT_TRUE(CommonMap.Cell(2, 1)->Command == strLong + L",x");
    EXPECT_EQ(CommonMap.Cell(2, 2)->Caption, L"d");
}

TEST_F(CellEditorTest, TextFromTheFile_StaysAsItIs_WhenTheViewReportsItUnchanged) {
    OpenCell(L" a\tb,0,c\td");
    frmConfig->Text4.Type(frmConfig->Text4.Text);
    frmConfig->Text3.Type(frmConfig->Text3.Text);
    EXPECT_EQ(SavedCell(), "a\tb,0,c\td") << "the writer trims, nothing else changes";
}

}  // namespace
}  // namespace taviro
