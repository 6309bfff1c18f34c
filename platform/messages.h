// SPDX-License-Identifier: MIT
// The message queue of the user-interface thread.
#pragma once

namespace taviro::platform {

/// Lets every window message that is waiting now run: other timers, input, paint. Returns when the
/// queue is empty.
void RunPendingMessages();

/// Runs messages until QuitMessageLoop was called; returns the program's exit code.
int RunMessageLoop();

/// Ends the message loop after the current message.
void QuitMessageLoop(int nExitCode);

}  // namespace taviro::platform
