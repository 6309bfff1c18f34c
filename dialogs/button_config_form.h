// SPDX-License-Identifier: MIT
// What one joystick button does: its role, and for a key button the key with its modifiers, for a
// command button the command. OK writes the button's row of the button table; the settings file
// follows with the next save of the settings. A key button without a key is refused with a message.
#pragma once

#include <memory>

#include "dialogs/control_ids.h"
#include "forms/dialog_controls.h"
#include "forms/form.h"
#include "settings/button_table.h"

namespace taviro {

inline constexpr int32_t BUTTON_ROLE_COUNT = 4;  ///< the roles that OptionType offers

class ButtonConfigForm : public forms::Form {
  public:
    ButtonConfigForm();

    /// The role, by its number in the button table; none chosen is a button without a role.
    forms::OptionGroup OptionType{*this, L"OptionType", IDC_OptionType, BUTTON_ROLE_COUNT};
    forms::ListBox ComboKey{*this, L"ComboKey", IDC_ComboKey};  ///< the key names, in their order
    forms::CheckBox chkSHIFT{*this, L"chkSHIFT", IDC_chkSHIFT};
    forms::CheckBox chkCTRL{*this, L"chkCTRL", IDC_chkCTRL};
    forms::CheckBox chkALT{*this, L"chkALT", IDC_chkALT};
    forms::CheckBox chkWin{*this, L"chkWin", IDC_chkWin};
    forms::TextBox Text3{*this, L"Text3", IDC_Text3};  ///< the command
    forms::Button cmdOK{*this, L"cmdOK", IDC_cmdOK};
    forms::Button cmdCancel{*this, L"cmdCancel", IDC_cmdCancel};

    /// Which button the form edits, 0 to 15; to be called before the form is shown. With a number
    /// outside the table the form shows an empty button and OK stores nothing.
    void SetButton(int32_t nButton) { m_nButton = nButton; }

  private:
    ButtonAction* Row() const;
    void FillControls();
    // Returns false, and stores nothing, when a key is to be pressed and none is chosen.
    bool StoreRow();

    int32_t m_nButton = 0;
};

/// One for the whole run, made anew only by tests.
inline std::unique_ptr<ButtonConfigForm> frmButtonConfig = std::make_unique<ButtonConfigForm>();

}  // namespace taviro
