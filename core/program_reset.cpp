// SPDX-License-Identifier: MIT
#include "core/program_reset.h"

#include "actions/choice_list.h"
#include "actions/key_action.h"
#include "actions/key_sequence.h"
#include "actions/launch_watch.h"
#include "actions/prediction.h"
#include "actions/window_rights.h"
#include "core/cursor_movement.h"
#include "core/dialog_list.h"
#include "core/poll_loop.h"
#include "core/startup.h"
#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "forms/main_form.h"
#include "input/device_watch.h"
#include "input/joystick_reader.h"
#include "input/kept_press.h"
#include "input/keyboard_hook.h"
#include "maps/app_positions.h"
#include "maps/key_names.h"
#include "maps/map_grid.h"
#include "platform/failure.h"
#include "settings/button_table.h"
#include "settings/comfort_store.h"
#include "settings/setting.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "state/program_state.h"

namespace taviro {

void ResetProgram() {
    MakeDialogsAnew();
    forms::FrmMain = std::make_unique<forms::MainForm>();
    Program = {};
    Foreground = {};
    Cursor = {};
    Modes = {};
    Poll = {};
    Scanning = {};
    Joystick = {};
    DeviceWatch = {};
    KeptPress = {};
    KeyboardHook = {};
    objSetting = cSetting{};
    ButtonTable = {};
    Comfort = {};
    objComfort = ComfortStore{};
    Speech = {};
    EventLog = {};
    AppPosTable = {};
    KeyTable = {};
    KeyActions = {};
    ChoiceList = {};
    Prediction = {};
    WindowRights = {};
    LaunchWatch = {};
    SequenceTables = {};
    CommonMap = {};
    AppMap = {};
    platform::Reports = {};
    BindMainForm();
}

}  // namespace taviro
