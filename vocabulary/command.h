// SPDX-License-Identifier: MIT
// What the command text of a cell or a button means; maps, settings and dialogs only store it.
//
//   |  >  <      in front: arrow, application, selection mode; the rest is carried out
//   *T;a,b;c     choice list with the entries a (launches b) and c (typed); see list_text.h
//   p:arguments  launches p with arguments; a text with a double quote is not split
//   ^            anywhere: the highlight goes to column 1 afterwards; in front of another mark it
//                does not hide that
#pragma once

#include <string>
#include <string_view>

namespace taviro {

/// The mode that a command switches to first. The order is that of the choices in the cell editor.
enum class ModeMark { None, Selection, Arrow, Application };

enum class CommandKind {
    Launch,  ///< a program or document; an empty text, as of a mark alone, is one too
    List,    ///< a choice list
};

struct Command {
    ModeMark nMode = ModeMark::None;
    bool bResetsColumn = false;
    CommandKind nKind = CommandKind::Launch;
    std::wstring strText;  ///< what is carried out, without the mode's mark and column marks in
                           ///< front; column marks further on stay, arguments may need them
    bool operator==(const Command&) const = default;
};

/// Every text is a command, and what is composed of it reads the same.
Command ParseCommand(std::wstring_view strText);

/// The column mark always comes first, so that it is found at a glance.
std::wstring ComposeCommand(const Command& Wanted);

/// The text of a command without any column mark, as it is edited.
std::wstring WithoutColumnMarks(std::wstring_view strText);

/// A program, or a document, and its arguments.
struct ProgramCall {
    std::wstring strProgram;
    std::wstring strArguments;
    bool operator==(const ProgramCall&) const = default;
};

/// What a command of kind Launch launches: "program:arguments". The program has no column marks,
/// the arguments keep theirs.
ProgramCall LaunchOf(const Command& Launched);

}  // namespace taviro
