// SPDX-License-Identifier: MIT
// The button dialog: what it shows of a button's row and what it writes back.
#include "dialogs/button_config_form.h"

#include "maps/key_names.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

constexpr int32_t EDITED = 5;

class ButtonConfigTest : public ProgramTest {
  protected:
    ButtonConfigTest() { Start(); }

    static ButtonAction& Row(int32_t nButton = EDITED) {
        return ButtonTable[static_cast<size_t>(nButton)];
    }
    static void Open(int32_t nButton = EDITED) {
        frmButtonConfig->SetButton(nButton);
        frmButtonConfig->Show();
    }
    static void OpenRow(ButtonKind nKind, const std::wstring& strCommand, int32_t nCode) {
        Row() = {.Kind = nKind, .Command = strCommand, .Code = nCode};
        Open();
    }
    static void Ok() { frmButtonConfig->cmdOK.Click(); }
    static std::string Ticked() {
        std::string strTicked;
        if (frmButtonConfig->chkSHIFT.Value) strTicked += 'S';
        if (frmButtonConfig->chkCTRL.Value) strTicked += 'C';
        if (frmButtonConfig->chkALT.Value) strTicked += 'A';
        if (frmButtonConfig->chkWin.Value) strTicked += 'W';
        return strTicked;
    }
    static void ExpectRow(ButtonKind nKind, const std::string& strCommand, int32_t nCode) {
        EXPECT_EQ(Row().Kind, nKind);
        EXPECT_EQ(platform::ToUtf8(Row().Command), strCommand);
        EXPECT_EQ(Row().Code, nCode);
    }
};

TEST_F(ButtonConfigTest, EveryKindOfButton_StaysAsItIs_WhenConfirmedUnchanged) {
    const ButtonAction ROWS[] = {
        {.Kind = ButtonKind::Action, .Command = L"kept", .Code = 66},
        {.Kind = ButtonKind::Mode, .Command = L"kept", .Code = 66},
        {.Kind = ButtonKind::Code, .Command = L"kept", .Code = 65},
        {.Kind = ButtonKind::Code, .Command = L"", .Code = 70112},
        {.Kind = ButtonKind::Code, .Command = L"", .Code = 90068},
        {.Kind = ButtonKind::Code, .Command = L"", .Code = 11048},
        {.Kind = ButtonKind::Code, .Command = L"", .Code = 20091},  // a key without a name
        {.Kind = ButtonKind::Command, .Command = L"\"C:\\a b.exe\"", .Code = 66},
        {.Kind = ButtonKind::Command, .Command = L"", .Code = 0},
        {.Kind = ButtonKind::Unassigned, .Command = L"kept", .Code = 66},
    };
    for (const ButtonAction& Before : ROWS) {
        Row() = Before;
        Open();
        EXPECT_EQ(frmButtonConfig->OptionType.Selected,
                  Before.Kind == ButtonKind::Unassigned ? -1 : static_cast<int32_t>(Before.Kind));
        Ok();
        EXPECT_TRUE(Row() == Before)
            << static_cast<int>(Before.Kind) << ": " << Before.Code << " became " << Row().Code;
    }
}

TEST_F(ButtonConfigTest, Role_IsStored_WhenItIsChosen) {
    const std::pair<int32_t, ButtonKind> ROLES[] = {{0, ButtonKind::Action},
                                                    {1, ButtonKind::Mode},
                                                    {2, ButtonKind::Code},
                                                    {3, ButtonKind::Command}};
    for (const auto& [nRole, nKind] : ROLES) {
        OpenRow(ButtonKind::Unassigned, L"", 0);
        frmButtonConfig->OptionType.Choose(nRole);
        frmButtonConfig->ComboKey.Select(0);
        Ok();
        EXPECT_EQ(Row().Kind, nKind);
    }
}

TEST_F(ButtonConfigTest, Key_IsStoredWithItsModifiers_AndShownAgain) {
    OpenRow(ButtonKind::Action, L"kept", 0);
    frmButtonConfig->OptionType.Choose(2);
    frmButtonConfig->ComboKey.SelectText(L"A");
    frmButtonConfig->chkCTRL.Click();
    frmButtonConfig->chkSHIFT.Click();
    Ok();
    ExpectRow(ButtonKind::Code, "kept", 30065);
    Open();
    EXPECT_EQ(Ticked(), "SC");
    EXPECT_EQ(frmButtonConfig->ComboKey.SelectedText(), L"A");
    frmButtonConfig->chkWin.Click();
    Ok();
    ExpectRow(ButtonKind::Code, "kept", 90065);
    Open();
    EXPECT_EQ(Ticked(), "W");
}

TEST_F(ButtonConfigTest, EachModifier_HasItsDigit) {
    const std::pair<forms::CheckBox*, int32_t> Boxes[] = {{&frmButtonConfig->chkSHIFT, 10065},
                                                          {&frmButtonConfig->chkCTRL, 20065},
                                                          {&frmButtonConfig->chkALT, 40065},
                                                          {&frmButtonConfig->chkWin, 90065}};
    for (const auto& [pBox, nCode] : Boxes) {
        OpenRow(ButtonKind::Code, L"", 65);
        pBox->Click();
        Ok();
        EXPECT_EQ(Row().Code, nCode);
    }
}

TEST_F(ButtonConfigTest, Key_IsLeftAlone_WhenTheRoleIsAnother) {
    OpenRow(ButtonKind::Code, L"kept", 20083);
    frmButtonConfig->OptionType.Choose(1);
    frmButtonConfig->ComboKey.Select(0);
    frmButtonConfig->Text3.Type(L"unused");
    Ok();
    ExpectRow(ButtonKind::Mode, "kept", 20083);
}

TEST_F(ButtonConfigTest, KeyWithoutName_StaysAndTakesModifiers_WhenNoOtherIsChosen) {
    OpenRow(ButtonKind::Code, L"", 91);
    EXPECT_EQ(frmButtonConfig->ComboKey.ListIndex, -1);
    frmButtonConfig->chkALT.Click();
    Ok();
    EXPECT_EQ(Row().Code, 40091);
}

TEST_F(ButtonConfigTest, KeyButton_IsRefusedWithAMessage_WithoutAKey) {
    const ButtonAction ROWS[] = {
        {.Kind = ButtonKind::Unassigned, .Command = L"", .Code = 0},
        {.Kind = ButtonKind::Command, .Command = L"calc", .Code = 91},  // left over, and not shown
        {.Kind = ButtonKind::Code, .Command = L"", .Code = 20000},
    };
    for (const ButtonAction& Before : ROWS) {
        Row() = Before;
        Open();
        frmButtonConfig->OptionType.Choose(2);
        frmButtonConfig->chkCTRL.Value = true;
        Desktop.TakeEffects();
        Ok();
        EXPECT_EQ(Row(), Before);
        EXPECT_TRUE(frmButtonConfig->Visible) << "the key can still be chosen";
        EXPECT_EQ(Desktop.TakeEffects(),
                  (Effects{"information \"Vyberte klávesu, kterou má tlačítko stisknout.\" titled "
                           "\"Nastavení tlačítka 5\""}));
        frmButtonConfig->ComboKey.SelectText(L"A");
        Ok();
        ExpectRow(ButtonKind::Code, platform::ToUtf8(Before.Command), 20065);
        EXPECT_FALSE(frmButtonConfig->IsLoaded());
    }
}

TEST_F(ButtonConfigTest, Command_IsShownOnlyForACommandButton) {
    OpenRow(ButtonKind::Command, L"notepad", 0);
    EXPECT_EQ(frmButtonConfig->Text3.Text.Get(), L"notepad");
    frmButtonConfig->Text3.Type(L"calc");
    Ok();
    ExpectRow(ButtonKind::Command, "calc", 0);
    Row().Kind = ButtonKind::Mode;
    Open();
    EXPECT_EQ(frmButtonConfig->Text3.Text.Get(), L"");
}

TEST_F(ButtonConfigTest, Command_ShowsWhatTheSettingsCanHold_WhenSomethingElseIsEntered) {
    const std::pair<std::wstring, std::string> ENTRIES[] = {
        {L"a\r\nb", "a b"},
        {L"notepad\n[Info]\nLog=1", "notepad [Info] Log=1"},
        {L"C:\\Жанна 日本", "C:\\Жанна 日本"},
        {L"  calc", "calc"},
        {L"$x$", "\"x\""},
        {L"a=b;c#d", "a=b;c#d"},
        {L"příkaz", "příkaz"},
        {std::wstring(10000, L'ž'), platform::ToUtf8(std::wstring(1023, L'ž'))},
        {L"7zFM.exe", "7zFM.exe"},
        {L"*action", "*action"},
        {L"'x y'", "'x y'"},
        {L".5x", ".5x"},
        {std::wstring(10000, L'7'), std::string(1021, '7')},
    };
    for (const auto& [strEntered, strHeld] : ENTRIES) {
        OpenRow(ButtonKind::Command, L"old", 0);
        frmButtonConfig->Text3.Type(strEntered);
        EXPECT_EQ(platform::ToUtf8(frmButtonConfig->Text3.Text.Get()), strHeld);
        Ok();
        objSetting.SaveSetting();
        ButtonTable = {};
        objSetting.Init(DATA_PATH + L"\\setting.ini", L"");
        ExpectRow(ButtonKind::Command, strHeld, 0);
    }
}

TEST_F(ButtonConfigTest, OnlyTheEditedRow_IsWritten) {
    for (const int32_t nButton : {0, 15}) {
        const auto Before = ButtonTable;
        Open(nButton);
        frmButtonConfig->OptionType.Choose(2);
        frmButtonConfig->ComboKey.SelectText(L"ENTER");
        Ok();
        for (int32_t n = 0; n < static_cast<int32_t>(nButtonCount); ++n) {
            const bool bSame = Row(n) == Before[static_cast<size_t>(n)];
            EXPECT_EQ(bSame, n != nButton) << n << " after " << nButton;
        }
    }
}

TEST_F(ButtonConfigTest, NumberOutsideTheTable_ShowsAnEmptyButtonAndStoresNothing) {
    const auto Before = ButtonTable;
    for (const int32_t nButton : {-1, 16, INT32_MAX}) {
        Open(nButton);
        EXPECT_EQ(frmButtonConfig->OptionType.Selected, -1);
        frmButtonConfig->OptionType.Choose(1);
        Ok();
        EXPECT_TRUE(ButtonTable == Before) << nButton;
    }
}

TEST_F(ButtonConfigTest, EveryControl_IsSetAnew_WhenAnotherButtonIsOpened) {
    OpenRow(ButtonKind::Code, L"", 70083);
    frmButtonConfig->Text3.Type(L"left over");
    frmButtonConfig->cmdCancel.Click();
    ButtonTable[7] = {.Kind = ButtonKind::Unassigned, .Command = L"", .Code = 0};
    Open(7);
    EXPECT_EQ(Ticked(), "");
    EXPECT_EQ(frmButtonConfig->OptionType.Selected, -1);
    EXPECT_EQ(frmButtonConfig->ComboKey.ListIndex, -1);
    EXPECT_EQ(frmButtonConfig->ComboKey.ListCount(), KEY_NAME_COUNT);
    EXPECT_EQ(frmButtonConfig->Text3.Text.Get(), L"");
}

TEST_F(ButtonConfigTest, Caption_NamesTheButtonByItsNumber) {
    for (const int32_t nButton : {0, 15}) {
        Open(nButton);
        EXPECT_EQ(platform::ToUtf8(frmButtonConfig->Caption.Get()),
                  "Nastavení tlačítka " + std::to_string(nButton));
        frmButtonConfig->Unload();
    }
}

TEST_F(ButtonConfigTest, Nothing_IsStored_WhenClosedWithoutOk) {
    OpenRow(ButtonKind::Code, L"", 65);
    frmButtonConfig->OptionType.Choose(0);
    frmButtonConfig->chkALT.Click();
    frmButtonConfig->cmdCancel.Click();
    EXPECT_FALSE(frmButtonConfig->IsLoaded());
    ExpectRow(ButtonKind::Code, "", 65);
}

TEST_F(ButtonConfigTest, ActiveFlag_IsSetUntilUnloaded) {
    for (forms::Button* pButton : {&frmButtonConfig->cmdOK, &frmButtonConfig->cmdCancel}) {
        Open();
        EXPECT_TRUE(Program.bDialogActive);
        pButton->Click();
        EXPECT_FALSE(Program.bDialogActive);
        EXPECT_FALSE(frmButtonConfig->IsLoaded());
    }
}

}  // namespace
}  // namespace taviro
