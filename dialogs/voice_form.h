// SPDX-License-Identifier: MIT
// The voice form: which voice speaks, how fast, how loud and how high. Every change is applied and
// spoken at once. The form is loaded hidden at start-up and owns the speech engine for as long as
// it is loaded; the next use of speech loads it again.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "dialogs/control_ids.h"
#include "forms/dialog_controls.h"
#include "forms/form.h"

namespace taviro {

class VoiceForm : public forms::Form {
  public:
    VoiceForm();

    static constexpr int32_t BAR_MOST = 100;

    forms::GroupFrame Frame_List{*this, L"Frame_List", IDC_Frame_List};
    forms::Label lblList{*this, L"lblList", IDC_lblList};
    forms::ListBox VoiceList{*this, L"VoiceList", IDC_VoiceList};
    forms::GroupFrame Frame_Rate{*this, L"Frame_Rate", IDC_Frame_Rate};
    forms::Label lbl_Rate{*this, L"lbl_Rate", IDC_lbl_Rate};
    forms::ScrollBar HScroll_Rate{*this, L"HScroll_Rate", IDC_HScroll_Rate, 0, BAR_MOST};
    forms::GroupFrame Frame_Vol{*this, L"Frame_Vol", IDC_Frame_Vol};
    forms::Label lbl_Vol{*this, L"lbl_Vol", IDC_lbl_Vol};
    forms::ScrollBar HScroll_Volume{*this, L"HScroll_Volume", IDC_HScroll_Volume, 0, BAR_MOST};
    forms::GroupFrame Frame_Pitch{*this, L"Frame_Pitch", IDC_Frame_Pitch};
    forms::Label lbl_Pitch{*this, L"lbl_Pitch", IDC_lbl_Pitch};
    forms::ScrollBar HScroll_Pitch{*this, L"HScroll_Pitch", IDC_HScroll_Pitch, 0, BAR_MOST};
    forms::Button cmdOK{*this, L"cmdOK", IDC_cmdOK};
    // For trying the engine while the program is developed; users never see them.
    forms::TextBox Text1{*this, L"Text1", IDC_Text1};
    forms::Button Command1{*this, L"Command1", IDC_Command1};
    forms::Button Command2{*this, L"Command2", IDC_Command2};
    forms::Button Command3{*this, L"Command3", IDC_Command3};

  private:
    void Form_Load();
    void Form_Unload();
    void ClearControls();
    void FitHeight();
    void FillVoiceList();
    void PlaceBars();
    void VoiceList_Click() const;
    void HScroll_Rate_Change() const;
    void HScroll_Volume_Change() const;
    void HScroll_Pitch_Change() const;
};

/// One for the whole run, made anew only by tests.
inline std::unique_ptr<VoiceForm> FrmVoice = std::make_unique<VoiceForm>();

}  // namespace taviro
