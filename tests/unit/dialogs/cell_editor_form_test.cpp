// SPDX-License-Identifier: MIT
// The cell editor: what it shows of a cell and what it makes of one.
#include "dialogs/cell_editor_form.h"

#include "forms/main_form.h"
#include "maps/key_names.h"
#include "tests/unit/dialogs/cell_editor_fixture.h"

namespace taviro {
namespace {

struct CodeCase {
    const char* szName;
    int32_t nCode;
    const char* szTicked;
    const char* szKey;
};

// A key without a name in the list cannot be selected, and stays all the same.
const CodeCase CODES[] = {
    {"PlainKey", 65, "", "A"},
    {"CharacterKey", 1048, "", "0"},
    {"AcuteKey", 2024, "", "Ó"},
    {"CaronKey", 3032, "", "ď"},
    {"ScanCodeKey", 4055, "", "hvězdička"},
    {"AltGrKey", 5047, "", "zavináč"},
    {"LastKeyOfTheTable", 1062, "", "větší"},
    {"Shift", 10037, "S", "šipka vlevo"},
    {"Ctrl", 20083, "C", "S"},
    {"ShiftAndCtrl", 30065, "SC", "A"},
    {"Alt", 40115, "A", "F4"},
    {"EveryModifierButWindows", 70046, "SCA", "DELETE"},
    {"ModifierOverACharacterKey", 11048, "S", "0"},
    {"Windows", 90068, "W", "D"},
    {"ModifiersBeyondTheDigit", 80065, "", "A"},
    {"KeyWithoutName", 1034, "", ""},
    {"WindowsKeyItself", 91, "", ""},
    {"KeyWithoutNameAndModifiers", 20091, "C", ""},
};

TEST_F(CellEditorTest, Code_IsShownAndSavedAgain) {
    for (const CodeCase& Case : CODES) {
        SCOPED_TRACE(Case.szName);
        OpenCell(L"x," + std::to_wstring(Case.nCode));
        EXPECT_EQ(frmConfig->OptionType.Selected, CELL_KIND_KEY);
        EXPECT_EQ(Ticked(), Case.szTicked);
        EXPECT_EQ(SelectedKey(), Case.szKey);
        EXPECT_EQ(platform::ToUtf8(frmConfig->lblCode.Caption.Get()),
                  "kód " + std::to_string(Case.nCode));
        EXPECT_EQ(SavedCell(), "x," + std::to_string(Case.nCode));
    }
}

TEST_F(CellEditorTest, WindowsKey_ReplacesOtherModifiers_WhenTheyAreTickedToo) {
    for (forms::CheckBox* pBox : {&frmConfig->chkSHIFT, &frmConfig->chkCTRL, &frmConfig->chkALT}) {
        OpenCell(L"x,90065");
        pBox->Click();
        EXPECT_EQ(SavedCell(), "x,90065") << platform::ToUtf8(pBox->strName);
    }
}

TEST_F(CellEditorTest, Modifier_IsStoredOverAnyKindOfKey_WhenTicked) {
    OpenCell(L"x,1048");
    frmConfig->chkSHIFT.Click();
    EXPECT_EQ(SavedCell(), "x,11048");
}

TEST_F(CellEditorTest, Key_IsStored_WhenChosenFromTheList) {
    OpenCell(L"x,0");
    frmConfig->OptionType.Choose(CELL_KIND_KEY);
    frmConfig->ComboKey.Select(63);
    frmConfig->chkALT.Click();
    EXPECT_EQ(SavedCell(), "x,40032");
}

struct CommandCase {
    const char* szName;
    const wchar_t* szCommand;
    int32_t nMode;
    bool bReset;
    const char* szText;
    const char* szSaved;
};

const CommandCase COMMANDS[] = {
    {"NoCommand", L"", 0, false, "", ""},
    {"Plain", L"notepad", 0, false, "notepad", "notepad"},
    {"Selection", L"<x", 1, false, "x", "<x"},
    {"Arrow", L"|x", 2, false, "x", "|x"},
    {"Application", L">x", 3, false, "x", ">x"},
    {"MarkAlone", L"<", 1, false, "", "<"},
    {"Column", L"^x", 0, true, "x", "^x"},
    {"ColumnAlone", L"^", 0, true, "", "^"},
    {"ColumnAndArrow", L"^|notepad", 2, true, "notepad", "^|notepad"},
    {"ColumnInTheMiddle_MovesToTheFront", L"a^b", 0, true, "ab", "^ab"},
    {"ColumnBehindTheMode_MovesToTheFront", L"<^x", 1, true, "x", "^<x"},
    {"EveryColumnMark_BecomesOne", L"^^a^b", 0, true, "ab", "^ab"},
    {"SecondModeMark_StaysText", L"<|x", 1, false, "|x", "<|x"},
    {"ModeMarkInside_StaysText", L"x|y", 0, false, "x|y", "x|y"},
    {"List", L"*Texty;Dobrý den;Ano", 0, false, "*Texty;Dobrý den;Ano", "*Texty;Dobrý den;Ano"},
    {"Commas", L"a,b,,c", 0, false, "a,b,,c", "a,b,,c"},
    {"Quotes", L"\"C:\\a b.exe\":/x", 0, false, "\"C:\\a b.exe\":/x", "\"C:\\a b.exe\":/x"},
};

TEST_F(CellEditorTest, Command_IsTakenApartAndPutTogetherAgain) {
    for (const CommandCase& Case : COMMANDS) {
        SCOPED_TRACE(Case.szName);
        const std::wstring strCommand = Case.szCommand;
        OpenCell(L"x,0" + (strCommand.empty() ? L"" : L"," + strCommand));
        EXPECT_EQ(frmConfig->OptionType.Selected, CELL_KIND_NO_KEY);
        EXPECT_EQ(frmConfig->OptSetMode.Selected, Case.nMode);
        EXPECT_EQ(frmConfig->ChkResetColumnOnAction.Value, Case.bReset);
        EXPECT_EQ(Text(frmConfig->Text3), Case.szText);
        const std::string strSaved = Case.szSaved;
        EXPECT_EQ(SavedCell(), "x,0" + (strSaved.empty() ? "" : "," + strSaved));
    }
}

TEST_F(CellEditorTest, EnteredCell_IsSavedWithItsMarks) {
    OpenCell(L"x,65");
    frmConfig->Text4.Type(L"Poznámky");
    frmConfig->OptionType.Choose(CELL_KIND_NO_KEY);
    frmConfig->Text3.Type(L"notepad");
    frmConfig->OptSetMode.Choose(3);
    frmConfig->ChkResetColumnOnAction.Click();
    EXPECT_EQ(SavedCell(), "Poznámky,0,^>notepad");
}

TEST_F(CellEditorTest, Marks_GoAway_WhenTakenBack) {
    OpenCell(L"x,0,^|notepad");
    frmConfig->OptSetMode.Choose(0);
    frmConfig->ChkResetColumnOnAction.Click();
    EXPECT_EQ(SavedCell(), "x,0,notepad");
}

TEST_F(CellEditorTest, Controls_FitTheKind_WhenItIsChosen) {
    const auto Enabled = [] {
        std::string strEnabled;
        for (const forms::Control* pControl : {static_cast<forms::Control*>(&frmConfig->Text3),
                                               static_cast<forms::Control*>(&frmConfig->ComboKey),
                                               static_cast<forms::Control*>(&frmConfig->chkSHIFT),
                                               static_cast<forms::Control*>(&frmConfig->chkCTRL),
                                               static_cast<forms::Control*>(&frmConfig->chkALT),
                                               static_cast<forms::Control*>(&frmConfig->chkWin)}) {
            if (pControl->Enabled) strEnabled += platform::ToUtf8(pControl->strName) + ' ';
        }
        return strEnabled;
    };
    const std::string strKeys = "ComboKey chkSHIFT chkCTRL chkALT chkWin ";
    OpenCell(L"x,65");
    EXPECT_EQ(Enabled(), strKeys);
    frmConfig->OptionType.Choose(CELL_KIND_NO_KEY);
    EXPECT_EQ(Enabled(), "Text3 ");
    frmConfig->cmdCancel.Click();
    OpenAt(1, 1);
    EXPECT_EQ(Enabled(), strKeys) << "a key again, whatever was chosen last time";
    frmConfig->cmdCancel.Click();
    OpenCell(L"x,0,c");
    EXPECT_EQ(Enabled(), "Text3 ");
    EXPECT_TRUE(frmConfig->OptSetMode.Enabled) << "marks work for keys and commands";
    frmConfig->OptionType.Choose(CELL_KIND_KEY);
    EXPECT_EQ(Enabled(), strKeys);
    EXPECT_TRUE(frmConfig->ChkResetColumnOnAction.Enabled);
}

TEST_F(CellEditorTest, CommandOfAKeyCell_IsSaved_ThoughItsBoxIsDisabled) {
    OpenCell(L"x,65,^<calc");
    EXPECT_FALSE(frmConfig->Text3.Enabled);
    EXPECT_EQ(Text(frmConfig->Text3), "calc");
    EXPECT_EQ(SavedCell(), "x,65,^<calc");
}

TEST_F(CellEditorTest, Code_IsZero_WhenTheCellIsToHaveNoKey) {
    OpenCell(L"x,20083,calc");
    frmConfig->OptionType.Choose(CELL_KIND_NO_KEY);
    EXPECT_EQ(SelectedKey(), "S") << "the list keeps its selection";
    EXPECT_EQ(SavedCell(), "x,0,calc");
}

TEST_F(CellEditorTest, Lists_HoldFiftyPositionsAndTheKeyNames) {
    ShowCommon(L"[1,1]a,65\r\n[2,1]b,66\r\n[1,2]c,67\r\n[2,2]d,68\r\n[1,3]e,69\r\n[2,3]f,70\r\n");
    OpenAt(2, 3);
    for (const forms::ComboBox* pList : {&frmConfig->ComboX, &frmConfig->ComboY}) {
        ASSERT_EQ(pList->ListCount(), 50);
        EXPECT_EQ(pList->ItemText(0), L"1");
        EXPECT_EQ(pList->ItemText(49), L"50");
    }
    EXPECT_EQ(frmConfig->ComboX.SelectedText(), L"2");
    EXPECT_EQ(frmConfig->ComboY.SelectedText(), L"3");
    EXPECT_EQ(frmConfig->ComboKey.ListCount(), KEY_NAME_COUNT);
    EXPECT_EQ(platform::ToUtf8(frmConfig->Caption.Get()), "Nastavení položky - f");
    EXPECT_EQ(Text(frmConfig->Text4), "f");
}

TEST_F(CellEditorTest, EveryControl_IsSetAnew_WhenAnotherCellIsOpened) {
    ShowCommon(L"[1,1]a,30065,^>x\r\n[2,1]b,0\r\n");
    OpenAt(1, 1);
    frmConfig->cmdCancel.Click();
    OpenAt(2, 1);
    EXPECT_EQ(Ticked(), "");
    EXPECT_EQ(frmConfig->ComboKey.ListIndex, -1);
    EXPECT_EQ(frmConfig->OptSetMode.Selected, 0);
    EXPECT_FALSE(frmConfig->ChkResetColumnOnAction.Value);
    EXPECT_EQ(Text(frmConfig->Text3), "");
    EXPECT_EQ(platform::ToUtf8(frmConfig->lblCode.Caption.Get()), "kód 0");
    EXPECT_EQ(platform::ToUtf8(frmConfig->Caption.Get()), "Nastavení položky - b");
}

TEST_F(CellEditorTest, ChangedFlag_TellsOfEditsButNotOfFilling) {
    OpenCell(L"x,65,<c");
    EXPECT_FALSE(frmConfig->bChanged);
    const std::pair<const char*, void (*)()> Edits[] = {
        {"ComboX", [] { frmConfig->ComboX.Select(7); }},
        {"ComboY", [] { frmConfig->ComboY.Select(7); }},
        {"Text3", [] { frmConfig->Text3.Type(L"other"); }},
        {"Text4", [] { frmConfig->Text4.Type(L"other"); }},
        {"OptSetMode", [] { frmConfig->OptSetMode.Choose(2); }},
    };
    for (const auto& [szName, Edit] : Edits) {
        frmConfig->bChanged = false;
        Edit();
        EXPECT_TRUE(frmConfig->bChanged) << szName;
    }
    frmConfig->bChanged = false;
    frmConfig->chkCTRL.Click();
    frmConfig->ComboKey.Select(3);
    EXPECT_FALSE(frmConfig->bChanged);
}

TEST_F(CellEditorTest, OpenAndActiveFlags_AreSetUntilUnloaded) {
    ShowCommon(L"[1,1]a,65\r\n");
    for (forms::Button* pButton : {&frmConfig->cmdOK, &frmConfig->cmdCancel}) {
        OpenAt(1, 1);
        EXPECT_TRUE(Program.bConfigOpen);
        EXPECT_TRUE(Program.bDialogActive);
        pButton->Click();
        EXPECT_FALSE(frmConfig->IsLoaded());
        EXPECT_FALSE(Program.bConfigOpen);
        EXPECT_FALSE(Program.bDialogActive);
    }
}

TEST_F(CellEditorTest, Menu_ShowsTheEditorModal) {
    bool bShown = false;
    ShowCommon(L"[1,1]a,65\r\n");
    Desktop.WhileModal = [&](forms::Form& Form) {
        bShown = &Form == frmConfig.get() && Form.IsModal();
        frmConfig->cmdCancel.Click();
    };
    forms::FrmMain->mnuSettings.Click();
    EXPECT_TRUE(bShown);
    EXPECT_FALSE(frmConfig->IsLoaded());
}

}  // namespace
}  // namespace taviro
