// SPDX-License-Identifier: MIT
#include "core/startup.h"

#include <initializer_list>

#include "actions/choice_list.h"
#include "actions/command_action.h"
#include "actions/prediction.h"
#include "core/cursor_movement.h"
#include "core/folders.h"
#include "core/main_menu.h"
#include "core/main_window_events.h"
#include "core/poll_loop.h"
#include "dialogs/about_form.h"
#include "dialogs/app_setting_form.h"
#include "dialogs/button_config_form.h"
#include "dialogs/cell_editor_form.h"
#include "dialogs/map_chooser_form.h"
#include "dialogs/voice_form.h"
#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "forms/main_form.h"
#include "input/device_watch.h"
#include "input/joystick_reader.h"
#include "input/keyboard_hook.h"
#include "maps/key_names.h"
#include "maps/map_file.h"
#include "maps/map_window.h"
#include "maps/shown_map.h"
#include "platform/failure.h"
#include "platform/keys.h"
#include "platform/messages.h"
#include "platform/shell.h"
#include "platform/unneeded.h"
#include "settings/comfort.h"
#include "settings/comfort_store.h"
#include "settings/setting.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "state/program_state.h"

namespace taviro {

namespace {

using forms::FrmMain;

constexpr uint32_t FIRST_JOYSTICK = 0;

void LoadSettings() {
    objSetting.Init(Program.strDataPath + L"\\setting.ini", L"");
    Program.nCellTextSize = objSetting.CellTextSize();
    Program.nCellWidth = objSetting.CellWidth();
    Program.nCellHeight = objSetting.CellHeight();
    objComfort.Init(Program.strDataPath + L"\\comfort.ini",
                    platform::ProgramFolder() + L"\\comfort.ini");
}

void TellFaultsOfSettings() {
    for (const std::wstring& strFault : objComfort.Faults()) {
        platform::WriteToDebugger(strFault);
        LogEvent(strFault);
    }
}

void OpenJoystick() {
    const bool bAnswers = JoyInit(FIRST_JOYSTICK);
    Program.bJoystickAnswers = bAnswers;
    if (bAnswers) {
        FrmMain->Timer1.Enabled = true;
        Program.bJoystickPresent = true;
    } else {
        FrmMain->Timer1.Enabled = false;
        FrmMain->ScanTimer.Enabled = false;
    }
    if (!Comfort.bWatch) return;
    BeginWatch(bAnswers);
    FrmMain->Timer1.Enabled = true;
}

/// The watch knows without asking, and of any device.
bool AskJoystick() {
    if (Comfort.bWatch) return !DeviceWatch.bAbsent;
    return JoyInit(FIRST_JOYSTICK) && Joystick.bAnswered;
}

void HookKeyboard() {
    KeyboardHook.Enter = [] {
        if (Modes.bListMode) {
            ListAccept();
        } else {
            CommandAction(CELL_UNDER_CURSOR);
        }
    };
    KeyboardHook.Arrow = [](int32_t nVk) { MoveCursor(nVk); };
    KeyboardHook.AskJoystick = AskJoystick;
    InstallKeyboardHook();
}

void ShowFirstCell() {
    Cursor = {};
    SetHi(Cursor.nColumn, Cursor.nRow);
    ShowMap(true);
}

}  // namespace

void Form_Load() {
    PrepareDataFolder();
    FrmMain->List1.Visible = false;
    LoadSettings();
    CreateSpeechReader();
    Speech.LoadVoiceForm = [] { FrmVoice->Load(); };
    FrmVoice->Load();
    LoadMap(L"");
    OpenJoystick();
    HookKeyboard();
    ShowFirstCell();
    InitKeyTable();
    if (objSetting.Log() == 1) StartLog();
    TellFaultsOfSettings();
}

void Form_Unload() {
    objSetting.Log(EventLog.bLog ? 1 : 0);
    FlushLog();
    UnloadForm(*frmAbout);
    if (Speech.objSpeechReader != nullptr) {
        Speech.objSpeechReader.reset();
        platform::RunPendingMessages();  // lets the reader's program finish
    }
    FrmMain->Timer1.Enabled = false;
    FrmMain->ScanTimer.Enabled = false;
    for (forms::Form* pForm : std::initializer_list<forms::Form*>{
             frmButtonConfig.get(), frmMap.get(), frmAppSetting.get(), frmConfig.get(),
             FrmVoice.get()}) {
        UnloadForm(*pForm);
    }
    Speech.LoadVoiceForm = nullptr;  // nothing that still runs may bring the engine back
    RemoveKeyboardHook();
    platform::ReleaseHeldInput();
    objSetting.SaveSetting();
    Unneeded(objComfort.Save());  // what could not be saved when it was set
    Prediction.objDictionary.reset();
}

void BindMainForm() {
    platform::Reports.Tell = LogEvent;
    FrmMain->OnLoad = Form_Load;
    FrmMain->OnUnload = Form_Unload;
    FrmMain->Timer1.OnTimer = Timer1_Timer;
    FrmMain->ScanTimer.OnTimer = ScanTimer_Timer;
    FrmMain->OnResize = Form_Resize;
    FrmMain->Label2.OnMouseUp = Label2_MouseUp;
    FrmMain->txtCmd.OnChange = txtCmd_Change;
    BindMenu();
}

void Main() {
    if (!platform::ClaimSingleInstance()) return platform::QuitMessageLoop(0);
    FrmMain->Show();
}

}  // namespace taviro
