// SPDX-License-Identifier: MIT
// The window of one dialog, made from the layout of the form's name. The object stays for as long
// as the form is attached; its window comes and goes.
#pragma once

#include <windows.h>

#include <list>
#include <vector>

#include "forms/form.h"
#include "platform/win32/timer_view.h"

namespace taviro::platform::win32 {

class DialogView {
  public:
    explicit DialogView(forms::Form& Shown);

    forms::Form& Model() const { return m_Form; }
    HWND Window() const { return m_hWindow; }

    /// Makes the window, hidden, where the form wants it or in the middle of the work area, wholly
    /// on the screen. Returns false when the system refuses or there is no such layout.
    bool Create(HWND hOwner);
    void Destroy();

    /// A control of the form other than the form itself changed.
    void Push(forms::Control& Changed, forms::Aspect nAspect);
    /// The form's own position or size, or its caption, changed.
    void PushFrame(forms::Aspect nAspect) const;

  private:
    static INT_PTR CALLBACK OnMessage(HWND hDialog, UINT nMessage, WPARAM wParam,
                                      LPARAM lParam) noexcept;
    bool Handle(UINT nMessage, WPARAM wParam, LPARAM lParam);
    void OnInit();
    void OnCommand(int nId, WORD nCode);
    forms::Control* ControlOf(int nId) const;
    void WatchText(forms::Control& Shown) const;
    void StartTimers();

    forms::Form& m_Form;
    HWND m_hWindow = nullptr;
    std::vector<TimerView> m_Timers;
};

}  // namespace taviro::platform::win32
