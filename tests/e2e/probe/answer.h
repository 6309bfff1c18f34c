// SPDX-License-Identifier: MIT
// The line protocol of the probe: fields are separated by tabs, and tab, line feed, carriage return
// and backslash inside a field are written as \t, \n, \r and \\. All text is UTF-8.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace taviro::probe {

std::wstring FromUtf8(std::string_view strText);
std::string ToUtf8(std::wstring_view strText);

using Fields = std::vector<std::wstring>;

/// Splits a line of the request into its fields, undoing the escapes.
Fields SplitFields(std::string_view strLine);

/// Writes one line of the answer.
void Answer(std::initializer_list<std::wstring> Given);

/// Reads commands from the standard input, one a line, until it ends. Run answers each with lines
/// and returns an empty text, or the reason why the command failed, which ends the answer.
void AnswerCommands(const std::function<std::wstring(const Fields& Request)>& Run);

}  // namespace taviro::probe
