// SPDX-License-Identifier: MIT
// The text of a choice list, as commands and the dictionary write it: segments separated by ";", of
// which the first is a title that is not shown; each other segment is a label, or a label and a
// command separated by ",".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vocabulary/command.h"

namespace taviro {

struct ChoiceEntry {
    std::wstring strLabel;
    std::wstring strCommand;  ///< empty: the label is text to type
    bool bShown = false;      ///< it has a row in the list box
    bool operator==(const ChoiceEntry&) const = default;
};

/// Whether a command text opens a choice list.
bool IsListText(std::wstring_view strText);

/// One entry for each segment. The title and empty segments have no row in the list box.
std::vector<ChoiceEntry> ParseList(std::wstring_view strText);

/// What the command of an entry launches: "program(arguments)"; without both parentheses in their
/// order there are no arguments.
ProgramCall LaunchOfEntry(std::wstring_view strCommand);

/// Takes the mark off a label that is put in front of what was chosen before it. Returns whether
/// the label had it.
bool TakeHeldMark(std::wstring& strLabel);

}  // namespace taviro
