// SPDX-License-Identifier: MIT
// The line protocol of the probe: fields are separated by tabs, and tab, line feed, carriage return
// and backslash inside a field are written as \t, \n, \r and \\. All text is UTF-8.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace taviro::probe {

std::wstring FromUtf8(std::string_view strText);
std::string ToUtf8(std::wstring_view strText);

/// Splits a line of the request into its fields, undoing the escapes.
std::vector<std::wstring> SplitFields(std::string_view strLine);

/// Writes one line of the answer.
void Answer(std::initializer_list<std::wstring> Fields);

/// Ends the answer, with the reason when the command failed.
void EndAnswer(const std::wstring& strError);

}  // namespace taviro::probe
