// SPDX-License-Identifier: MIT
// The message queue of the user-interface thread.
#pragma once

#include <functional>

namespace taviro::platform {

/// Lets every window message that is waiting now run: other timers, input, paint. Returns when the
/// queue is empty.
void RunPendingMessages();

/// Hands the work over to the user-interface thread, from whatever thread. It is done in order with
/// what was posted before, wherever messages run: in the message loop, in waits that let messages
/// run, in the loops of dialogs and menus. Where the system refuses the message, the work is done
/// with what is posted next.
void Post(std::function<void()> Work);

/// While one exists nothing of the program's own begins: posted work and the ticks of forms wait
/// until the last one has gone, and come in their order then. Messages of the system run.
class OwnWorkPause {
  public:
    OwnWorkPause();
    OwnWorkPause(const OwnWorkPause&) = delete;
    OwnWorkPause& operator=(const OwnWorkPause&) = delete;
    ~OwnWorkPause();
};

/// Whether the call that asks came straight out of RunMessageLoop. False while something of the
/// program itself is under way beneath it: a handler, a wait, a dialog, a menu. What would pull the
/// ground from under that must not be done then.
[[nodiscard]] bool IsOutermostLoop();

/// Runs messages until QuitMessageLoop was called; returns the program's exit code.
[[nodiscard]] int RunMessageLoop();

/// Ends the message loop after the current message.
void QuitMessageLoop(int nExitCode);

}  // namespace taviro::platform
