// SPDX-License-Identifier: MIT
#include "core/main_window_events.h"

#include <string>

#include "actions/command_action.h"
#include "core/cursor_movement.h"
#include "dialogs/cell_editor_form.h"
#include "forms/main_form.h"
#include "maps/map_grid.h"
#include "maps/map_window.h"
#include "platform/main_window.h"
#include "platform/pointer.h"
#include "platform/window_handling.h"
#include "state/cursor_state.h"
#include "vocabulary/key_code.h"

namespace taviro {

void Label2_MouseUp(forms::MouseButton nButton) {
    platform::ScreenPoint Place;
    // Where nobody knows the pointer there is no cell under it.
    if (!platform::GetPointer(Place)) return;
    if (!platform::ScreenToClientPoint(platform::MainWindowHandle(), Place)) return;
    int32_t nColumn{};
    int32_t nRow{};
    if (!CellAt(Place.nX, Place.nY, nColumn, nRow)) return;
    // An empty place can be given a cell, but not be chosen.
    const bool bEdit = nButton == forms::MouseButton::Right;
    if (!bEdit && IsEmptyCell(nColumn, nRow)) return;
    Cursor.nColumn = nColumn;
    Cursor.nRow = nRow;
    SetHi(nColumn, nRow);
    NameCursorInCaption();
    if (bEdit) frmConfig->ShowCursorCell();
}

void txtCmd_Change() {
    auto& Box = forms::FrmMain->txtCmd;
    const std::wstring strText = Box.Text;
    if (strText.empty()) return;
    const auto Holds = [&](const wchar_t* szWord) {
        return strText.find(szWord) != std::wstring::npos;
    };
    if (Holds(L"up")) MoveCursor(KeyCode::Up);
    if (Holds(L"down")) MoveCursor(KeyCode::Down);
    if (Holds(L"left")) MoveCursor(KeyCode::Left);
    if (Holds(L"right")) MoveCursor(KeyCode::Right);
    if (Holds(L"enter")) CommandAction(CELL_UNDER_CURSOR);
    Box.Text = std::wstring{};
}

void Form_Resize() {
    auto& Surface = forms::FrmMain->Label2;
    Surface.Left = 0;
    Surface.Top = 0;
    Surface.Width = forms::FrmMain->nScaleWidth;
    Surface.Height = forms::FrmMain->nScaleHeight;
}

}  // namespace taviro
