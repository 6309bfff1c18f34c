// SPDX-License-Identifier: MIT
#include "actions/command_action.h"

#include "actions/choice_list.h"
#include "actions/foreground_watch.h"
#include "actions/key_synthesis.h"
#include "actions/prediction.h"
#include "feedback/announce.h"
#include "feedback/speech.h"
#include "maps/map_grid.h"
#include "maps/map_window.h"
#include "settings/button_table.h"
#include "settings/setting.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"

namespace taviro {

namespace {

constexpr wchar_t PREFIX_ARROW = L'|';
constexpr wchar_t PREFIX_APPLICATION = L'>';
constexpr wchar_t PREFIX_SELECT = L'<';
constexpr wchar_t LIST_MARK = L'*';
constexpr wchar_t COLUMN_MARK = L'^';
constexpr int32_t RESET_ON = 1;

// A command text and an action code, wherever they came from. Copies: a mode prefix may load
// another map over the cell.
struct TriggeredAction {
    std::wstring strCommand;
    int32_t nCode = 0;
};

// An index, or a cursor, outside its table gives the empty action: it runs like that of an empty
// cell, so that the settings can still bring a cursor back that has left the grid.
TriggeredAction FetchAction(int32_t nIndex) {
    if (nIndex == CELL_UNDER_CURSOR) {
        const MapCell* pCell = ShownMap().Cell(Cursor.nColumn, Cursor.nRow);
        if (pCell == nullptr) return {};
        return {.strCommand = pCell->Command, .nCode = pCell->Code};
    }
    if (nIndex < 0 || nIndex >= static_cast<int32_t>(nButtonCount)) return {};
    const ButtonAction& Button = ButtonTable[static_cast<size_t>(nIndex)];
    return {.strCommand = Button.Command, .nCode = Button.Code};
}

void EnterArrowByPrefix() {
    if (Modes.bArrowMode) return;
    Announce(L"mode_arrow");
    Modes.Set(Mode::Arrow);
}

void EnterApplicationByPrefix() {
    if (Modes.bAppMode) return;
    Announce(L"mode_app");
    Modes.Set(Mode::Application);
    CheckForegroundApp(true);
}

void EnterSelectionByPrefix() {
    if (Modes.bSelectMode) return;
    Announce(L"mode_select");
    Cursor.Restore();
    Modes.Set(Mode::Select);
    ShowMap(true);
}

// Carries out a mode prefix and removes it; only the first character is one.
void TakeModePrefix(std::wstring& strCommand) {
    const wchar_t nFirst = strCommand.empty() ? L'\0' : strCommand.front();
    if (nFirst != PREFIX_ARROW && nFirst != PREFIX_APPLICATION && nFirst != PREFIX_SELECT) return;
    strCommand.erase(0, 1);
    if (nFirst == PREFIX_ARROW) EnterArrowByPrefix();
    if (nFirst == PREFIX_APPLICATION) EnterApplicationByPrefix();
    if (nFirst == PREFIX_SELECT) EnterSelectionByPrefix();
}

void LaunchCommand(const std::wstring& strCommand) {
    std::wstring strPlain = strCommand;
    std::erase(strPlain, COLUMN_MARK);
    const auto nColon = strPlain.find(L':');
    if (nColon == std::wstring::npos || strPlain.find(L'"') != std::wstring::npos) {
        return Launch(strPlain, {});
    }
    // The arguments belong to the program: a "^" in them stays.
    Launch(strPlain.substr(0, nColon), strCommand.substr(strCommand.find(L':') + 1));
}

void ExecuteCommand(const std::wstring& strCommand) {
    if (strCommand.starts_with(LIST_MARK)) return ShowList(strCommand);
    LaunchCommand(strCommand);
}

// The two settings cross over: resetting the column sends the highlight to the first row, and the
// other way round. Existing settings files count on it.
void ResetCursor() {
    const bool bToFirstRow = objSetting.TriggerColumnReset() == RESET_ON;
    const bool bToFirstColumn = objSetting.TriggerRowReset() == RESET_ON;
    if (!bToFirstRow && !bToFirstColumn) return;
    if (bToFirstRow) Cursor.nRow = 1;
    if (bToFirstColumn) Cursor.nColumn = 1;
    SetHi(Cursor.nColumn, Cursor.nRow);
}

}  // namespace

void CommandAction(int32_t nIndex) {
    SpeakIt(L"");
    TriggeredAction Action = FetchAction(nIndex);
    TakeModePrefix(Action.strCommand);
    const ActionCode Code = DecodeActionCode(Action.nCode);
    if (Code.nKey >= 1) {
        PressActionCode(Action.nCode);
        if (IsShiftDelete(Code)) return;  // it cuts text out: neither typing nor a step in the map
    } else {
        ExecuteCommand(Action.strCommand);
    }
    if (nIndex == CELL_UNDER_CURSOR) ResetCursor();
    if (Action.strCommand.find(COLUMN_MARK) != std::wstring::npos) {
        Cursor.nColumn = 1;
        SetHi(Cursor.nColumn, Cursor.nRow);
    }
    UpdatePrediction(Code.nKey, Code.nModifiers, Code.nKind);
}

}  // namespace taviro
