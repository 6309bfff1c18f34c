// SPDX-License-Identifier: MIT
// Between UTF-8, in which the tables and the learned words are stored, and text in memory with one
// element a character. Characters beyond the first 65,536, and bytes that are no UTF-8, become
// U+FFFD, which no word holds.
#pragma once

#include <string>
#include <string_view>

namespace taviro::predictor {

[[nodiscard]] std::wstring FromUtf8(std::string_view Bytes);
[[nodiscard]] std::string ToUtf8(std::wstring_view strText);

}  // namespace taviro::predictor
