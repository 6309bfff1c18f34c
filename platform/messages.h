// SPDX-License-Identifier: MIT
// The message queue of the user-interface thread.
#pragma once

namespace taviro::platform {

/// Lets every window message that is waiting now run: other timers, input, paint. Returns when the
/// queue is empty.
void RunPendingMessages();

/// Whether the call that asks came straight out of RunMessageLoop. False while something of the
/// program itself is under way beneath it: a handler, a wait, a dialog, a menu. What would pull the
/// ground from under that must not be done then.
[[nodiscard]] bool IsOutermostLoop();

/// Runs messages until QuitMessageLoop was called; returns the program's exit code.
[[nodiscard]] int RunMessageLoop();

/// Ends the message loop after the current message.
void QuitMessageLoop(int nExitCode);

}  // namespace taviro::platform
