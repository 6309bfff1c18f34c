// SPDX-License-Identifier: MIT
#include "vocabulary/list_text.h"

namespace taviro {

namespace {

constexpr wchar_t LIST_MARK = L'*';
constexpr wchar_t HELD_MARK = L'*';
constexpr wchar_t SEGMENT_END = L';';
constexpr wchar_t LABEL_END = L',';
constexpr wchar_t ARGUMENTS_START = L'(';
constexpr wchar_t ARGUMENTS_END = L')';

ChoiceEntry EntryOf(std::wstring_view strSegment) {
    const auto nComma = strSegment.find(LABEL_END);
    ChoiceEntry Entry{.strLabel = std::wstring(strSegment.substr(0, nComma)),
                      .strCommand = {},
                      .bShown = !strSegment.empty()};
    if (nComma != std::wstring_view::npos) Entry.strCommand = strSegment.substr(nComma + 1);
    return Entry;
}

}  // namespace

bool IsListText(std::wstring_view strText) {
    return strText.starts_with(LIST_MARK);
}

std::vector<ChoiceEntry> ParseList(std::wstring_view strText) {
    std::vector<ChoiceEntry> Entries(1);
    for (auto nEnd = strText.find(SEGMENT_END); nEnd != std::wstring_view::npos;
         nEnd = strText.find(SEGMENT_END)) {
        strText.remove_prefix(nEnd + 1);
        Entries.push_back(EntryOf(strText.substr(0, strText.find(SEGMENT_END))));
    }
    return Entries;
}

ProgramCall LaunchOfEntry(std::wstring_view strCommand) {
    const auto nOpen = strCommand.find(ARGUMENTS_START);
    if (nOpen == std::wstring_view::npos) {
        return {.strProgram = std::wstring(strCommand), .strArguments = {}};
    }
    ProgramCall Call{.strProgram = std::wstring(strCommand.substr(0, nOpen)), .strArguments = {}};
    const auto nClose = strCommand.find(ARGUMENTS_END);
    if (nClose != std::wstring_view::npos && nClose > nOpen) {
        Call.strArguments = strCommand.substr(nOpen + 1, nClose - nOpen - 1);
    }
    return Call;
}

bool TakeHeldMark(std::wstring& strLabel) {
    if (!strLabel.ends_with(HELD_MARK)) return false;
    strLabel.pop_back();
    return true;
}

}  // namespace taviro
