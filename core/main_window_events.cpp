// SPDX-License-Identifier: MIT
#include "core/main_window_events.h"

#include <string>

#include "actions/command_action.h"
#include "core/cursor_movement.h"
#include "dialogs/cell_editor_form.h"
#include "forms/main_form.h"
#include "maps/map_window.h"
#include "platform/main_window.h"
#include "platform/metrics.h"
#include "platform/pointer.h"
#include "platform/unneeded.h"
#include "state/cursor_state.h"
#include "state/program_state.h"
#include "vocabulary/key_code.h"

namespace taviro {

namespace {

using platform::Metric;
using platform::SystemMetric;

// The cell that holds a pixel, counted from 1. Without a cell size nothing changes.
void FindCell(int32_t nPixel, int32_t nCellSize, int32_t& nCell) {
    if (nCellSize != 0) nCell = nPixel / nCellSize + 1;
}

}  // namespace

void Label2_MouseUp(forms::MouseButton nButton) {
    platform::ScreenRect Window;
    platform::ScreenPoint Pointer;
    // Without an answer the place counts from the screen's corner.
    Unneeded(platform::WindowRect(platform::MainWindowHandle(), Window));
    Unneeded(platform::GetPointer(Pointer));
    const int32_t nX = Pointer.nX - Window.nLeft - SystemMetric(Metric::BorderWidth) -
                       SystemMetric(Metric::FrameWidth);
    // The frame's width here too, not its height: the two are the same on every known system.
    const int32_t nY = Pointer.nY - Window.nTop - SystemMetric(Metric::CaptionHeight) -
                       SystemMetric(Metric::BorderHeight) - SystemMetric(Metric::MenuHeight) -
                       SystemMetric(Metric::FrameWidth);
    FindCell(nX, Program.nCellWidth, Cursor.nColumn);
    FindCell(nY, Program.nCellHeight, Cursor.nRow);
    SetHi(Cursor.nColumn, Cursor.nRow);
    if (nButton == forms::MouseButton::Right) frmConfig->Show();
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
