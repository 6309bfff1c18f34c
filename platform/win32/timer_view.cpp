// SPDX-License-Identifier: MIT
#include "platform/win32/timer_view.h"

#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/posted_work.h"

namespace taviro::platform::win32 {

void TimerView::Push(HWND hWindow) {
    Stop(hWindow);
    if (m_Model.IsTicking()) Start(hWindow);
}

void TimerView::OnTimer(HWND hWindow) {
    // A message that was on its way when the timer was stopped, or one that a wait inside the
    // handler let through after the handler had restarted the timer.
    if (!m_bStarted || m_Model.IsRunning()) return;
    if (IsOwnWorkPaused()) return;  // the system tells it again after the interval
    Stop(hWindow);
    m_Model.Tick();
    // The handler may have restarted it itself, or have closed the window.
    if (m_Model.IsTicking() && !m_bStarted && IsWindow(hWindow) != FALSE) Start(hWindow);
}

void TimerView::Start(HWND hWindow) {
    // The system is out of timers when this fails; the next change of the model tries again.
    m_bStarted =
        OrReport(SetTimer(hWindow, m_nId, static_cast<UINT>(m_Model.Interval.Get()), nullptr) != 0,
                 "SetTimer");
}

void TimerView::Stop(HWND hWindow) {
    if (!m_bStarted) return;
    m_bStarted = false;
    Unneeded(KillTimer(hWindow, m_nId));  // gone already with a closed window
}

}  // namespace taviro::platform::win32
