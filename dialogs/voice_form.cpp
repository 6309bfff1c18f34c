// SPDX-License-Identifier: MIT
#include "dialogs/voice_form.h"

#include "feedback/speech.h"
#include "platform/automation.h"
#include "settings/setting.h"
#include "state/program_state.h"

namespace taviro {

namespace {

// The engine's number of that name; leaves nValue alone when the engine does not say.
void ReadEngineNumber(const wchar_t* szProperty, int32_t& nValue) {
    platform::AutomationValue Value;
    if (!platform::GetProperty(Speech.objVoice, szProperty, {}, Value)) return;
    if (const auto* pNumber = std::get_if<int32_t>(&Value)) nValue = *pNumber;
}

void Voice_Unload() {
    Program.bDialogActive = false;
    int32_t nRate = objSetting.Rate();
    int32_t nVolume = objSetting.Volume();
    ReadEngineNumber(L"Rate", nRate);
    ReadEngineNumber(L"Volume", nVolume);
    objSetting.Rate(nRate);
    objSetting.Volume(nVolume);
    objSetting.SaveSetting();
    Speech.objVoice.reset();
}

}  // namespace

VoiceForm::VoiceForm() : Form(L"FrmVoice") {
    OnLoad = PrepareVoice;
    OnUnload = Voice_Unload;
}

}  // namespace taviro
