// SPDX-License-Identifier: MIT
// The program as the measurements run it: fresh, on a fresh virtual desktop, in virtual time, with
// a map and settings of their own.
#pragma once

#include <string>
#include <string_view>

namespace taviro::effort {

inline constexpr int ACTION_BUTTON = 0;
inline constexpr int MODE_BUTTON = 1;

/// A fresh desktop whose user has this map and, unless it is empty, this file of settings.
void PrepareDesktop(std::string_view strMapFile, std::string_view strSettings);

/// Starts the program on the desktop that was prepared, and ends it.
void OpenProgram();
void CloseProgram();

/// Empty when exactly this text arrived in the program in front, else what is wrong.
[[nodiscard]] std::string ArrivalError(const std::wstring& strWanted);

/// The text with plain signs in place of typographic ones, which no key types.
[[nodiscard]] std::wstring WithPlainSigns(std::wstring_view strText);

}  // namespace taviro::effort
