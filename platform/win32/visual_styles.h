// SPDX-License-Identifier: MIT
// The system's present look for the controls of dialogs and messages.
#pragma once

#include <windows.h>

namespace taviro::platform::win32 {

/// Gives the windows that are made during its life the present look, or the plain one when the
/// system has no other. Its library is loaded by the first of them: the map, which has no such
/// controls, is on the screen a fifth sooner without it.
class VisualStyles {
  public:
    VisualStyles();
    ~VisualStyles();
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;

  private:
    ULONG_PTR m_nCookie = 0;
    bool m_bActive = false;
};

}  // namespace taviro::platform::win32
