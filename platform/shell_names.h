// SPDX-License-Identifier: MIT
// Which names the shell may be asked to open, on every system.
#pragma once

#include <string_view>

namespace taviro::platform {

/// A name that no shell chokes on: not empty, because a shell may show the current folder instead,
/// and no longer than names can be, because some copy them into a buffer without a check. Addresses
/// (a scheme of two letters at least, then ":") may be longer than files.
[[nodiscard]] bool CanBeOpened(std::wstring_view strName);

}  // namespace taviro::platform
