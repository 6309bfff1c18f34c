// SPDX-License-Identifier: MIT
// How the settings file writes what a joystick button does: one of two words, a code's number, or a
// command. Reading the file takes enclosing double quotes away, so a command's own are stored as
// "$". Which commands stand in quotes of the file's is settings/button_table.h's business.
#pragma once

#include <string>
#include <string_view>

namespace taviro::ButtonWord {

inline constexpr std::wstring_view Action = L"*action";  ///< chooses the highlighted cell
inline constexpr std::wstring_view Mode = L"*mode";      ///< goes to the next mode

std::wstring ToStoredQuotes(std::wstring_view strCommand);
std::wstring FromStoredQuotes(std::wstring_view strStored);

}  // namespace taviro::ButtonWord
