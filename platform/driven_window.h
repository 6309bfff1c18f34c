// SPDX-License-Identifier: MIT
// The window of the program that the user drives. A menu, a dialog or a message of ours takes the
// focus, and nothing on Windows hands it back: the keys of the next cell would go to the map
// itself.
#pragma once

#include "platform/windows_and_processes.h"

namespace taviro::platform {

class DrivenWindow {
  public:
    /// Remembers the window in front, unless it is ours or the taskbar: before one of ours takes
    /// the focus, and as often as the program likes.
    void Note();
    /// A window of ours needs the focus no longer. The remembered window gets it when ours has it,
    /// or nobody; whoever else has it keeps it. Called before ours goes: only who is in front may
    /// give the focus away.
    void ReturnFrom(WindowHandle hOurs) const;

  private:
    WindowHandle m_hDriven = 0;
};

}  // namespace taviro::platform
