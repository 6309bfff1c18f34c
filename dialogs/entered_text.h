// SPDX-License-Identifier: MIT
// What a user may enter where the text goes into one line of a file. What the line cannot hold does
// not get into the box, or is seen to turn into something that it can.
#pragma once

#include <string>

#include "forms/control.h"

namespace taviro {

/// The text as one line: a line break, or another control character, becomes a blank.
std::wstring OneLine(const std::wstring& strEntered);

/// Lets every text that a user enters pass through Storable on its way into the box. A text that
/// the program itself put there stays as it is until the user changes it.
void AdmitAs(forms::TextBox& Box, std::wstring (*Storable)(const std::wstring&));

}  // namespace taviro
