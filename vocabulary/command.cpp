// SPDX-License-Identifier: MIT
#include "vocabulary/command.h"

#include <algorithm>

#include "vocabulary/list_text.h"

namespace taviro {

namespace {

using namespace std::string_view_literals;

constexpr wchar_t COLUMN_MARK = L'^';
constexpr wchar_t ARGUMENTS_MARK = L':';
constexpr wchar_t QUOTE = L'"';

// By the number of the mode mark; the first stands for none.
constexpr std::wstring_view MODE_MARKS = L"\0<|>"sv;

ModeMark ModeMarkOf(wchar_t nCharacter) {
    const auto nMark = MODE_MARKS.find(nCharacter);
    return nMark == std::wstring_view::npos ? ModeMark::None : static_cast<ModeMark>(nMark);
}

std::wstring_view BehindColumnMarks(std::wstring_view strText) {
    strText.remove_prefix(std::min(strText.find_first_not_of(COLUMN_MARK), strText.size()));
    return strText;
}

}  // namespace

Command ParseCommand(std::wstring_view strText) {
    Command Found;
    Found.bResetsColumn = strText.find(COLUMN_MARK) != std::wstring_view::npos;
    std::wstring_view strRest = BehindColumnMarks(strText);
    if (!strRest.empty()) Found.nMode = ModeMarkOf(strRest.front());
    if (Found.nMode != ModeMark::None) strRest = BehindColumnMarks(strRest.substr(1));
    Found.strText = strRest;
    Found.nKind = IsListText(Found.strText) ? CommandKind::List : CommandKind::Launch;
    return Found;
}

std::wstring ComposeCommand(const Command& Wanted) {
    std::wstring strText;
    if (Wanted.bResetsColumn) strText += COLUMN_MARK;
    if (Wanted.nMode != ModeMark::None) strText += MODE_MARKS[static_cast<size_t>(Wanted.nMode)];
    return strText + Wanted.strText;
}

std::wstring WithoutColumnMarks(std::wstring_view strText) {
    std::wstring strPlain(strText);
    std::erase(strPlain, COLUMN_MARK);
    return strPlain;
}

ProgramCall LaunchOf(const Command& Launched) {
    const std::wstring strPlain = WithoutColumnMarks(Launched.strText);
    const auto nColon = strPlain.find(ARGUMENTS_MARK);
    if (nColon == std::wstring::npos || strPlain.find(QUOTE) != std::wstring::npos) {
        return {.strProgram = strPlain, .strArguments = {}};
    }
    return {.strProgram = strPlain.substr(0, nColon),
            .strArguments = Launched.strText.substr(Launched.strText.find(ARGUMENTS_MARK) + 1)};
}

}  // namespace taviro
