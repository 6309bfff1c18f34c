// SPDX-License-Identifier: MIT
#include "core/cursor_movement.h"

#include <algorithm>
#include <string>

#include "feedback/announce.h"
#include "forms/main_form.h"
#include "input/kept_press.h"
#include "maps/map_grid.h"
#include "maps/map_window.h"
#include "platform/clock.h"
#include "platform/messages.h"
#include "platform/sound.h"
#include "settings/comfort.h"
#include "settings/setting.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "vocabulary/key_code.h"

namespace taviro {

namespace {

constexpr int32_t NO_EMPTY_CELL = 0;

int32_t Bounce(int32_t nResult) {
    platform::SystemBeep();
    return nResult;
}

// First column of the row that holds no cell; NO_EMPTY_CELL when the row is full.
int32_t FirstEmptyColumn(int32_t nRow) {
    for (int32_t n = 1; n <= MAP_COLUMNS; ++n) {
        if (IsEmptyCell(n, nRow)) return n;
    }
    return NO_EMPTY_CELL;
}

int32_t FirstEmptyRow() {
    for (int32_t n = 1; n <= MAP_ROWS; ++n) {
        if (IsEmptyCell(1, n)) return n;
    }
    return NO_EMPTY_CELL;
}

// Last cell of a row, 0 for a row without cells and for a full one.
int32_t LastColumn(int32_t nRow) {
    return std::max(0, FirstEmptyColumn(nRow) - 1);
}

bool IsUnderCursorEmpty() {
    return IsEmptyCell(Cursor.nColumn, Cursor.nRow);
}

int32_t MoveRight() {
    Cursor.nColumn += 1;
    if (Modes.bScanMode && Cursor.nColumn > objSetting.ScanSizeX()) {
        Cursor.nColumn = 1;
        return Bounce(MOVE_ROW_END);
    }
    if (!IsUnderCursorEmpty()) return MOVE_NORMAL;
    const bool bStay = objSetting.RowWrap() == 0 && !Modes.bScanMode;
    Cursor.nColumn = bStay ? Cursor.nColumn - 1 : 1;
    return Bounce(MOVE_ROW_END);
}

int32_t MoveLeft() {
    Cursor.nColumn -= 1;
    if (Cursor.nColumn >= 1) return MOVE_NORMAL;
    const int32_t nEmpty = FirstEmptyColumn(Cursor.nRow);
    if (nEmpty == NO_EMPTY_CELL) return Bounce(MOVE_ROW_END);  // a full row: the cursor stays at 0
    const bool bWrap = objSetting.RowWrap() != 0 || Modes.bScanMode;
    Cursor.nColumn = bWrap ? nEmpty - 1 : 1;
    return Bounce(MOVE_ROW_END);
}

int32_t MoveDown() {
    Cursor.nRow += 1;
    if (Modes.bScanMode && Cursor.nRow > objSetting.ScanSizeY()) {
        Cursor.nRow = 1;
        return Bounce(MOVE_ROW_END);
    }
    if (!IsUnderCursorEmpty()) return MOVE_NORMAL;
    const int32_t nLast = LastColumn(Cursor.nRow);
    if (nLast >= 1) {
        Cursor.nColumn = nLast;  // a shorter row
        return MOVE_NORMAL;
    }
    Cursor.nRow = objSetting.ColumnWrap() == 0 ? Cursor.nRow - 1 : 1;
    return Bounce(MOVE_COLUMN_END);
}

int32_t MoveUp() {
    int32_t nResult = MOVE_NORMAL;
    Cursor.nRow -= 1;
    if (Cursor.nRow < 1) {
        const int32_t nLastRow = std::max(0, FirstEmptyRow() - 1);
        Cursor.nRow = objSetting.ColumnWrap() == 0 ? 1 : nLastRow;
        nResult = Bounce(MOVE_COLUMN_END);
    }
    if (Modes.bScanMode) {
        Cursor.nColumn = std::min(Cursor.nColumn, objSetting.ScanSizeX());
        Cursor.nRow = std::min(Cursor.nRow, objSetting.ScanSizeY());
        return MOVE_ROW_END;
    }
    if (IsUnderCursorEmpty()) Cursor.nColumn = LastColumn(Cursor.nRow);
    return nResult;
}

int32_t Step(int32_t nVk) {
    switch (nVk) {
        case KeyCode::Right:
            return MoveRight();
        case KeyCode::Left:
            return MoveLeft();
        case KeyCode::Down:
            return MoveDown();
        case KeyCode::Up:
            return MoveUp();
        default:
            return MOVE_NORMAL;
    }
}

// A number as a blank or minus sign and its digits.
std::wstring SignedText(int32_t nNumber) {
    return (nNumber < 0 ? L"" : L" ") + std::to_wstring(nNumber);
}

void AnnounceCell(const std::wstring& strText) {
    if (Cursor.nRow != Cursor.nPrevRow && objSetting.VoiceOnLineChange() != 0) {
        return Announce(L"řádek " + SignedText(Cursor.nRow) + L", " + strText);
    }
    if (!Modes.bAutoRepeatMode) return Announce(strText);
    Cursor.nAnnColumn = Cursor.nColumn;
    Cursor.nAnnRow = Cursor.nRow;
    Announce(L"autorepeat");
}

}  // namespace

int32_t MoveCursor(int32_t nVk) {
    const int32_t nResult = Step(nVk);
    std::wstring strText;
    CellText(Cursor.nColumn, Cursor.nRow, strText);  // outside the grid there is no text
    if (!strText.empty()) SetHi(Cursor.nColumn, Cursor.nRow);
    platform::RunPendingMessages();
    AnnounceCell(strText);
    forms::FrmMain->Caption = L"Taviro - " + strText;
    Cursor.nPrevRow = Cursor.nRow;
    return nResult;
}

bool GoOnAfterRow(int32_t nVk, int32_t nResult) {
    if (nVk != KeyCode::Right && nVk != KeyCode::Left) return false;
    if (nResult == MOVE_ROW_END) {
        nResult = MoveCursor(nVk == KeyCode::Right ? KeyCode::Down : KeyCode::Up);
    }
    if (nResult == MOVE_COLUMN_END) forms::FrmMain->ScanTimer.Enabled = false;
    return true;
}

namespace {

constexpr uint32_t PAUSE_STEP_MS = 100;  // a shorter press is hardly one

void PauseScan(uint32_t nDelay) {
    if (!Comfort.bWatch) return platform::SleepMs(nDelay);
    while (nDelay > 0) {
        const uint32_t nStep = std::min(PAUSE_STEP_MS, nDelay);
        platform::SleepMs(nStep);
        NotePress();
        nDelay -= nStep;
    }
}

}  // namespace

void ScanTimer_Timer() {
    const int32_t nResult = MoveCursor(Scanning.nScanDirection);
    GoOnAfterRow(Scanning.nScanDirection, nResult);
    const int32_t nDelay = objSetting.ScanDelay();
    if (nDelay > 0) PauseScan(static_cast<uint32_t>(nDelay));
}

}  // namespace taviro
