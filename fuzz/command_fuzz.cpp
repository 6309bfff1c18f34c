// SPDX-License-Identifier: MIT
// Any bytes as the action of a cell: five bytes of code and index, then the command text. If it
// opens a choice list, the user steps through and confirms. Afterwards no key is down, no list is
// open, the status line is where it was and at most one mode is on.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "actions/choice_list.h"
#include "actions/command_action.h"
#include "actions/prediction.h"
#include "core/program_reset.h"
#include "forms/main_form.h"
#include "maps/map_grid.h"
#include "maps/map_window.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "settings/button_table.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "state/program_state.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize);

namespace taviro {
namespace {

using forms::FrmMain;
using platform::headless::Desktop;

constexpr size_t HEADER_SIZE = 5;
// Long texts and high counts of repetition are slow and find nothing that short ones do not.
constexpr size_t LONGEST_TEXT = 512;
constexpr int LONGEST_COUNT = 2;  // digits

constexpr int32_t VK_UP = 38;
constexpr int32_t VK_DOWN = 40;

bool HasHighCount(std::string_view strText) {
    int nRun = 0;
    return std::any_of(strText.begin(), strText.end(), [&](char n) {
        nRun = n >= '0' && n <= '9' ? nRun + 1 : 0;
        return nRun > LONGEST_COUNT;
    });
}

void Require(bool bHolds) {
    if (!bHolds) std::abort();
}

void PrepareProgram(const std::wstring& strCommand, int32_t nCode) {
    Desktop = platform::headless::DesktopState{};
    ResetProgram();
    FrmMain->List1.Visible = false;
    Program.nCellWidth = Program.nCellHeight = 30;
    Program.nCellTextSize = 10;
    *CommonMap.Cell(1, 1) = {.Caption = L"a", .Code = nCode, .Command = strCommand};
    ButtonTable.fill({.Kind = ButtonKind::Command, .Command = strCommand, .Code = nCode});
    ShowMap(true);
}

// Steps past both ends, stops at an entry that the input chooses, and confirms it.
void UseList(uint8_t nSteps) {
    const auto& List = FrmMain->List1;
    for (int n = 0; n <= nSteps; ++n)
        ListMove(n % 3 == 2 ? VK_UP : VK_DOWN);
    Require(List.ListIndex >= (List.ListCount() > 0 ? 0 : -1) && List.ListIndex < List.ListCount());
    ListAccept();
}

}  // namespace
}  // namespace taviro

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    using namespace taviro;
    if (nSize < HEADER_SIZE || nSize > LONGEST_TEXT) return 0;
    int32_t nCode = 0;
    std::memcpy(&nCode, pData, sizeof nCode);
    const uint8_t nChoice = pData[sizeof nCode];
    const std::string strBytes(pData + HEADER_SIZE, pData + nSize);
    if (HasHighCount(strBytes)) return 0;
    PrepareProgram(platform::FromAnsi(strBytes), nCode);
    Prediction.strPrefix = L"ab";
    Prediction.nTypedCount = 2;
    const int32_t nTop = FrmMain->Label1.Top;
    const int32_t nHeight = FrmMain->Label1.Height;

    CommandAction(nChoice % 20 - 2);
    if (Modes.bListMode) {
        ChoiceList.bCompletions = nChoice % 2 == 0;
        UseList(nChoice % 16);
    }
    Require(Desktop.KeysDown().empty());
    Require(!Modes.bListMode && !FrmMain->List1.Visible);
    Require(FrmMain->Label1.Top == nTop && FrmMain->Label1.Height == nHeight);
    Require(Modes.bSelectMode + Modes.bScanMode + Modes.bArrowMode + Modes.bAppMode <= 1);
    return 0;
}
