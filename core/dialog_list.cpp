// SPDX-License-Identifier: MIT
#include "core/dialog_list.h"

#include <initializer_list>

#include "dialogs/about_form.h"
#include "dialogs/app_setting_form.h"
#include "dialogs/button_config_form.h"
#include "dialogs/cell_editor_form.h"
#include "dialogs/map_chooser_form.h"
#include "dialogs/voice_form.h"
#include "platform/dialogs.h"

namespace taviro {

void MakeDialogsAnew() {
    platform::DetachDialogs();
    FrmVoice = std::make_unique<VoiceForm>();
    frmAbout = std::make_unique<AboutForm>();
    frmAppSetting = std::make_unique<AppSettingForm>();
    frmButtonConfig = std::make_unique<ButtonConfigForm>();
    frmConfig = std::make_unique<CellEditorForm>();
    frmMap = std::make_unique<MapChooserForm>();
}

void AttachDialogs() {
    for (forms::Form* pForm : std::initializer_list<forms::Form*>{
             FrmVoice.get(), frmAbout.get(), frmAppSetting.get(), frmButtonConfig.get(),
             frmConfig.get(), frmMap.get()}) {
        platform::AttachDialog(*pForm);
    }
}

}  // namespace taviro
