// SPDX-License-Identifier: MIT
#include "dialogs/button_config_form.h"

#include <algorithm>
#include <string>

#include "dialogs/entered_text.h"
#include "dialogs/key_choice.h"
#include "dialogs/keyboard_dialog.h"
#include "state/program_state.h"
#include "vocabulary/action_code.h"
#include "vocabulary/button_word.h"

namespace taviro {

namespace {

constexpr size_t LONGEST_COMMAND = 1023;  // characters that reading the settings file returns

constexpr size_t QUOTES_OF_FILE = 2;  // of these, when the command needs them

// A command as the settings file gives it back: no blanks before it, and with real quotes.
std::wstring StorableCommand(const std::wstring& strEntered) {
    std::wstring strLine = OneLine(strEntered);
    strLine.erase(0, std::min(strLine.find_first_not_of(L' '), strLine.size()));
    const size_t nRoom = LONGEST_COMMAND - (NeedsQuotes(strLine) ? QUOTES_OF_FILE : 0);
    return ButtonWord::FromStoredQuotes(strLine).substr(0, nRoom);
}

KeyChoice KeyOfForm(ButtonConfigForm& Form) {
    return {Form.ComboKey, Form.chkSHIFT, Form.chkCTRL, Form.chkALT, Form.chkWin};
}

}  // namespace

ButtonConfigForm::ButtonConfigForm() : Form(L"frmButtonConfig") {
    AdmitAs(Text3, StorableCommand);
    OnLoad = [this] { FillControls(); };
    TakeKeyboard(*this);
    OnActivate = [this, Told = OnActivate] {
        Told();
        // The number that the settings dialog shows when the button is pressed there.
        Caption = L"Nastavení tlačítka " + std::to_wstring(m_nButton);
    };
    cmdOK.OnClick = [this] {
        if (StoreRow()) return Unload();
        TellUser(*this, L"Vyberte klávesu, kterou má tlačítko stisknout.");
    };
    cmdCancel.OnClick = [this] { Unload(); };
}

ButtonAction* ButtonConfigForm::Row() const {
    const bool bInside = m_nButton >= 0 && m_nButton < static_cast<int32_t>(nButtonCount);
    return bInside ? &ButtonTable[static_cast<size_t>(m_nButton)] : nullptr;
}

void ButtonConfigForm::FillControls() {
    const ButtonAction* pRow = Row();
    const ButtonAction Shown =
        pRow == nullptr ? ButtonAction{.Kind = ButtonKind::Unassigned} : *pRow;
    OptionType.Selected = -1;
    OptionType.Choose(static_cast<int32_t>(Shown.Kind));
    KeyOfForm(*this).Show(Shown.Code);
    const bool bCommand = Shown.Kind == ButtonKind::Command;
    Text3.Text = bCommand ? Shown.Command : std::wstring{};
}

bool ButtonConfigForm::StoreRow() {
    ButtonAction* pRow = Row();
    if (pRow == nullptr) return true;
    const int32_t nRole = OptionType.Selected;
    ButtonAction Chosen = *pRow;
    Chosen.Kind = nRole < 0 ? ButtonKind::Unassigned : static_cast<ButtonKind>(nRole);
    if (Chosen.Kind == ButtonKind::Code) {
        // A key that has no name, as a settings file may hold, stays when no other is chosen.
        const bool bHadKey = pRow->Kind == ButtonKind::Code;
        Chosen.Code = KeyOfForm(*this).Code(bHadKey ? pRow->Code : NO_KEY);
        if (UnmodifiedCode(Chosen.Code) == NO_KEY) return false;
    }
    if (Chosen.Kind == ButtonKind::Command) Chosen.Command = Text3.Text;
    *pRow = Chosen;
    return true;
}

}  // namespace taviro
