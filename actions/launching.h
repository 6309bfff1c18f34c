// SPDX-License-Identifier: MIT
// Starts programs and opens documents for cells, buttons and choice entries.
#pragma once

#include <string>

namespace taviro {

/// A leading backslash stands for the program's folder; other texts are returned unchanged.
std::wstring ResolvePath(const std::wstring& strText);

/// Opens a program or document, its path resolved, in a normal window that may come to the front.
/// What cannot be opened is passed over in silence.
void Launch(const std::wstring& strProgram, const std::wstring& strArguments);

}  // namespace taviro
