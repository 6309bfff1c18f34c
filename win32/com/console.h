// SPDX-License-Identifier: MIT
// What a program without a window of its own says to the user who gave it an order.
#pragma once

#include <string>

namespace taviro::com {

/// To the program's own error output. Line feeds are written as the console's line ends. Returns
/// false when there is none.
[[nodiscard]] bool WriteToErrorOutput(const std::wstring& strText);

/// The same, and to the console of whoever started the program where it has no output of its own.
[[nodiscard]] bool WriteToUser(const std::wstring& strText);

/// What the system says about one of its error codes.
[[nodiscard]] std::wstring ReasonOf(long nError);

}  // namespace taviro::com
