// SPDX-License-Identifier: MIT
#include "core/main_menu.h"

#include "actions/key_synthesis.h"
#include "core/dialog_list.h"
#include "dialogs/about_form.h"
#include "dialogs/app_setting_form.h"
#include "dialogs/cell_editor_form.h"
#include "dialogs/map_chooser_form.h"
#include "dialogs/voice_form.h"
#include "feedback/event_log.h"
#include "forms/main_form.h"
#include "platform/shell.h"
#include "platform/unneeded.h"

namespace taviro {

namespace {

using forms::FrmMain;

constexpr int32_t SHOW_NORMAL = 1;

}  // namespace

void UnloadForm(forms::Form& Form) {
    Form.Unload();
}

void OpenHelp() {
    // What the system cannot open it tells the user itself.
    Unneeded(platform::ShellExecuteOnDesktop(
        L"Open", platform::ProgramFolder() + L"\\help\\taviro.htm", L"", SHOW_NORMAL));
}

void SendTestKey() {
    TypeCharacter('A');
}

void BindMenu() {
    AttachDialogs();
    FrmMain->mnuOpenMap.OnClick = [] { frmMap->Show(); };
    FrmMain->mnuExit.OnClick = [] { UnloadForm(*FrmMain); };
    FrmMain->mnuSettings.OnClick = [] { frmConfig->ShowModal(); };
    FrmMain->mnuSettingApp.OnClick = [] { frmAppSetting->ShowModal(); };
    FrmMain->mnuVoice.OnClick = [] { FrmVoice->Show(); };
    FrmMain->mnuLog.OnClick = ToggleLog;
    FrmMain->mnuAbout.OnClick = [] { frmAbout->ShowModal(); };
    FrmMain->mnuHelpOpen.OnClick = OpenHelp;
}

}  // namespace taviro
