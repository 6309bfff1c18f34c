// SPDX-License-Identifier: MIT
// Text files of editors that write Unicode tell so by a mark in front.
#pragma once

#include <string>
#include <string_view>

namespace taviro::platform {

inline constexpr std::string_view UTF8_MARK = "\xEF\xBB\xBF";

/// Whether the bytes begin with a mark: of UTF-8, or of UTF-16 in either order.
[[nodiscard]] bool HasByteOrderMark(std::string_view strBytes);

/// The text behind the mark, as UTF-8.
[[nodiscard]] std::string MarkedTextAsUtf8(std::string_view strBytes);

}  // namespace taviro::platform
