// SPDX-License-Identifier: MIT
#include "dialogs/app_setting_form.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <vector>

#include "dialogs/button_config_form.h"
#include "input/joystick_reader.h"
#include "maps/shown_map.h"
#include "platform/dialogs.h"
#include "platform/number_text.h"
#include "platform/unneeded.h"
#include "settings/setting.h"
#include "state/program_state.h"

namespace taviro {

namespace {

constexpr const wchar_t* PRESS_FIRST =
    L"Přesuňte se na předchozí textové pole a stiskněte požadované tlačítko na pákovém ovladači.";
constexpr const wchar_t* SCAN_DELAYS[] = {L"0",   L"100",  L"200",  L"500",
                                          L"700", L"1000", L"1500", L"2000"};
constexpr int32_t LARGEST_SCAN_AREA = 30;
constexpr int32_t SMALLEST_SIZE_TEXT = 5;
constexpr int32_t LARGEST_SIZE_TEXT = 200;

// Values of focus fields.
constexpr int16_t FIELD_NONE = 0;
constexpr int16_t FIELD_TEXT2 = 1;
constexpr int16_t FIELD_ACTION_BUTTON = 2;

// A setting that a box edits. Some are on by 1 alone, the others by all but 0.
struct BoxSetting {
    forms::CheckBox AppSettingForm::*pBox;
    int32_t (cSetting::*Get)() const;
    void (cSetting::*Set)(int32_t);
    bool bOnByOneAlone;
    bool IsOn() const {
        const int32_t nValue = (objSetting.*Get)();
        return bOnByOneAlone ? nValue == 1 : nValue != 0;
    }
};
constexpr BoxSetting BOXES[] = {
    {&AppSettingForm::chkScanMode, &cSetting::ScanMode, &cSetting::ScanMode, true},
    {&AppSettingForm::chkVoiceOnLineChange, &cSetting::VoiceOnLineChange,
     &cSetting::VoiceOnLineChange, false},
    {&AppSettingForm::chkTriggerRowReset, &cSetting::TriggerRowReset, &cSetting::TriggerRowReset,
     true},
    {&AppSettingForm::chkTriggerColumnReset, &cSetting::TriggerColumnReset,
     &cSetting::TriggerColumnReset, true},
    {&AppSettingForm::chkColumnWrap, &cSetting::ColumnWrap, &cSetting::ColumnWrap, false},
    {&AppSettingForm::chkRowWrap, &cSetting::RowWrap, &cSetting::RowWrap, false},
};

// A setting that a list edits: the selected position is the setting less one, whatever the entries
// say. Those of the sizes begin at 5, so the entry shown is 4 above the size.
struct ListSetting {
    forms::ComboBox AppSettingForm::*pList;
    int32_t (cSetting::*Get)() const;
    void (cSetting::*Set)(int32_t);
    int32_t nFirstText;
    int32_t nLastText;
};
constexpr ListSetting LISTS[] = {
    {&AppSettingForm::ComboScanX, &cSetting::ScanSizeX, &cSetting::ScanSizeX, 1, LARGEST_SCAN_AREA},
    {&AppSettingForm::ComboScanY, &cSetting::ScanSizeY, &cSetting::ScanSizeY, 1, LARGEST_SCAN_AREA},
    {&AppSettingForm::ComboTextSize, &cSetting::CellTextSize, &cSetting::CellTextSize,
     SMALLEST_SIZE_TEXT, LARGEST_SIZE_TEXT},
    {&AppSettingForm::ComboCellWidth, &cSetting::CellWidth, &cSetting::CellWidth,
     SMALLEST_SIZE_TEXT, LARGEST_SIZE_TEXT},
    {&AppSettingForm::ComboCellHeight, &cSetting::CellHeight, &cSetting::CellHeight,
     SMALLEST_SIZE_TEXT, LARGEST_SIZE_TEXT},
};

void FillWithNumbers(forms::ComboBox& List, int32_t nFirst, int32_t nLast) {
    std::vector<std::wstring> Numbers;
    for (int32_t n = nFirst; n <= nLast; ++n)
        Numbers.push_back(std::to_wstring(n));
    List.Items = Numbers;
}

}  // namespace

AppSettingForm::AppSettingForm() : Form(L"frmAppSetting") {
    OnLoad = [this] { Form_Load(); };
    OnUnload = [this] { Form_Unload(); };
    chkScanMode.OnClick = [this] { chkScanMode_Click(); };
    cmdOK.OnClick = [this] { cmdOK_Click(); };
    cmdCancel.OnClick = [this] { Unload(); };
    txtActionButton.OnGotFocus = [this] { nFocusField = FIELD_ACTION_BUTTON; };
    txtActionButton.OnLostFocus = [this] { nFocusField = FIELD_NONE; };
    Text2.OnGotFocus = [this] { nFocusField = FIELD_TEXT2; };
    Text2.OnLostFocus = [this] { nFocusField = FIELD_NONE; };
    Timer1.OnTimer = [this] { Timer1_Timer(); };
    Text2.Visible = false;
}

void AppSettingForm::Form_Load() {
    Program.bPauseJoystick = true;
    bLayoutChanged = false;
    nFocusField = FIELD_NONE;
    for (const BoxSetting& Box : BOXES)
        (this->*Box.pBox).Value = Box.IsOn();
    chkScanMode_Click();  // the box may have been as it is now
    FillLists();
    txtActionButton.Text = L"";
    Timer1.Enabled = true;
}

// A value outside its list leaves nothing selected.
void AppSettingForm::FillLists() {
    for (const ListSetting& Setting : LISTS) {
        forms::ComboBox& List = this->*Setting.pList;
        FillWithNumbers(List, Setting.nFirstText, Setting.nLastText);
        const int32_t nValue = (objSetting.*Setting.Get)();
        List.Select(std::max(nValue, 0) - 1);
    }
    Combo1.Items = std::vector<std::wstring>(std::begin(SCAN_DELAYS), std::end(SCAN_DELAYS));
    Combo1.SelectText(std::to_wstring(objSetting.ScanDelay()));
}

void AppSettingForm::chkScanMode_Click() {
    ComboScanX.Enabled = chkScanMode.Value.Get();
    ComboScanY.Enabled = chkScanMode.Value.Get();
}

// A setting that its control could not show, and that the user left alone, stays as it is.
void AppSettingForm::StoreSettings() const {
    for (const BoxSetting& Box : BOXES) {
        const bool bTicked = (this->*Box.pBox).Value;
        if (bTicked != Box.IsOn()) (objSetting.*Box.Set)(bTicked ? 1 : 0);
    }
    for (const ListSetting& Setting : LISTS) {
        const int32_t nIndex = (this->*Setting.pList).ListIndex;
        if (nIndex >= 0) (objSetting.*Setting.Set)(nIndex + 1);
    }
    int32_t nDelay{};
    if (platform::WholeTextToInt32(Combo1.SelectedText(), nDelay)) objSetting.ScanDelay(nDelay);
}

void AppSettingForm::NoteLayoutChange() {
    const std::array<int32_t, 3> Sizes{objSetting.CellTextSize(), objSetting.CellWidth(),
                                       objSetting.CellHeight()};
    const std::array<int32_t, 3> OnScreen{Program.nCellTextSize, Program.nCellWidth,
                                          Program.nCellHeight};
    if (Sizes != OnScreen) bLayoutChanged = true;
    Program.nCellTextSize = Sizes[0];
    Program.nCellWidth = Sizes[1];
    Program.nCellHeight = Sizes[2];
}

void AppSettingForm::cmdOK_Click() {
    StoreSettings();
    NoteLayoutChange();
    Unload();
    if (bLayoutChanged) ShowMap(true);
}

void AppSettingForm::Form_Unload() {
    Timer1.Enabled = false;
    Program.bPauseJoystick = false;
}

// A button of the joystick opens its dialog. The next tick waits until that is closed.
void AppSettingForm::Timer1_Timer() {
    JoyRead();
    // Unplugged with a button down it would seem held for ever, and that button's dialog would come
    // back as often as it is closed.
    if (!Joystick.bAnswered) return;
    const auto& Buttons = Joystick.bJoyButton;
    const auto Pressed = std::find(Buttons.begin(), Buttons.end(), true);
    if (Pressed == Buttons.end()) return;
    txtActionButton.Text = std::to_wstring(Pressed - Buttons.begin());
    if (!txtActionButton.Visible) return;
    if (txtActionButton.Text.Get().empty())
        return platform::ShowInformation(PRESS_FIRST, L"Taviro");
    int32_t nButton{};
    // A digit was just written there.
    Unneeded(platform::RoundToInt32(platform::LeadingNumber(txtActionButton.Text.Get()), nButton));
    frmButtonConfig->SetButton(nButton);
    frmButtonConfig->ShowModal();
}

}  // namespace taviro
