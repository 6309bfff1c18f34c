// SPDX-License-Identifier: MIT
// Any bytes as the action of a cell or button: a header, then the text. The text is the command,
// and what the dictionary offers, and what opens the list by itself, as the header says; in a list
// the user walks, meets new layouts of the map, confirms or gives up. After every step no key is
// down, the list's flag and box agree and the selection is in the list; at the end the status line
// is where the map's layout puts it and at most one mode is on.
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
#include "maps/shown_map.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "settings/button_table.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "state/program_state.h"
#include "vocabulary/key_code.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize);

namespace taviro {
namespace {

using forms::FrmMain;
using platform::headless::Desktop;

struct Header {
    int32_t nCode;
    uint8_t nIndex;   // which cell or button
    uint8_t nWays;    // bits, see WAY_
    uint16_t nSteps;  // eight steps in the list, two bits each
};
constexpr uint8_t WAY_OFFERED = 1;    // the dictionary answers with the text
constexpr uint8_t WAY_OPENED = 2;     // the text opens the list without an action
constexpr uint8_t WAY_COMPLETES = 4;  // the list's entries complete the word being typed
constexpr uint8_t WAY_GIVEN_UP = 8;   // the list is left, not confirmed
constexpr int STEPS = 8;

constexpr int32_t MAP_ROWS_FILLED = 6;  // high enough for the list to raise the status line

// Long texts and high counts of repetition are slow and find nothing that short ones do not.
constexpr size_t LONGEST_TEXT = 512;
constexpr int LONGEST_COUNT = 2;  // digits

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

// What must hold after every step.
void RequireInOrder() {
    const auto& List = FrmMain->List1;
    Require(Desktop.KeysDown().empty());
    Require(Modes.bListMode == List.Visible);
    Require(List.ListIndex >= -1 && List.ListIndex < List.ListCount());
    Require(!Modes.bListMode || (List.ListIndex >= 0) == (List.ListCount() > 0));
    Require(Modes.bSelectMode + Modes.bScanMode + Modes.bArrowMode + Modes.bAppMode <= 1);
}

// A dictionary that has the same offers for every word.
void InstallDictionary(const std::wstring& strOffers) {
    Desktop.Classes[L"Presager.Dict"] = [strOffers] {
        return platform::headless::MakeObject(
            [strOffers](auto, auto&, auto, platform::AutomationValue& Result) {
                Result = strOffers;
                return true;
            });
    };
}

void PrepareProgram(const std::wstring& strText, const Header& Head) {
    Desktop = platform::headless::DesktopState{};
    ResetProgram();
    FrmMain->List1.Visible = false;
    Program.nCellWidth = Program.nCellHeight = 30;
    Program.nCellTextSize = 10;
    for (int32_t n = 1; n <= MAP_ROWS_FILLED; ++n)
        *CommonMap.Cell(1, n) = {.Caption = L"a", .Code = Head.nCode, .Command = strText};
    for (size_t n = 0; n < nButtonCount; ++n) {
        ButtonTable[n] = {.Kind = n % 2 == 0 ? ButtonKind::Command : ButtonKind::Code,
                          .Command = strText,
                          .Code = Head.nCode};
    }
    ShowMap(true);
    if ((Head.nWays & WAY_OFFERED) != 0) InstallDictionary(strText);
    Prediction.strPrefix = L"ab";
    Prediction.nTypedCount = 2;
}

// One step in the open list: to the next or previous entry, a second opening, which must change
// nothing, or a new layout of the map.
void StepInList(int nStep, const std::wstring& strText) {
    const auto& List = FrmMain->List1;
    const int32_t nCount = List.ListCount();
    const int32_t nSelected = List.ListIndex;
    if (nStep == 0) ListMove(KeyCode::Down);
    if (nStep == 1) ListMove(KeyCode::Up);
    if (nStep == 2) ShowList(strText + L";x");
    if (nStep == 3) ShowMap(true);
    Require(List.ListCount() == nCount);
    if (nStep >= 2) Require(List.ListIndex == nSelected);
    RequireInOrder();
}

void UseList(const Header& Head, const std::wstring& strText) {
    RequireInOrder();
    if ((Head.nWays & WAY_COMPLETES) != 0) ChoiceList.bCompletions = true;
    for (int n = 0; n < STEPS; ++n)
        StepInList(Head.nSteps >> (2 * n) & 3, strText);
    if ((Head.nWays & WAY_GIVEN_UP) != 0) {
        HideList();
    } else {
        ListAccept();
    }
    Require(!Modes.bListMode);
}

}  // namespace
}  // namespace taviro

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    using namespace taviro;
    Header Head{};
    if (nSize < sizeof Head || nSize > LONGEST_TEXT) return 0;
    std::memcpy(&Head, pData, sizeof Head);
    const std::string strBytes(pData + sizeof Head, pData + nSize);
    if (HasHighCount(strBytes)) return 0;
    const std::wstring strText = platform::FromAnsi(strBytes);
    PrepareProgram(strText, Head);
    const int32_t nTop = FrmMain->Label1.Top;
    const int32_t nHeight = FrmMain->Label1.Height;

    if ((Head.nWays & WAY_OPENED) != 0) {
        ShowList(strText);
    } else {
        CommandAction(Head.nIndex % 20 - 2);
    }
    if (Modes.bListMode) UseList(Head, strText);
    RequireInOrder();
    Require(FrmMain->Label1.Top == nTop && FrmMain->Label1.Height == nHeight);
    return 0;
}
