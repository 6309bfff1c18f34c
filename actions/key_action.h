// SPDX-License-Identifier: MIT
// The time in which keys of an action are down. Nothing else of the program runs in it: another
// cell's key would arrive with these modifiers. When it ends nothing of it stays down, whatever the
// system kept from us.
#pragma once

#include "platform/keys.h"
#include "platform/messages.h"

namespace taviro {

struct KeyActionState {
    int nUnderway = 0;
};
inline KeyActionState KeyActions;

class KeyAction {
  public:
    KeyAction() { ++KeyActions.nUnderway; }
    KeyAction(const KeyAction&) = delete;
    KeyAction& operator=(const KeyAction&) = delete;
    ~KeyAction() {
        if (--KeyActions.nUnderway == 0) platform::ReleaseHeldInput();
    }

  private:
    platform::OwnWorkPause m_Pause;
};

}  // namespace taviro
