// SPDX-License-Identifier: MIT
// Settings of the program: wrapping, scanning, and the map's sizes. While the form is loaded the
// joystick drives nothing; instead its buttons open their own dialog. Values reach the settings
// object on OK, and the file at the next save.
#pragma once

#include <cstdint>
#include <memory>

#include "dialogs/control_ids.h"
#include "forms/dialog_controls.h"
#include "forms/form.h"

namespace taviro {

class AppSettingForm : public forms::Form {
  public:
    AppSettingForm();

    static constexpr int32_t CAPTURE_INTERVAL_MS = 200;

    forms::CheckBox chkRowWrap{*this, L"chkRowWrap", IDC_chkRowWrap};
    forms::CheckBox chkColumnWrap{*this, L"chkColumnWrap", IDC_chkColumnWrap};
    forms::CheckBox chkTriggerRowReset{*this, L"chkTriggerRowReset", IDC_chkTriggerRowReset};
    forms::CheckBox chkTriggerColumnReset{*this, L"chkTriggerColumnReset",
                                          IDC_chkTriggerColumnReset};
    forms::CheckBox chkVoiceOnLineChange{*this, L"chkVoiceOnLineChange", IDC_chkVoiceOnLineChange};
    forms::CheckBox chkScanMode{*this, L"chkScanMode", IDC_chkScanMode};
    forms::ComboBox ComboScanX{*this, L"ComboScanX", IDC_ComboScanX};
    forms::ComboBox ComboScanY{*this, L"ComboScanY", IDC_ComboScanY};
    forms::ComboBox Combo1{*this, L"Combo1", IDC_Combo1};  ///< scan delay, milliseconds
    forms::ComboBox ComboTextSize{*this, L"ComboTextSize", IDC_ComboTextSize};
    forms::ComboBox ComboCellWidth{*this, L"ComboCellWidth", IDC_ComboCellWidth};
    forms::ComboBox ComboCellHeight{*this, L"ComboCellHeight", IDC_ComboCellHeight};
    forms::TextBox txtActionButton{*this, L"txtActionButton", IDC_txtActionButton};
    forms::TextBox Text2{*this, L"Text2", IDC_Text2};  ///< without a purpose, and hidden
    forms::Button cmdOK{*this, L"cmdOK", IDC_cmdOK};
    forms::Button cmdCancel{*this, L"cmdCancel", IDC_cmdCancel};
    forms::Timer Timer1{*this, L"Timer1", CAPTURE_INTERVAL_MS};

    bool bLayoutChanged = false;  ///< OK changed a size of the map's cells
    int16_t nFocusField = 0;  ///< the text box with the focus: 1 Text2, 2 txtActionButton, 0 none

  private:
    void Form_Load();
    void Form_Unload();
    void FillLists();
    void StoreSettings() const;
    void NoteLayoutChange();
    void chkScanMode_Click();
    void cmdOK_Click();
    void Timer1_Timer();
};

/// One for the whole run, made anew only by tests.
inline std::unique_ptr<AppSettingForm> frmAppSetting = std::make_unique<AppSettingForm>();

}  // namespace taviro
