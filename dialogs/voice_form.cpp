// SPDX-License-Identifier: MIT
#include "dialogs/voice_form.h"

#include <utility>

#include "dialogs/keyboard_dialog.h"
#include "feedback/speech.h"
#include "platform/metrics.h"
#include "settings/setting.h"
#include "state/program_state.h"

namespace taviro {

namespace {

// Rate and pitch run from -10 to 10, five positions of their bars each; the reader's volume from 0
// to 20.
constexpr int32_t LEAST_LEVEL = -10;
constexpr int32_t MOST_LEVEL = 10;
constexpr int32_t POSITIONS_PER_LEVEL = 5;
constexpr int32_t NO_POSITION = -1;

int32_t PositionOf(int32_t nLevel) {
    if (nLevel < LEAST_LEVEL || nLevel > MOST_LEVEL) return NO_POSITION;
    return (nLevel - LEAST_LEVEL) * POSITIONS_PER_LEVEL;
}

// To the nearest; between two levels there is no middle position.
int32_t RoundedSteps(int32_t nPosition) {
    return (nPosition + POSITIONS_PER_LEVEL / 2) / POSITIONS_PER_LEVEL;
}

int32_t LevelOf(int32_t nPosition) {
    return RoundedSteps(nPosition) + LEAST_LEVEL;
}

// Puts a bar where it belongs without the effects of moving it. What is no position leaves it where
// it is.
void PlaceQuietly(forms::ScrollBar& Bar, int32_t nPosition) {
    auto OnChange = std::exchange(Bar.OnChange, nullptr);
    Bar.MoveTo(nPosition);
    Bar.OnChange = std::move(OnChange);
}

void SpeakPosition(const forms::ScrollBar& Bar) {
    if (Bar.Visible) SpeakIt(std::to_wstring(Bar.Value.Get()));
}

}  // namespace

VoiceForm::VoiceForm() : Form(L"FrmVoice") {
    OnLoad = [this] { Form_Load(); };
    OnUnload = [this] { Form_Unload(); };
    TakeKeyboard(*this);
    OnLaidOut = [this] { FitHeight(); };
    VoiceList.OnClick = [this] { VoiceList_Click(); };
    HScroll_Rate.OnChange = [this] { HScroll_Rate_Change(); };
    HScroll_Volume.OnChange = [this] { HScroll_Volume_Change(); };
    HScroll_Pitch.OnChange = [this] { HScroll_Pitch_Change(); };
    cmdOK.OnClick = [this] { Unload(); };
    forms::Control* const HIDDEN[] = {&Text1, &Command1, &Command2, &Command3};
    for (forms::Control* pControl : HIDDEN)
        pControl->Visible = false;
}

void VoiceForm::Form_Load() {
    ClearControls();
    FitHeight();
    const std::pair<forms::GroupFrame&, const forms::Label&> FRAMES[] = {
        {Frame_List, lblList},
        {Frame_Vol, lbl_Vol},
        {Frame_Rate, lbl_Rate},
        {Frame_Pitch, lbl_Pitch},
    };
    for (const auto& [Group, Label] : FRAMES)
        Group.Caption = Label.Caption.Get();
    CreateVoice();
    FillVoiceList();
    PlaceBars();
}

// The form as it was drawn: what an earlier showing left behind goes.
void VoiceForm::ClearControls() {
    lblList.Caption = L"&Hlasy:";
    lbl_Rate.Caption = L"&Rychlost:";
    lbl_Vol.Caption = L"H&lasitost:";
    lbl_Pitch.Caption = L"&Výška:";
    VoiceList.Clear();
    Text1.Text = L"";
    forms::ScrollBar* const BARS[] = {&HScroll_Rate, &HScroll_Volume, &HScroll_Pitch};
    for (forms::ScrollBar* pBar : BARS)
        PlaceQuietly(*pBar, pBar->nMin);
}

// Where the controls stand is known only once the view has laid them out; a height of 0 leaves the
// form as high as its layout.
void VoiceForm::FitHeight() {
    Height = (cmdOK.Top + 2 * cmdOK.Height) * platform::TwipsPerPixelY();
}

void VoiceForm::FillVoiceList() {
    for (const std::wstring& strVoice : VoiceDescriptions())
        VoiceList.AddItem(strVoice);
    CheckSAPI();
    VoiceList.AddItem(READER_VOICE);
    for (int32_t i = 0; i < VoiceList.ListCount(); ++i) {
        if (VoiceList.ItemText(i) == objSetting.VoiceName()) VoiceList.Select(i);
    }
}

// Each bar that moves applies its value once more, and speaks. Without an engine to tell its rate
// and volume their bars do not move, and stand where the settings are from the beginning.
void VoiceForm::PlaceBars() {
    int32_t nRate{};
    SetVoiceRate(objSetting.Rate());
    if (GetVoiceRate(nRate)) {
        HScroll_Rate.MoveTo(PositionOf(nRate));
    } else {
        PlaceQuietly(HScroll_Rate, PositionOf(objSetting.Rate()));
    }
    int32_t nVolume{};
    SetVoiceVolume(objSetting.Volume());
    if (GetVoiceVolume(nVolume)) {
        HScroll_Volume.MoveTo(nVolume);
    } else {
        PlaceQuietly(HScroll_Volume, objSetting.Volume());
    }
    HScroll_Pitch.MoveTo(PositionOf(objSetting.Pitch()));
}

void VoiceForm::VoiceList_Click() const {
    objSetting.VoiceName(VoiceList.SelectedText());
    CheckSAPI();
}

void VoiceForm::HScroll_Rate_Change() const {
    objSetting.Rate(LevelOf(HScroll_Rate.Value));
    SetVoiceRate(objSetting.Rate());
    SetReaderTempo(objSetting.Rate());
    SpeakPosition(HScroll_Rate);
}

void VoiceForm::HScroll_Volume_Change() const {
    objSetting.Volume(HScroll_Volume.Value);
    SetVoiceVolume(objSetting.Volume());
    SetReaderVolume(static_cast<int16_t>(RoundedSteps(objSetting.Volume())));
    SpeakPosition(HScroll_Volume);
}

// The engine gets its pitch with every utterance.
void VoiceForm::HScroll_Pitch_Change() const {
    objSetting.Pitch(LevelOf(HScroll_Pitch.Value));
    SetReaderPitch(objSetting.Pitch());
    SpeakPosition(HScroll_Pitch);
}

void VoiceForm::Form_Unload() {
    int32_t nRate{};
    if (GetVoiceRate(nRate)) objSetting.Rate(nRate);
    int32_t nVolume{};
    if (GetVoiceVolume(nVolume)) objSetting.Volume(nVolume);
    objSetting.SaveSetting();
    Speech.objVoice.reset();
}

}  // namespace taviro
