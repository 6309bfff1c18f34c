// SPDX-License-Identifier: MIT
// A message loop inside a handler, for modal dialogs.
#pragma once

#include <functional>

namespace taviro::platform::win32 {

/// Runs messages until the condition no longer holds or the program ends.
void RunMessagesWhile(const std::function<bool()>& Condition);

}  // namespace taviro::platform::win32
