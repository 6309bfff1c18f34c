// SPDX-License-Identifier: MIT
// Settings of the program: what each control shows and stores, the new layout of the map, and how a
// joystick button opens its own dialog.
#include "dialogs/app_setting_form.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "dialogs/button_config_form.h"
#include "forms/main_form.h"
#include "input/joystick_reader.h"
#include "state/cursor_state.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

class AppSettingFormTest : public ProgramTest {
  protected:
    AppSettingFormTest() {
        PutData(L"data.ini", L"[1,1]A,65\r\n[2,1]B,66\r\n[1,2]C,67\r\n");
        Start();
    }

    static std::wstring Shown(const forms::ComboBox& List) { return List.SelectedText(); }

    /// Shows the form modal, as the menu does, and lets the user act meanwhile.
    static void WithForm(const std::function<void()>& Act) {
        Desktop.WhileModal = [&](forms::Form& Form) {
            if (&Form == frmAppSetting.get()) Act();
        };
        forms::FrmMain->mnuSettingApp.Click();
        Desktop.WhileModal = nullptr;
    }
    static void OpenAndConfirm() {
        WithForm([] { frmAppSetting->cmdOK.Click(); });
        Desktop.TakeEffects();
    }
};

TEST_F(AppSettingFormTest, Menu_ShowsFormModal_WhenChosen) {
    Desktop.TakeEffects();
    WithForm([] { frmAppSetting->cmdCancel.Click(); });
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"frmAppSetting shown, modal", "frmAppSetting hidden"}));
}

TEST_F(AppSettingFormTest, PollLoop_Idles_WhileFormIsLoaded) {
    WithForm([] {
        EXPECT_TRUE(Program.bPauseJoystick);
        TiltRight();
        Ticks(5);
        EXPECT_EQ(Cursor.nColumn, 1);
        frmAppSetting->cmdCancel.Click();
        EXPECT_FALSE(Program.bPauseJoystick);
    });
    Ticks();
    EXPECT_EQ(Cursor.nColumn, 2);
}

TEST_F(AppSettingFormTest, PollLoop_GoesOn_HoweverTheFormIsClosed) {
    WithForm([] { frmAppSetting->cmdOK.Click(); });
    EXPECT_FALSE(Program.bPauseJoystick);
    WithForm([] { frmAppSetting->Unload(); });
    EXPECT_FALSE(Program.bPauseJoystick);
}

// One row a box: its setting, and what counts as on there.
struct BoxCase {
    const char* szName;
    forms::CheckBox AppSettingForm::*pBox;
    int32_t (cSetting::*Get)() const;
    void (cSetting::*Set)(int32_t);
    bool bTwoIsOn;
};
constexpr BoxCase BOXES[] = {
    {"ScanMode", &AppSettingForm::chkScanMode, &cSetting::ScanMode, &cSetting::ScanMode, false},
    {"VoiceOnLineChange", &AppSettingForm::chkVoiceOnLineChange, &cSetting::VoiceOnLineChange,
     &cSetting::VoiceOnLineChange, true},
    {"TriggerRowReset", &AppSettingForm::chkTriggerRowReset, &cSetting::TriggerRowReset,
     &cSetting::TriggerRowReset, false},
    {"TriggerColumnReset", &AppSettingForm::chkTriggerColumnReset, &cSetting::TriggerColumnReset,
     &cSetting::TriggerColumnReset, false},
    {"ColumnWrap", &AppSettingForm::chkColumnWrap, &cSetting::ColumnWrap, &cSetting::ColumnWrap,
     true},
    {"RowWrap", &AppSettingForm::chkRowWrap, &cSetting::RowWrap, &cSetting::RowWrap, true},
};

class AppSettingBox : public AppSettingFormTest, public ::testing::WithParamInterface<BoxCase> {
  protected:
    static forms::CheckBox& Box() { return (*frmAppSetting).*GetParam().pBox; }
    static int32_t Stored() { return (objSetting.*GetParam().Get)(); }
    static void Store(int32_t nValue) { (objSetting.*GetParam().Set)(nValue); }
};

TEST_P(AppSettingBox, ShowsItsSettingAndStoresTheUsersChange) {
    for (const BoxCase& Other : BOXES)
        (objSetting.*Other.Set)(0);
    for (const int32_t nBefore : {0, 1}) {
        Store(nBefore);
        WithForm([&] {
            EXPECT_EQ(Box().Value, nBefore == 1);
            Box().Click();
            EXPECT_EQ(Stored(), nBefore) << "until OK";
            frmAppSetting->cmdOK.Click();
        });
        EXPECT_EQ(Stored(), 1 - nBefore);
        for (const BoxCase& Other : BOXES) {
            if (Other.pBox == GetParam().pBox) continue;
            EXPECT_EQ((objSetting.*Other.Get)(), 0) << Other.szName;
        }
    }
}

TEST_P(AppSettingBox, KeepsAnOddValueUntilTheUserChangesIt) {
    Store(2);
    WithForm([] {
        EXPECT_EQ(Box().Value, GetParam().bTwoIsOn);
        frmAppSetting->cmdOK.Click();
    });
    EXPECT_EQ(Stored(), 2);
    WithForm([] {
        Box().Click();
        frmAppSetting->cmdOK.Click();
    });
    EXPECT_EQ(Stored(), GetParam().bTwoIsOn ? 0 : 1);
}

INSTANTIATE_TEST_SUITE_P(All, AppSettingBox, ::testing::ValuesIn(BOXES),
                         [](const auto& Info) { return std::string(Info.param.szName); });

// One row a list: its setting, and what its entry for a setting reads more than the setting.
struct ListCase {
    const char* szName;
    forms::ComboBox AppSettingForm::*pList;
    int32_t (cSetting::*Get)() const;
    void (cSetting::*Set)(int32_t);
    int32_t nEntries;
    int32_t nAbove;
};
constexpr ListCase LISTS[] = {
    {"ScanSizeX", &AppSettingForm::ComboScanX, &cSetting::ScanSizeX, &cSetting::ScanSizeX, 30, 0},
    {"ScanSizeY", &AppSettingForm::ComboScanY, &cSetting::ScanSizeY, &cSetting::ScanSizeY, 30, 0},
    {"CellTextSize", &AppSettingForm::ComboTextSize, &cSetting::CellTextSize,
     &cSetting::CellTextSize, 196, 4},
    {"CellWidth", &AppSettingForm::ComboCellWidth, &cSetting::CellWidth, &cSetting::CellWidth, 196,
     4},
    {"CellHeight", &AppSettingForm::ComboCellHeight, &cSetting::CellHeight, &cSetting::CellHeight,
     196, 4},
};

class AppSettingList : public AppSettingFormTest, public ::testing::WithParamInterface<ListCase> {
  protected:
    static forms::ComboBox& List() { return (*frmAppSetting).*GetParam().pList; }
    static int32_t Stored() { return (objSetting.*GetParam().Get)(); }
    static void Store(int32_t nValue) { (objSetting.*GetParam().Set)(nValue); }
};

TEST_P(AppSettingList, ShowsTheEntryAtItsSettingLessOneAndStoresItAgain) {
    for (const int32_t nValue : {1, 2, 8, 30, GetParam().nEntries}) {
        Store(nValue);
        WithForm([&] {
            EXPECT_EQ(List().ListCount(), GetParam().nEntries);
            EXPECT_EQ(Shown(List()), std::to_wstring(nValue + GetParam().nAbove));
            frmAppSetting->cmdOK.Click();
        });
        EXPECT_EQ(Stored(), nValue);
    }
}

TEST_P(AppSettingList, StoresThePositionOfWhatTheUserChoosesOnOKAlone) {
    Store(7);
    WithForm([] {
        List().Select(0);
        frmAppSetting->cmdCancel.Click();
    });
    EXPECT_EQ(Stored(), 7);
    for (const int32_t nIndex : {0, GetParam().nEntries - 1}) {
        WithForm([&] {
            List().Select(nIndex);
            frmAppSetting->cmdOK.Click();
        });
        EXPECT_EQ(Stored(), nIndex + 1);
    }
}

TEST_P(AppSettingList, SelectsNothingAndKeepsAValueOutsideTheList) {
    for (const int32_t nBad : {INT32_MIN, -1, 0, GetParam().nEntries + 1, INT32_MAX}) {
        Store(8);
        OpenAndConfirm();
        Store(nBad);
        WithForm([&] {
            EXPECT_EQ(List().ListIndex, -1) << nBad;
            frmAppSetting->cmdOK.Click();
        });
        EXPECT_EQ(Stored(), nBad);
    }
}

INSTANTIATE_TEST_SUITE_P(All, AppSettingList, ::testing::ValuesIn(LISTS),
                         [](const auto& Info) { return std::string(Info.param.szName); });

TEST_F(AppSettingFormTest, CellWidth_Shows64AndLaysOutNothing_WhenItIs60AndUntouched) {
    WithForm([] {
        EXPECT_EQ(objSetting.CellWidth(), 60);
        EXPECT_EQ(Shown(frmAppSetting->ComboCellWidth), L"64");
        const int32_t nWidth = forms::FrmMain->Width;
        forms::FrmMain->Width = nWidth + 1;  // a new layout would set it again
        frmAppSetting->cmdOK.Click();
        EXPECT_EQ(forms::FrmMain->Width, nWidth + 1);
        EXPECT_FALSE(frmAppSetting->bLayoutChanged);
    });
    EXPECT_EQ(objSetting.CellWidth(), 60);
}

TEST_F(AppSettingFormTest, Map_IsLaidOutAnew_WhenASizeChanged) {
    const int32_t nWidth = forms::FrmMain->Width;
    const int32_t nHeight = forms::FrmMain->Height;
    WithForm([&] {
        frmAppSetting->ComboCellWidth.SelectText(L"94");
        EXPECT_EQ(forms::FrmMain->Width, nWidth) << "until OK";
        Desktop.TakeEffects();
        frmAppSetting->cmdOK.Click();
    });
    EXPECT_EQ(Program.nCellWidth, 90);
    EXPECT_TRUE(frmAppSetting->bLayoutChanged);
    EXPECT_GT(forms::FrmMain->Width, nWidth);
    OpenAndConfirm();
    EXPECT_FALSE(frmAppSetting->bLayoutChanged) << "a change counts once";

    WithForm([] {
        frmAppSetting->ComboCellHeight.SelectText(L"5");
        frmAppSetting->cmdOK.Click();
    });
    EXPECT_EQ(objSetting.CellHeight(), 1);
    EXPECT_EQ(Program.nCellHeight, 1);
    EXPECT_LT(forms::FrmMain->Height, nHeight);

    WithForm([] {
        frmAppSetting->ComboTextSize.SelectText(L"24");
        frmAppSetting->cmdOK.Click();
    });
    EXPECT_EQ(Program.nCellTextSize, 20);
    EXPECT_TRUE(frmAppSetting->bLayoutChanged);
}

TEST_F(AppSettingFormTest, CommonMap_ComesBack_WhenASizeChangesOverAnApplicationsMap) {
    Foreground.bAppMapShown = true;
    Cursor.nColumn = 2;
    WithForm([] {
        frmAppSetting->ComboCellWidth.Select(99);
        frmAppSetting->cmdOK.Click();
    });
    EXPECT_FALSE(Foreground.bAppMapShown);
    EXPECT_EQ(forms::FrmMain->HiIndex, 2) << "the highlight stands where the cursor is";
}

TEST_F(AppSettingFormTest, ScanArea_IsDisabled_WhenFormIsFirstLoadedWithoutScanning) {
    WithForm([] {
        EXPECT_FALSE(frmAppSetting->ComboScanX.Enabled);
        EXPECT_FALSE(frmAppSetting->ComboScanY.Enabled);
        frmAppSetting->cmdCancel.Click();
    });
}

TEST_F(AppSettingFormTest, ScanArea_FollowsItsBox_WhenClickedAndWhenLoaded) {
    objSetting.ScanMode(1);
    WithForm([] {
        EXPECT_TRUE(frmAppSetting->ComboScanX.Enabled);
        frmAppSetting->chkScanMode.Click();
        EXPECT_FALSE(frmAppSetting->ComboScanX.Enabled);
        EXPECT_FALSE(frmAppSetting->ComboScanY.Enabled);
        frmAppSetting->chkScanMode.Click();
        EXPECT_TRUE(frmAppSetting->ComboScanX.Enabled);
        EXPECT_TRUE(frmAppSetting->ComboScanY.Enabled);
        frmAppSetting->cmdCancel.Click();
    });
    objSetting.ScanMode(0);
    WithForm([] {
        EXPECT_FALSE(frmAppSetting->ComboScanX.Enabled);
        EXPECT_FALSE(frmAppSetting->ComboScanY.Enabled);
        frmAppSetting->cmdCancel.Click();
    });
}

TEST_F(AppSettingFormTest, ScanDelay_ShowsAndStoresItsEntry_WhenThereIsOne) {
    for (const int32_t nDelay : {0, 100, 200, 500, 700, 1000, 1500, 2000}) {
        objSetting.ScanDelay(nDelay);
        WithForm([&] {
            EXPECT_EQ(frmAppSetting->Combo1.ListCount(), 8);
            EXPECT_EQ(Shown(frmAppSetting->Combo1), std::to_wstring(nDelay));
            frmAppSetting->cmdOK.Click();
        });
        EXPECT_EQ(objSetting.ScanDelay(), nDelay);
    }
    WithForm([] {
        frmAppSetting->Combo1.Select(6);
        frmAppSetting->cmdOK.Click();
    });
    EXPECT_EQ(objSetting.ScanDelay(), 1500);
}

TEST_F(AppSettingFormTest, ScanDelay_SelectsNothingAndIsKept_WhenNoEntryMatches) {
    objSetting.ScanDelay(300);
    WithForm([] {
        EXPECT_EQ(frmAppSetting->Combo1.ListIndex, -1);
        frmAppSetting->cmdOK.Click();
    });
    EXPECT_EQ(objSetting.ScanDelay(), 300);
}

TEST_F(AppSettingFormTest, File_StaysAsItWas_UntilTheSettingsAreSaved) {
    OpenAndConfirm();
    const std::wstring strBefore = DataText(L"setting.ini");
    WithForm([] {
        frmAppSetting->chkRowWrap.Click();
        frmAppSetting->cmdOK.Click();
    });
    EXPECT_EQ(DataText(L"setting.ini"), strBefore);
    EXPECT_EQ(objSetting.RowWrap(), 0);
}

TEST_F(AppSettingFormTest, Cancel_StoresNothing_WhenAllWasChanged) {
    objSetting.SaveSetting();
    Desktop.TakeEffects();
    WithForm([] {
        for (const BoxCase& Box : BOXES)
            ((*frmAppSetting).*Box.pBox).Click();
        for (const ListCase& List : LISTS)
            ((*frmAppSetting).*List.pList).Select(2);
        frmAppSetting->Combo1.Select(2);
        frmAppSetting->cmdCancel.Click();
    });
    objSetting.SaveSetting();
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"frmAppSetting shown, modal", "frmAppSetting hidden"}));
    EXPECT_EQ(Program.nCellWidth, 60);
}

TEST_F(AppSettingFormTest, FocusField_TellsTheTextBoxWithTheFocus_WhenItMoves) {
    WithForm([] {
        EXPECT_FALSE(frmAppSetting->Text2.Visible);
        EXPECT_EQ(frmAppSetting->nFocusField, 0);
        frmAppSetting->Text2.OnGotFocus();
        EXPECT_EQ(frmAppSetting->nFocusField, 1);
        frmAppSetting->Text2.OnLostFocus();
        EXPECT_EQ(frmAppSetting->nFocusField, 0);
        frmAppSetting->txtActionButton.OnGotFocus();
        EXPECT_EQ(frmAppSetting->nFocusField, 2);
        frmAppSetting->cmdCancel.Click();
    });
    WithForm([] {
        EXPECT_EQ(frmAppSetting->nFocusField, 0);
        frmAppSetting->cmdCancel.Click();
    });
}

}  // namespace
}  // namespace taviro
