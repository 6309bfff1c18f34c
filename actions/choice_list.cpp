// SPDX-License-Identifier: MIT
#include "actions/choice_list.h"

#include <algorithm>
#include <string_view>

#include "actions/entry_typing.h"
#include "actions/launching.h"
#include "feedback/announce.h"
#include "forms/main_form.h"
#include "platform/sound.h"
#include "platform/text.h"
#include "state/mode_state.h"
#include "vocabulary/key_code.h"

namespace taviro {

namespace {

using forms::FrmMain;

constexpr int32_t LEAST_HEIGHT = 96;  // pixels: six lines of the list's font

void FillList(std::wstring_view strText) {
    ChoiceList.Entries = ParseList(strText);
    std::vector<std::wstring> Labels;
    for (const ChoiceEntry& Entry : ChoiceList.Entries) {
        if (Entry.bShown) Labels.push_back(Entry.strLabel);
    }
    FrmMain->List1.Items = Labels;
}

void PlaceList() {
    auto& List = FrmMain->List1;
    const int32_t nMapHeight = std::max(FrmMain->Label1.Top.Get(), 0);
    List.Left = 0;
    List.Top = 0;
    List.Width = FrmMain->Label1.Width.Get();
    List.Height = std::min(nMapHeight, std::max(nMapHeight / 2, LEAST_HEIGHT));
}

std::wstring SelectedText() {
    return FrmMain->List1.ItemText(FrmMain->List1.ListIndex);
}

}  // namespace

void ShowList(const std::wstring& strText) {
    if (Modes.bListMode) return;
    FrmMain->ScanTimer.Enabled = false;  // the list covers what was scanned
    auto& List = FrmMain->List1;
    auto& Status = FrmMain->Label1;
    PlaceList();
    List.Clear();
    FillList(strText);
    ChoiceList.bCompletions = false;
    List.Visible = true;
    ChoiceList.nOffset = Status.Top - List.Height;
    Status.Top = Status.Top - ChoiceList.nOffset;
    Status.Height = Status.Height + ChoiceList.nOffset;
    Modes.bListMode = true;
    if (List.ListCount() > 0) List.ListIndex = 0;
    Announce(SelectedText());
}

void ListMove(int32_t nVk) {
    auto& List = FrmMain->List1;
    const bool bNext = nVk == KeyCode::Down || nVk == KeyCode::Right;
    const int32_t nWanted = List.ListIndex + (bNext ? 1 : -1);
    if (nWanted >= 0 && nWanted < List.ListCount()) {
        List.ListIndex = nWanted;
    } else {
        platform::SystemBeep();
    }
    Announce(SelectedText());
}

void ListAccept() {
    if (!Modes.bListMode) return;
    const std::wstring strRow = SelectedText();
    Announce(strRow);
    const int32_t nRow = FrmMain->List1.ListIndex;
    if (nRow >= 0 && static_cast<size_t>(nRow) + 1 < ChoiceList.Entries.size()) {
        const ChoiceEntry Entry = ChoiceList.Entries[static_cast<size_t>(nRow) + 1];
        const std::wstring strCommand(platform::TrimBlanks(Entry.strCommand));
        if (strCommand.empty()) {
            TypeChosenText(std::wstring(platform::TrimBlanks(Entry.strLabel)),
                           strRow.ends_with(L' '), ChoiceList.bCompletions);
        } else {
            const ProgramCall Call = LaunchOfEntry(strCommand);
            Launch(Call.strProgram, Call.strArguments);
        }
    }
    HideList();
}

void HideList() {
    auto& Status = FrmMain->Label1;
    if (!FrmMain->List1.Visible) return;
    if (ChoiceList.nOffset > 0) {
        // A new layout of the map has put the line in its place already; it knows no raised one.
        const bool bStillRaised = Status.Top == FrmMain->List1.Height;
        if (bStillRaised) Status.Top = Status.Top + ChoiceList.nOffset;
        Status.Height = Status.Height - ChoiceList.nOffset;
    }
    FrmMain->List1.Visible = false;
    Modes.bListMode = false;
}

}  // namespace taviro
