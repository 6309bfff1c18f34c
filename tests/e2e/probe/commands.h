// SPDX-License-Identifier: MIT
// What the probe can be asked. Each command gets its fields, its own name first, answers with lines
// and returns an empty text, or the reason why it failed.
#pragma once

#include <string>
#include <vector>

#include "tests/e2e/probe/answer.h"

namespace taviro::probe {

/// One command: its name, how many fields follow the name, what it does.
struct Command {
    const wchar_t* strName;
    size_t nFields;
    std::wstring (*pRun)(const Fields& Request);
};

/// Windows and their texts.
extern const std::vector<Command> WindowCommands;
/// Keys, files and time.
extern const std::vector<Command> SystemCommands;
/// Classes, programs and windows that a test sets up.
extern const std::vector<Command> DesktopCommands;
/// Dialogs and their controls.
extern const std::vector<Command> DialogCommands;

}  // namespace taviro::probe
