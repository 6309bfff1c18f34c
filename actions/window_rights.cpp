// SPDX-License-Identifier: MIT
#include "actions/window_rights.h"

#include "feedback/event_log.h"
#include "feedback/speech.h"
#include "forms/main_form.h"
#include "maps/map_grid.h"
#include "maps/shown_map.h"
#include "settings/comfort.h"
#include "state/cursor_state.h"

namespace taviro {

namespace {

constexpr const wchar_t* MAY_NOT_DRIVE = L"Toto okno nemohu ovládat";

// Gives the line back to the highlighted cell, unless a move has taken it since.
void TakeBackStatus() {
    auto& Status = forms::FrmMain->Label1.Caption;
    WindowRights.bShown = false;
    if (Status.Get() != MAY_NOT_DRIVE) return;
    const MapCell* pCell = ShownMap().Cell(Cursor.nColumn, Cursor.nRow);
    Status = pCell == nullptr ? std::wstring{} : pCell->Caption;
}

}  // namespace

void CheckWindowRights() {
    if (!Comfort.bWindowRights) return;
    const platform::WindowHandle hInFront = platform::ForegroundActiveWindow();
    if (hInFront == WindowRights.hSeen) return;
    WindowRights.hSeen = hInFront;
    if (WindowRights.bShown) TakeBackStatus();
    if (hInFront == 0 || platform::MayDriveWindow(hInFront)) return;
    WindowRights.bShown = true;
    forms::FrmMain->Label1.Caption = MAY_NOT_DRIVE;
    LogEvent(MAY_NOT_DRIVE);
    SpeakIt(MAY_NOT_DRIVE);
}

}  // namespace taviro
