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

namespace taviro {

namespace {

using forms::FrmMain;

constexpr wchar_t SEGMENT_END = L';';
constexpr wchar_t LABEL_END = L',';
constexpr int32_t LEAST_HEIGHT = 96;  // pixels: six lines of the list's font
constexpr int32_t VK_DOWN = 40;
constexpr int32_t VK_RIGHT = 39;

ChoiceEntry EntryOf(std::wstring_view strSegment) {
    const auto nComma = strSegment.find(LABEL_END);
    ChoiceEntry Entry{.strLabel = std::wstring(strSegment.substr(0, nComma)), .strCommand = {}};
    if (nComma != std::wstring_view::npos) Entry.strCommand = strSegment.substr(nComma + 1);
    return Entry;
}

// Every segment takes a row of the entries, an empty one an empty row; only the others are shown.
void FillList(std::wstring_view strText) {
    ChoiceList.Entries.assign(1, ChoiceEntry{});
    std::vector<std::wstring> Labels;
    for (auto nEnd = strText.find(SEGMENT_END); nEnd != std::wstring_view::npos;
         nEnd = strText.find(SEGMENT_END)) {
        strText.remove_prefix(nEnd + 1);
        const std::wstring_view strSegment = strText.substr(0, strText.find(SEGMENT_END));
        ChoiceList.Entries.push_back(EntryOf(strSegment));
        if (!strSegment.empty()) Labels.push_back(ChoiceList.Entries.back().strLabel);
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

void LaunchEntry(const std::wstring& strCommand) {
    const auto nOpen = strCommand.find(L'(');
    if (nOpen == std::wstring::npos) return Launch(strCommand, {});
    const auto nClose = strCommand.find(L')');
    const bool bArguments = nClose != std::wstring::npos && nClose > nOpen;
    Launch(strCommand.substr(0, nOpen),
           bArguments ? strCommand.substr(nOpen + 1, nClose - nOpen - 1) : std::wstring{});
}

}  // namespace

void ShowList(const std::wstring& strText) {
    if (Modes.bListMode) return;
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
    const bool bNext = nVk == VK_DOWN || nVk == VK_RIGHT;
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
            LaunchEntry(strCommand);
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
