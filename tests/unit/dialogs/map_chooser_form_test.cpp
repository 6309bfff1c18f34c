// SPDX-License-Identifier: MIT
// The map chooser: which files it lists, and which map it shows for each of them.
#include "dialogs/map_chooser_form.h"

#include "dialogs/cell_editor_form.h"
#include "maps/map_file.h"
#include "platform/files.h"
#include "state/cursor_state.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

using Names = std::vector<std::string>;

class MapChooserTest : public ProgramTest {
  protected:
    MapChooserTest() {
        PutData(L"data.ini", L"[1,1]common,65\r\n");
        Start();
    }

    static Names Listed() {
        Names Listed;
        for (const std::wstring& strFile : frmMap->File1.Items.Get())
            Listed.push_back(platform::ToUtf8(strFile));
        return Listed;
    }
    /// Opens the chooser, selects a file and presses the button.
    static void Choose(const std::wstring& strFile) {
        frmMap->Show();
        ASSERT_TRUE(frmMap->File1.SelectText(strFile));
        frmMap->Command1.Click();
        EXPECT_FALSE(frmMap->IsLoaded());
    }
    static std::string Shown() {
        const std::wstring strCaption = ShownMap().Cell(1, 1)->Caption;
        return (Foreground.bAppMapShown ? "application: " : "common: ") +
               platform::ToUtf8(strCaption);
    }
};

TEST_F(MapChooserTest, List_HoldsTheMapFilesSorted) {
    PutData(L"data_WINWORD.EXE.ini", L"");
    PutData(L"data_b.ini", L"");
    PutData(L"Data_A.INI", L"");
    PutData(L"data2.ini", L"");
    PutData(L"setting.ini", L"");
    PutData(L"data.ini.bak", L"");
    PutData(L"data_x.inix", L"");
    PutData(L"mydata.ini", L"");
    Desktop.Files.CreateFolders(DATA_PATH + L"\\data_folder.ini");
    frmMap->Show();
    EXPECT_EQ(Listed(),
              (Names{"data.ini", "data2.ini", "Data_A.INI", "data_b.ini", "data_WINWORD.EXE.ini"}));
    EXPECT_EQ(frmMap->File1.ListIndex, 0);
}

TEST_F(MapChooserTest, List_IsReadAnew_WhenOpenedAgain) {
    PutData(L"data_A.ini", L"");
    frmMap->Show();
    frmMap->File1.Select(1);
    frmMap->Unload();
    Desktop.Files.Remove(DATA_PATH + L"\\data_A.ini");
    PutData(L"data_B.ini", L"");
    frmMap->Show();
    EXPECT_EQ(Listed(), (Names{"data.ini", "data_B.ini"}));
    EXPECT_EQ(frmMap->File1.ListIndex, 0);
}

TEST_F(MapChooserTest, Button_IsOnlyThereForASelection) {
    Desktop.Files.Remove(DATA_PATH + L"\\data.ini");
    frmMap->Show();
    EXPECT_EQ(frmMap->File1.ListCount(), 0);
    EXPECT_FALSE(frmMap->Command1.Enabled);
    frmMap->File1.OnDblClick();
    EXPECT_TRUE(frmMap->IsLoaded()) << "nothing was chosen, so nothing happens";
    frmMap->Unload();
    PutData(L"data_A.ini", L"");
    frmMap->Show();
    EXPECT_TRUE(frmMap->Command1.Enabled);
}

TEST_F(MapChooserTest, Window_StandsOverTheMainWindowsInside) {
    Desktop.MainRect = {.nLeft = 300, .nTop = 200, .nRight = 900, .nBottom = 600};
    Desktop.Metrics[platform::Metric::BorderWidth] = 1;
    Desktop.Metrics[platform::Metric::BorderHeight] = 2;
    Desktop.Metrics[platform::Metric::CaptionHeight] = 23;
    Desktop.Metrics[platform::Metric::MenuHeight] = 20;
    frmMap->Show();
    EXPECT_EQ(frmMap->Left, 301 * 15);
    EXPECT_EQ(frmMap->Top, 245 * 15);
    frmMap->Unload();
    Desktop.nDpi = 192;
    frmMap->Show();
    EXPECT_EQ(frmMap->Left, 301 * 7) << "the nearest whole twips of a pixel";
}

TEST_F(MapChooserTest, Window_IsPlacedByTheSystem_WhenTheMainWindowsPlaceIsUnknown) {
    frmMap->Show();
    EXPECT_NE(frmMap->Left, forms::UNPLACED);
    EXPECT_NE(frmMap->Top, forms::UNPLACED);
    frmMap->Unload();
    Desktop.Failures.Always("WindowRect");
    frmMap->Show();
    EXPECT_EQ(frmMap->Left, forms::UNPLACED);
    EXPECT_EQ(frmMap->Top, forms::UNPLACED);
}

struct FileCase {
    const char* szName;
    const wchar_t* szFile;
    const wchar_t* szAlso;  // another file that is there
    const char* szShown;
    const char* szAppMapName;
};

// Every file's first cell reads as the file's name.
const FileCase FILES[] = {
    {"CommonMap", L"data.ini", nullptr, "common: common", "OLD"},
    {"Application", L"data_notepad.ini", nullptr, "application: data_notepad.ini", "notepad"},
    {"UpperCase", L"data_NOTEPAD.EXE.ini", nullptr, "application: data_NOTEPAD.EXE.ini",
     "notepad.exe"},
    {"CzechName", L"data_ČTEČKA.ini", nullptr, "application: data_ČTEČKA.ini", "čtečka"},
    {"DoubledData", L"data_data.ini", nullptr, "application: data_data.ini", "data"},
    {"CommonMap_BesideDoubledData", L"data.ini", L"data_data.ini", "application: data_data.ini",
     "data"},
    {"PrefixInside", L"data_mydata_x.ini", L"data_myx.ini", "application: data_myx.ini", "myx"},
    {"PrefixInside_WithoutTheNameLeft", L"data_mydata_x.ini", nullptr, "common: common", "OLD"},
    {"EndInside", L"data_a.ini.ini", L"data_a.ini", "application: data_a.ini", "a"},
    {"PrefixThatClosesUp", L"data_dadata_ta_x.ini", L"data_data_x.ini",
     "application: data_data_x.ini", "data_x"},
    {"NoUnderscore", L"data2.ini", nullptr, "common: common", "OLD"},
    {"NoName", L"data_.ini", nullptr, "common: common", "OLD"},
};

TEST_F(MapChooserTest, File_LeadsToItsMap) {
    for (const FileCase& Case : FILES) {
        SCOPED_TRACE(Case.szName);
        for (const std::wstring& strOld : platform::ListFiles(DATA_PATH + L"\\data_*"))
            Desktop.Files.Remove(DATA_PATH + L"\\" + strOld);
        for (const wchar_t* szFile : {Case.szFile, Case.szAlso}) {
            if (szFile == nullptr || std::wstring(szFile) == L"data.ini") continue;
            PutData(szFile, L"[1,1]" + std::wstring(szFile) + L",65\r\n");
        }
        Foreground.AppMapName = L"OLD";
        Foreground.bAppMapShown = false;
        Choose(Case.szFile);
        EXPECT_EQ(Shown(), Case.szShown);
        EXPECT_EQ(platform::ToUtf8(Foreground.AppMapName), Case.szAppMapName);
    }
}

TEST_F(MapChooserTest, DoubleClick_ShowsTheMapToo) {
    PutData(L"data_A.ini", L"[1,1]x,65\r\n");
    frmMap->Show();
    frmMap->File1.Select(1);
    frmMap->File1.OnDblClick();
    EXPECT_EQ(Shown(), "application: x");
    EXPECT_FALSE(frmMap->IsLoaded());
}

TEST_F(MapChooserTest, CommonMap_IsShownAsInMemory) {
    PutData(L"data_A.ini", L"[1,1]x,65\r\n");
    Choose(L"data_A.ini");
    PutData(L"data.ini", L"[1,1]changed on disk,65\r\n");
    Choose(L"data.ini");
    EXPECT_EQ(Shown(), "common: common");
    EXPECT_TRUE(AppMap.Cell(1, 1)->Caption.empty()) << "looking for its file cleared the grid";
}

TEST_F(MapChooserTest, CommonMap_IsShown_WhenTheFileIsGoneOrLocked) {
    PutData(L"data_A.ini", L"[1,1]x,65\r\n");
    PutData(L"data_B.ini", L"[1,1]y,65\r\n");
    Choose(L"data_B.ini");
    frmMap->Show();
    frmMap->File1.Select(1);
    Desktop.Files.Remove(DATA_PATH + L"\\data_A.ini");
    frmMap->Command1.Click();
    EXPECT_EQ(Shown(), "common: common");
    Choose(L"data_B.ini");
    Desktop.Files.Lock(DATA_PATH + L"\\data_B.ini");
    Choose(L"data_B.ini");
    EXPECT_EQ(Shown(), "common: common");
}

TEST_F(MapChooserTest, CellEditor_SavesIntoTheChosenMap) {
    PutData(L"data_notepad.ini", L"[1,1]x,65\r\n");
    Choose(L"data_notepad.ini");
    frmConfig->Show();
    frmConfig->Text4.Type(L"y");
    frmConfig->cmdOK.Click();
    EXPECT_EQ(DataText(L"data_notepad.ini"), L"[1,1]y,65\r\n");
    EXPECT_EQ(DataText(L"data.ini"), L"[1,1]common,65\r\n");
}

TEST_F(MapChooserTest, Highlight_StartsAtTheFirstCell_OfAMapSeenForTheFirstTime) {
    PutData(L"data_A.ini", L"[1,1]x,65\r\n");
    Cursor.nColumn = 7;
    Cursor.nRow = 3;
    Choose(L"data_A.ini");
    EXPECT_EQ(Cursor.nColumn, 1);
    EXPECT_EQ(Cursor.nRow, 1);
    EXPECT_EQ(forms::FrmMain->HiIndex, 1);
}

TEST_F(MapChooserTest, Nothing_Changes_WhenClosed) {
    PutData(L"data_A.ini", L"[1,1]x,65\r\n");
    frmMap->Show();
    frmMap->File1.Select(1);
    frmMap->Unload();
    EXPECT_EQ(Shown(), "common: common");
}

TEST_F(MapChooserTest, Menu_ShowsTheChooserBesideTheMainWindow) {
    forms::FrmMain->mnuOpenMap.Click();
    EXPECT_EQ(Desktop.TakeEffects(), Names{"frmMap shown"});
    EXPECT_FALSE(frmMap->IsModal());
}

}  // namespace
}  // namespace taviro
