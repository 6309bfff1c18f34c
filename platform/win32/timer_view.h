// SPDX-License-Identifier: MIT
// A timer of a form on the window's real one. The real timer stands still while the handler runs,
// so that the next tick is due a whole interval after the handler has ended.
#pragma once

#include <windows.h>

#include "forms/control.h"

namespace taviro::platform::win32 {

class TimerView {
  public:
    TimerView(forms::Timer& Model, UINT_PTR nId) : m_Model(Model), m_nId(nId) {}

    forms::Timer& Model() const { return m_Model; }
    UINT_PTR Id() const { return m_nId; }

    /// Starts, restarts or stops the real timer as the model now says.
    void Push(HWND hWindow);
    /// The real timer's message came.
    void OnTimer(HWND hWindow);

  private:
    void Start(HWND hWindow);
    void Stop(HWND hWindow);

    forms::Timer& m_Model;
    UINT_PTR m_nId;
    bool m_bStarted = false;
};

}  // namespace taviro::platform::win32
