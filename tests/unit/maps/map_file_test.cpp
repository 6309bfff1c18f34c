// SPDX-License-Identifier: MIT
#include "maps/map_file.h"

#include <algorithm>

#include "forms/main_form.h"
#include "maps/map_window.h"
#include "maps/shown_map.h"
#include "platform/files.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

class MapFile : public ProgramTest {
  protected:
    MapFile() { PrepareBare(); }

    static void Read(const std::wstring& strText) {
        ReadMapText(platform::ToAnsi(strText), CommonMap);
    }
    static MapCell At(int32_t nColumn, int32_t nRow) { return *CommonMap.Cell(nColumn, nRow); }
    static std::wstring Written() { return platform::FromAnsi(WriteMapText(CommonMap)); }
};

void ExpectCell(const MapCell& Cell, const std::wstring& strCaption, int32_t nCode,
                const std::wstring& strCommand) {
    EXPECT_EQ(platform::ToUtf8(Cell.Caption), platform::ToUtf8(strCaption));
    EXPECT_EQ(Cell.Code, nCode);
    EXPECT_EQ(platform::ToUtf8(Cell.Command), platform::ToUtf8(strCommand));
}

struct LineCase {
    const char* szName;
    const wchar_t* szText;
    int32_t nColumn, nRow;
    const wchar_t* szCaption;
    int32_t nCode;
    const wchar_t* szCommand;
};

class MapLine : public MapFile, public ::testing::WithParamInterface<LineCase> {};

TEST_P(MapLine, ReadsAsStated) {
    Read(GetParam().szText);
    ExpectCell(At(GetParam().nColumn, GetParam().nRow), GetParam().szCaption, GetParam().nCode,
               GetParam().szCommand);
}

const LineCase LINE_CASES[] = {
    // what the writer writes
    {"KeyOnly", L"[3,2]Tab,9\r\n", 3, 2, L"Tab", 9, L""},
    {"Command", L"[1,1]Editor,0,notepad\r\n", 1, 1, L"Editor", 0, L"notepad"},
    {"CommandKeepsItsCommas", L"[1,1]x,5,a,b\r\n", 1, 1, L"x", 5, L"a,b"},
    {"CzechLetters", L"[1,1]příště,0,žluťoučký kůň\r\n", 1, 1, L"příště", 0, L"žluťoučký kůň"},
    {"NegativeCode", L"[1,1]x,-7\r\n", 1, 1, L"x", -7, L""},
    // captions and commands as they stand
    {"BlanksAreKept", L"[1,1] A ,5, b \r\n", 1, 1, L" A ", 5, L" b "},
    {"EmptyCaption", L"[1,1],5,c\r\n", 1, 1, L"", 5, L"c"},
    {"CaptionEndsAtTheFirstComma", L"[1,1]Ahoj, světe,0\r\n", 1, 1, L"Ahoj", 0, L"0"},
    // keys
    {"KeyWithBlanks", L"[ 2 , 1 ]x,5\r\n", 2, 1, L"x", 5, L""},
    {"KeyWithFractionsRoundsHalvesToEven", L"[1.5,2.5]x,5\r\n", 2, 2, L"x", 5, L""},
    {"KeyReadsToTheFirstForeignCharacter", L"[2a,3b]x,5\r\n", 2, 3, L"x", 5, L""},
    {"EmptyNumbersAreZero", L"[,3]x,5\r\n", 0, 3, L"x", 5, L""},
    {"RowAfterTheFirstComma", L"[2,3,4]x,5\r\n", 2, 3, L"x", 5, L""},
    {"KeyWithoutComma_KeepsColumn_ReadsRowFromItsStart", L"[4,1]a,1\r\n7]x,5\r\n", 4, 7, L"x", 5,
     L""},
    {"NothingBeforeTheComma_KeepsColumn", L"[4,1]a,1\r\n,7]x,5\r\n", 4, 7, L"x", 5, L""},
    {"OverflowingColumn_KeepsColumn", L"[4,1]a,1\r\n[99999999999,7]x,5\r\n", 4, 7, L"x", 5, L""},
    {"LineWithoutBracket_ReusesTheCell", L"[2,2]a,1\r\nb,3,c\r\n", 2, 2, L"b", 3, L"c"},
    // codes
    {"CodeRounds", L"[1,1]x,2.6\r\n", 1, 1, L"x", 3, L""},
    {"CodeWithoutDigitsIsZero", L"[1,1]x,abc\r\n", 1, 1, L"x", 0, L""},
    {"CodeSkipsBlanks", L"[1,1]x, 1 2\r\n", 1, 1, L"x", 12, L""},
    {"OverflowingCode_KeepsTheOld", L"[1,1]x,5\r\n[1,1]y,99999999999,c\r\n", 1, 1, L"y", 5, L"c"},
    {"LargestCode", L"[1,1]x,2147483647,c\r\n", 1, 1, L"x", 2147483647, L"c"},
    {"CodeJustTooLarge_KeepsTheOld", L"[1,1]x,5\r\n[1,1]y,2147483648,c\r\n", 1, 1, L"y", 5, L"c"},
    // lines that store nothing
    {"NoCommaAfterTheKey_StoresNothing", L"[1,1]x,5\r\n[1,1]abc\r\n", 1, 1, L"x", 5, L""},
    {"EmptyLine_StoresNothing", L"[1,1]x,5\r\n\r\n", 1, 1, L"x", 5, L""},
    // continuation lines
    {"Continuation_AppendsAsItStands", L"[1,1]x,5,cmd\r\n_ abc\r\n", 1, 1, L"x", 5, L"cmd abc"},
    {"Continuation_RepeatsAndKeepsCommas", L"[1,1]x,5,a\r\n_,b\r\n_]c\r\n", 1, 1, L"x", 5,
     L"a,b]c"},
    {"ContinuationFirst_GoesToTheUnusedCell", L"_abc\r\n[1,1]x,5\r\n", 0, 0, L"", 0, L"abc"},
    // line ends
    {"LastLineWithoutEnd", L"[1,1]x,5,c", 1, 1, L"x", 5, L"c"},
    {"LoneLineFeeds", L"[1,1]x,5\n[2,1]y,6\n", 2, 1, L"y", 6, L""},
    {"LoneCarriageReturns", L"[1,1]x,5\r[2,1]y,6\r", 2, 1, L"y", 6, L""},
};
INSTANTIATE_TEST_SUITE_P(Lines, MapLine, ::testing::ValuesIn(LINE_CASES),
                         [](const auto& Info) { return Info.param.szName; });

TEST_F(MapFile, Line_HasNoEffect_WhenItsCellIsOutsideTheGrid) {
    Read(L"[1,1]a,1\r\n[41,1]x,5,c\r\n[1,21]x,5\r\n[-1,1]x,5\r\n_more\r\n");
    ExpectCell(At(1, 1), L"a", 1, L"");
    EXPECT_EQ(Written(), L"[1,1]a,1\r\n");
}

TEST_F(MapFile, Line_StoresIntoTheLastCellOfTheGrid) {
    Read(L"[40,20]x,5,c\r\n");
    ExpectCell(At(40, 20), L"x", 5, L"c");
}

TEST_F(MapFile, LoadMap_KeepsCellsThatTheFileDoesNotMention_WhenTheCommonMapIsReloaded) {
    PutData(L"data.ini", L"[1,1]a,1\r\n[2,1]b,2\r\n");
    ASSERT_TRUE(LoadMap(L""));
    PutData(L"data.ini", L"[1,1]c,3\r\n");
    ASSERT_TRUE(LoadMap(L""));
    ExpectCell(At(1, 1), L"c", 3, L"");
    ExpectCell(At(2, 1), L"b", 2, L"");
}

TEST_F(MapFile, LoadMap_ClearsTheApplicationMapFirst) {
    PutData(L"data_A.EXE.ini", L"[1,1]a,1\r\n[2,1]b,2\r\n");
    ASSERT_TRUE(LoadMap(L"A.EXE"));
    PutData(L"data_A.EXE.ini", L"[1,1]c,3\r\n");
    ASSERT_TRUE(LoadMap(L"A.EXE"));
    EXPECT_EQ(AppMap.Cell(1, 1)->Caption, L"c");
    EXPECT_EQ(AppMap.Cell(2, 1)->Caption, L"");
}

TEST_F(MapFile, LoadMap_LeavesAnEmptyApplicationMapAndReturnsFalse_WhenTheFileIsMissing) {
    PutData(L"data_A.EXE.ini", L"[1,1]a,1\r\n");
    LoadMap(L"A.EXE");
    EXPECT_FALSE(LoadMap(L"B.EXE"));
    EXPECT_EQ(AppMap.Cell(1, 1)->Caption, L"");
}

TEST_F(MapFile, LoadMap_FindsTheFileWithoutRegardToCase) {
    PutData(L"DATA_a.exe.INI", L"[1,1]a,1\r\n");
    EXPECT_TRUE(LoadMap(L"A.EXE"));
}

TEST_F(MapFile, LoadMap_ShowsNothingAndNamesNothing) {
    PutData(L"data_A.EXE.ini", L"[1,1]a,1\r\n");
    Foreground.AppMapName = L"OLD";
    LoadMap(L"A.EXE");
    EXPECT_FALSE(Foreground.bAppMapShown);
    EXPECT_EQ(Foreground.AppMapName, L"OLD");
    EXPECT_EQ(forms::FrmMain->CellLabel(1), nullptr);
}

TEST_F(MapFile, LoadMap_ReturnsFalse_WhenAFolderStandsInTheFilesPlace) {
    Desktop.Files.CreateFolders(DATA_PATH + L"\\data.ini");
    EXPECT_FALSE(LoadMap(L""));
}

TEST_F(MapFile, Writer_StopsAtTheFirstRowWithoutAFirstCell) {
    Read(L"[1,1]a,1\r\n[1,3]c,3\r\n");
    EXPECT_EQ(Written(), L"[1,1]a,1\r\n");
}

TEST_F(MapFile, Writer_WritesAnEmptyFile_WhenRowOneHasNoFirstCell) {
    Read(L"[2,1]A,0\r\n");
    EXPECT_EQ(Written(), L"");
}

TEST_F(MapFile, Writer_SkipsEmptyCellsInsideARow) {
    Read(L"[1,1]a,1\r\n[3,1]c,3\r\n");
    EXPECT_EQ(Written(), L"[1,1]a,1\r\n[3,1]c,3\r\n");
}

TEST_F(MapFile, Writer_GoesRowByRowAndColumnByColumn) {
    Read(L"[2,2]d,4\r\n[2,1]b,2\r\n[1,2]c,3\r\n[1,1]a,1\r\n");
    EXPECT_EQ(Written(), L"[1,1]a,1\r\n[2,1]b,2\r\n[1,2]c,3\r\n[2,2]d,4\r\n");
}

TEST_F(MapFile, Writer_TrimsCaptionsAndCommands) {
    Read(L"[1,1] A ,0, c \r\n[2,1]  ,5\r\n");
    EXPECT_EQ(Written(), L"[1,1]A,0,c\r\n");
}

TEST_F(MapFile, Writer_RepeatsTheLastColumn_WhenItHasACaption) {
    Read(L"[1,1]a,1\r\n[40,1]z,26,c\r\n");
    std::wstring strExpected = L"[1,1]a,1\r\n";
    for (int n = 40; n <= 50; ++n)
        strExpected += L"[" + std::to_wstring(n) + L",1]z,26,c\r\n";
    EXPECT_EQ(Written(), strExpected);
}

TEST_F(MapFile, Writer_GoesOnBelowTheGrid_WhenTheLastCellHasACaption) {
    for (int nRow = 1; nRow <= 20; ++nRow)
        CommonMap.Cell(1, nRow)->Caption = L"a";
    const auto nLines = [] {
        const std::string strText = WriteMapText(CommonMap);
        return std::count(strText.begin(), strText.end(), '\n');
    };
    EXPECT_EQ(nLines(), 20);
    CommonMap.Cell(40, 20)->Caption = L"z";
    EXPECT_EQ(nLines(), 20 + 11 + 30 * 50);
    EXPECT_NE(Written().find(L"[50,50]z,0\r\n"), std::wstring::npos);
}

TEST_F(MapFile, Reader_IgnoresWhatTheWriterWroteOutsideTheGrid) {
    for (int nRow = 1; nRow <= 20; ++nRow)
        CommonMap.Cell(1, nRow)->Caption = L"a";
    CommonMap.Cell(40, 20)->Caption = L"z";
    const std::string strText = WriteMapText(CommonMap);
    CommonMap.Clear();
    ReadMapText(strText, CommonMap);
    EXPECT_EQ(WriteMapText(CommonMap), strText);
}

TEST_F(MapFile, FileOfTheWriter_ComesBackByteForByte) {
    Read(L"[1,1]ěščřžýáíé,10065,*a;b,c\r\n[2,1]x,-5\r\n[1,2]y,0,C:\\ž\r\n");
    const std::string strFirst = WriteMapText(CommonMap);
    CommonMap.Clear();
    ReadMapText(strFirst, CommonMap);
    EXPECT_EQ(WriteMapText(CommonMap), strFirst);
    EXPECT_EQ(strFirst.substr(0, 16), "[1,1]\xEC\x9A\xE8\xF8\x9E\xFD\xE1\xED\xE9,1");
}

TEST_F(MapFile, SaveCell_StoresShowsAndRewritesTheCommonMap) {
    PutData(L"data.ini", L"[1,1]a,1\r\n[2,1]b,2\r\n_ignored here\r\n");
    LoadMap(L"");
    SaveCell(2, 1, {L"nový", 20083, L"^<x"});
    EXPECT_EQ(DataText(L"data.ini"), L"[1,1]a,1\r\n[2,1]nový,20083,^<x\r\n");
    EXPECT_EQ(forms::FrmMain->CellLabel(2)->Caption.Get(), L"nový");
}

TEST_F(MapFile, SaveCell_DoesNotMoveTheHighlight_InTheCommonMap) {
    PutData(L"data.ini", L"[1,1]a,1\r\n[2,1]b,2\r\n");
    LoadMap(L"");
    ShowMap(true);
    SaveCell(2, 1, {L"c", 3, L""});
    EXPECT_EQ(forms::FrmMain->HiIndex, 1);
    EXPECT_EQ(forms::FrmMain->CellLabel(1)->BackColour.Get(), forms::COLOUR_BLACK);
}

TEST_F(MapFile, SaveCell_RewritesTheShownApplicationsFile) {
    PutData(L"data_A.EXE.ini", L"[1,1]a,1\r\n");
    PutData(L"data.ini", L"[1,1]common,1\r\n");
    LoadMap(L"A.EXE");
    ShowAppMap();
    Foreground.AppMapName = L"A.EXE";
    SaveCell(2, 1, {L"b", 2, L""});
    EXPECT_EQ(DataText(L"data_A.EXE.ini"), L"[1,1]a,1\r\n[2,1]b,2\r\n");
    EXPECT_EQ(DataText(L"data.ini"), L"[1,1]common,1\r\n");
}

TEST_F(MapFile, SaveCell_StoresNothing_WhenThePositionIsOutsideTheGrid) {
    PutData(L"data.ini", L"[1,1]a,1\r\n");
    LoadMap(L"");
    SaveCell(41, 1, {L"b", 2, L""});
    SaveCell(1, 50, {L"b", 2, L""});
    EXPECT_EQ(DataText(L"data.ini"), L"[1,1]a,1\r\n");
}

TEST_F(MapFile, SaveCell_RemovesTheMapFromItsRowOn_WhenAFirstCellIsEmptied) {
    PutData(L"data.ini", L"[1,1]a,1\r\n[1,2]b,2\r\n[1,3]c,3\r\n");
    LoadMap(L"");
    SaveCell(1, 2, {});
    EXPECT_EQ(DataText(L"data.ini"), L"[1,1]a,1\r\n");
}

TEST_F(MapFile, SaveCell_LeavesTheOldFileWhole_WhenItCannotBeWritten) {
    PutData(L"data.ini", L"[1,1]a,1\r\n");
    LoadMap(L"");
    Desktop.Files.SetReadOnly(DATA_PATH + L"\\data.ini");
    SaveCell(1, 1, {L"b", 2, L""});
    EXPECT_EQ(DataText(L"data.ini"), L"[1,1]a,1\r\n");
    EXPECT_EQ(At(1, 1).Caption, L"b");
}

TEST_F(MapFile, SaveCell_LeavesTheFileAlone_WhenItWasLockedAtLoadingAndStillIs) {
    const std::wstring strPath = DATA_PATH + L"\\data.ini";
    PutData(L"data.ini", L"[1,1]a,1\r\n[2,1]b,2\r\n");
    Desktop.Files.Lock(strPath);
    EXPECT_FALSE(LoadMap(L""));
    SaveCell(1, 1, {L"x", 9, L""});
    Desktop.Files.Lock(strPath, false);
    EXPECT_EQ(DataText(L"data.ini"), L"[1,1]a,1\r\n[2,1]b,2\r\n");
}

TEST_F(MapFile, SaveCell_KeepsAFileThatIsNoMapAside) {
    PutData(L"data.ini", L"no map at all");
    PutData(L"data.ini.bak", L"kept earlier");
    EXPECT_TRUE(LoadMap(L""));
    SaveCell(1, 1, {L"x", 9, L""});
    EXPECT_EQ(DataText(L"data.ini"), L"[1,1]x,9\r\n");
    EXPECT_EQ(DataText(L"data.ini.bak"), L"kept earlier");
    EXPECT_EQ(DataText(L"data.ini.bak2"), L"no map at all");
    SaveCell(1, 1, {L"y", 9, L""});
    EXPECT_FALSE(Desktop.Files.FileExists(DATA_PATH + L"\\data.ini.bak3"));
}

TEST_F(MapFile, ReadMapText_SurvivesAnyBytes) {
    std::string strAll;
    for (int n = 0; n < 4096; ++n)
        strAll += static_cast<char>(n * 37 % 256);
    ReadMapText(strAll, CommonMap);
    const std::string strOnce = WriteMapText(CommonMap);
    CommonMap.Clear();
    ReadMapText(strOnce, CommonMap);
    EXPECT_EQ(WriteMapText(CommonMap), strOnce);
}

// Blanks alone are no caption that the file could hold, but they do not end the map either.
TEST_F(MapFile, BlankFirstCell_IsNotWritten_AndTheRowsBehindItAre) {
    MapGrid Grid;
    FillMap(Grid, {L"a", L"x c", L"d"});
    Grid.Cell(1, 2)->Caption = L"  ";
    EXPECT_EQ(WriteMapText(Grid), "[1,1]a,0\r\n[2,2]c,0\r\n[1,3]d,0\r\n");
    Grid.Cell(1, 2)->Caption.clear();
    EXPECT_EQ(WriteMapText(Grid), "[1,1]a,0\r\n");
}

// Only the move aside fails: writing over the file would work.
TEST_F(MapFile, SaveCell_LeavesAFileThatIsNoMap_WhenItCannotBeSetAside) {
    PutData(L"data.ini", L"no map at all");
    EXPECT_TRUE(LoadMap(L""));
    Desktop.Failures.Next("MoveFileTo");
    SaveCell(1, 1, {L"x", 9, L""});
    EXPECT_EQ(DataText(L"data.ini"), L"no map at all");
    SaveCell(1, 1, {L"y", 9, L""});
    EXPECT_EQ(DataText(L"data.ini"), L"[1,1]y,9\r\n");
    EXPECT_EQ(DataText(L"data.ini.bak"), L"no map at all");
}

TEST_F(MapFile, SaveCell_KeepsAMapThatCouldNotBeReadAside) {
    PutData(L"data.ini", L"[1,1]a,1\r\n[2,1]b,2\r\n");
    Desktop.Failures.Next("ReadFileBytes");
    EXPECT_FALSE(LoadMap(L""));
    SaveCell(1, 1, {L"x", 9, L""});
    EXPECT_EQ(DataText(L"data.ini.bak"), L"[1,1]a,1\r\n[2,1]b,2\r\n");
}

TEST_F(MapFile, SaveCell_KeepsTheOldFile_WhicheverStepOfTheSaveFails) {
    for (const char* szStep : {"CreateNewFile", "WriteToFile", "FlushFile", "RenameFile"}) {
        PutData(L"data.ini", L"[1,1]a,1\r\n");
        LoadMap(L"");
        Desktop.Failures.Next(szStep);
        SaveCell(1, 1, {L"b", 2, L""});
        EXPECT_EQ(DataText(L"data.ini"), L"[1,1]a,1\r\n") << szStep;
        EXPECT_EQ(Desktop.Files.List(DATA_PATH + L"\\*").size(), 1U) << szStep;
    }
}

}  // namespace
}  // namespace taviro
