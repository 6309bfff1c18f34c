// SPDX-License-Identifier: MIT
#include "actions/command_action.h"

#include "actions/choice_list.h"
#include "actions/key_synthesis.h"
#include "actions/launch_watch.h"
#include "actions/mode_transitions.h"
#include "actions/prediction.h"
#include "feedback/speech.h"
#include "maps/map_grid.h"
#include "maps/shown_map.h"
#include "settings/button_table.h"
#include "settings/setting.h"
#include "state/cursor_state.h"
#include "vocabulary/action_code.h"
#include "vocabulary/command.h"

namespace taviro {

namespace {

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
    // Of the two fields only the kind's own counts: the other may hold what the button did before.
    const ButtonAction& Button = ButtonTable[static_cast<size_t>(nIndex)];
    switch (Button.Kind) {
        case ButtonKind::Code:
            return {.strCommand = {}, .nCode = Button.Code};
        case ButtonKind::Command:
            return {.strCommand = Button.Command, .nCode = 0};
        case ButtonKind::Action:
        case ButtonKind::Mode:
        case ButtonKind::Unassigned:
            break;
    }
    return {};
}

void ExecuteCommand(const Command& Wanted) {
    switch (Wanted.nKind) {
        case CommandKind::List:
            return ShowList(Wanted.strText);
        case CommandKind::Launch: {
            const ProgramCall Call = LaunchOf(Wanted);
            return Launch(Call.strProgram, Call.strArguments);
        }
    }
}

// The two settings cross over: resetting the column sends the highlight to the first row, and the
// other way round. Existing settings files count on it.
void ResetCursor() {
    const bool bToFirstRow = objSetting.TriggerColumnReset() == RESET_ON;
    const bool bToFirstColumn = objSetting.TriggerRowReset() == RESET_ON;
    if (bToFirstRow) Cursor.nRow = 1;
    if (bToFirstColumn) Cursor.nColumn = 1;
    if (bToFirstRow || bToFirstColumn) HighlightCursor();
}

}  // namespace

void CommandAction(int32_t nIndex) {
    ForgetLaunch();
    SpeakIt(L"");
    const TriggeredAction Action = FetchAction(nIndex);
    const Command Wanted = ParseCommand(Action.strCommand);
    ModeEvent nEvent{};
    if (EventOfMark(Wanted.nMode, nEvent)) ChangeMode(nEvent);
    const ActionCode Code = ParseActionCode(Action.nCode);
    if (Code.nKey >= 1) {
        PressActionCode(Action.nCode);
        if (IsShiftDelete(Code)) return;  // it cuts text out: neither typing nor a step in the map
    } else {
        ExecuteCommand(Wanted);
    }
    if (nIndex == CELL_UNDER_CURSOR) ResetCursor();
    if (Wanted.bResetsColumn) {
        Cursor.nColumn = 1;
        HighlightCursor();
    }
    UpdatePrediction(Code.nKey, Code.nModifiers, WholeKind(Code));
}

}  // namespace taviro
