// SPDX-License-Identifier: MIT
#include "core/poll_loop.h"

#include <algorithm>
#include <array>
#include <string>

#include "actions/choice_list.h"
#include "actions/command_action.h"
#include "actions/foreground_watch.h"
#include "actions/key_synthesis.h"
#include "actions/launch_watch.h"
#include "actions/mode_transitions.h"
#include "actions/prediction.h"
#include "actions/window_rights.h"
#include "core/cursor_movement.h"
#include "core/device_news.h"
#include "feedback/announce.h"
#include "feedback/event_log.h"
#include "forms/main_form.h"
#include "input/device_watch.h"
#include "input/joystick_reader.h"
#include "input/kept_press.h"
#include "input/stick_position.h"
#include "maps/map_grid.h"
#include "platform/clock.h"
#include "platform/keys.h"
#include "settings/button_table.h"
#include "settings/comfort.h"
#include "settings/setting.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "state/program_state.h"
#include "vocabulary/key_code.h"

namespace taviro {

namespace {

constexpr uint32_t SLEEP_STEP_MS = 100;
constexpr int16_t REPEAT_PAUSE_MS = 100;
constexpr int32_t REPEAT_AFTER_TICKS = 3;  // a held tilt repeats from its fourth tick on
constexpr int32_t SCAN_INTERVAL_MS = 1000;
constexpr int32_t NO_BUTTON = -1;

struct Direction {
    Tilt nTilt;
    int32_t nVk;
    const wchar_t* szLog;  // log line of arrow mode
};

// In the order in which they are tested: of a diagonal the later one is remembered.
constexpr std::array<Direction, 4> DIRECTIONS{{
    {Tilt::Right, KeyCode::Right, L"Arrow right"},
    {Tilt::Left, KeyCode::Left, L"Arrow left"},
    {Tilt::Down, KeyCode::Down, L"Arrow down"},
    {Tilt::Up, KeyCode::Up, L"Arrow up"},
}};

bool IsTilted(Tilt nTilt) {
    switch (nTilt) {
        case Tilt::Right:
            return Joystick.nJoyX > AXIS_HIGH;
        case Tilt::Left:
            return Joystick.nJoyX < AXIS_LOW;
        case Tilt::Down:
            return Joystick.nJoyY > AXIS_HIGH;
        case Tilt::Up:
            return Joystick.nJoyY < AXIS_LOW;
        case Tilt::None:
            break;
    }
    return false;
}

// Runs Each(direction, acts) for every direction in which the stick is tilted.
template <class Function>
void ForEachTilt(Function Each) {
    for (const Direction& Towards : DIRECTIONS) {
        if (!IsTilted(Towards.nTilt)) continue;
        Poll.nTilt = Towards.nTilt;
        Each(Towards, Poll.nPrevTilt == Tilt::None || Poll.nTiltCount >= REPEAT_AFTER_TICKS);
    }
}

// The first button that is down, if it was not held before; NO_BUTTON otherwise.
int32_t PressedButton() {
    const auto it = std::find(Joystick.bJoyButton.begin(), Joystick.bJoyButton.end(), true);
    if (it == Joystick.bJoyButton.end()) return NO_BUTTON;
    Poll.nButtonDown = 1;
    if (Poll.nPrevButton != 0) return NO_BUTTON;
    return static_cast<int32_t>(it - Joystick.bJoyButton.begin());
}

ButtonKind KindOf(int32_t nButton) {
    if (nButton == NO_BUTTON) return ButtonKind::Unassigned;
    return ButtonTable[static_cast<size_t>(nButton)].Kind;
}

// Carries out what the pressed button means, if one is pressed. Only what the action button does
// depends on the mode.
template <class Function>
void RunButton(Function RunAction) {
    const int32_t nButton = PressedButton();
    switch (KindOf(nButton)) {
        case ButtonKind::Unassigned:
            break;
        case ButtonKind::Mode:
            ChangeMode(ModeEvent::ModeButton);
            break;
        case ButtonKind::Action:
            RunAction();
            break;
        case ButtonKind::Code:
        case ButtonKind::Command:
            CommandAction(nButton);
            break;
    }
}

void TickChoiceList() {
    const ButtonKind nKind = KindOf(PressedButton());
    if (nKind == ButtonKind::Mode) {
        ChangeMode(ModeEvent::ModeButton);
    } else if (nKind != ButtonKind::Unassigned) {
        ListAccept();
    }
    ForEachTilt([](const Direction& Towards, bool bActs) {
        if (bActs) ListMove(Towards.nVk);
    });
}

// The key moves the cursor away from the word that is being typed.
void SendInArrowMode(uint16_t nVk) {
    SendVirtualKey(nVk);
    LosePlace(Prediction.Standing);
}

void TickArrowMode() {
    ForEachTilt([](const Direction& Towards, bool bActs) {
        if (bActs) SendInArrowMode(static_cast<uint16_t>(Towards.nVk));
        LogEvent(Towards.szLog);  // on every tick in which the direction holds
    });
    RunButton([] { SendInArrowMode(KeyCode::Enter); });
}

void StartOrChooseInScan() {
    auto& Timer = forms::FrmMain->ScanTimer;
    if (Timer.Enabled) {
        Timer.Enabled = false;
        CommandAction(CELL_UNDER_CURSOR);
        return;
    }
    Scanning.nScanDirection = KeyCode::Right;
    Timer.Interval = SCAN_INTERVAL_MS;
    Timer.Enabled = true;
}

// A hand move in scan mode; sideways it goes on to the next row at the row's end, and turns a
// running scan into its direction.
void MoveInScan(int32_t nVk) {
    const int32_t nResult = MoveCursor(nVk);
    if (GoOnAfterRow(nVk, nResult)) Scanning.nScanDirection = nVk;
}

void TickScanMode() {
    RunButton(StartOrChooseInScan);
    ForEachTilt([](const Direction& Towards, bool bActs) {
        if (bActs) MoveInScan(Towards.nVk);
    });
}

void TickSelectMode() {
    RunButton([] { CommandAction(CELL_UNDER_CURSOR); });
    ForEachTilt([](const Direction& Towards, bool bActs) {
        if (bActs) MoveCursor(Towards.nVk);
    });
}

// Returns false when the tick ends here, its memories kept: the application's map is gone.
bool TickAppMode() {
    CheckForegroundApp(false);
    if (!Foreground.bAppMapShown) {
        ChangeMode(ModeEvent::AppMapGone);
        return false;
    }
    TickSelectMode();  // the map that is shown is another, what is done with it the same
    return true;
}

bool TickMode() {
    switch (WhatIsDriven()) {
        case DrivenBy::List:
            TickChoiceList();
            break;
        case DrivenBy::Arrow:
            TickArrowMode();
            break;
        case DrivenBy::Scan:
            TickScanMode();
            break;
        case DrivenBy::Application:
            return TickAppMode();
        case DrivenBy::Selection:
            TickSelectMode();
            break;
    }
    return true;
}

// After a fast run the user hears where the cursor stopped.
void AnnounceEndOfRepeat() {
    if (Cursor.nColumn != Cursor.nAnnColumn || Cursor.nRow != Cursor.nAnnRow) return;
    std::wstring strText;
    CellText(Cursor.nColumn, Cursor.nRow, strText);  // outside the grid there is no text
    Announce(strText);
}

}  // namespace

void Wait(int16_t nMilliseconds) {
    const uint32_t nStart = platform::TickCount();
    do {
        platform::SleepMs(SLEEP_STEP_MS);
        if (Comfort.bWatch) NotePress();
    } while (static_cast<int32_t>(platform::TickCount() - nStart) < nMilliseconds);
}

void Timer1_Timer() {
    platform::ReleaseHeldInput();  // what the last action could not release
    if (Program.bPauseJoystick) return;
    Modes.bAutoRepeatMode = Poll.nTiltCount >= REPEAT_AFTER_TICKS;
    // A device that fails is not waited for: it is soon known to be absent.
    if (Modes.bAutoRepeatMode && DeviceWatch.nFailures == 0) Wait(REPEAT_PAUSE_MS);
    JoyRead();
    if (Comfort.bWatch) {
        TellDevice(WatchDevice());
        if (TakeKeptPress()) Poll.nPrevButton = 0;
    }
    Poll.nTilt = Tilt::None;
    Poll.nButtonDown = 0;
    CheckWindowRights();
    CheckLaunch();
    if (!TickMode()) return;
    Poll.nTiltCount = Poll.nTilt == Tilt::None ? 0 : Poll.nTiltCount + 1;
    if (Modes.bAutoRepeatMode && Poll.nTiltCount == 0) AnnounceEndOfRepeat();
    Poll.nPrevButton = Poll.nButtonDown;
    Poll.nPrevTilt = Poll.nTilt;
}

}  // namespace taviro
