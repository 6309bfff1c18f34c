// SPDX-License-Identifier: MIT
// The two controls of the main window that are windows of their own: the choice list, and the box
// into which other programs write. Neither ever takes the focus.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "forms/main_form.h"
#include "platform/scale.h"
#include "platform/win32/handles.h"

namespace taviro::platform::win32 {

class ChildControls {
  public:
    explicit ChildControls(forms::MainForm& Form) : m_Form(Form) {}

    /// Makes both controls in the window. Returns false when the system refuses.
    bool Create(HWND hParent);

    /// The monitor that the controls are shown on from now on.
    void SetScale(Scale Monitor);

    /// Shows the control as it is now, if it is one of the two.
    void Push(const forms::Control& Changed);

    /// A notification of a child window. A click in the list runs the model's handlers at once. A
    /// text in the box is handed to the model later, each text once and in order: what it does may
    /// call other programs, which is refused while the writer's message is under way.
    void OnNotification(HWND hChild, WORD nCode);

  private:
    void PushFrame(HWND hChild, const forms::Control& Changed) const;
    void PushList();
    void PushText();
    void PostText() const;

    forms::MainForm& m_Form;
    HWND m_hList = nullptr;  // both owned by the main window
    HWND m_hEdit = nullptr;
    UniqueFont m_hFont;
    Scale m_Scale;
    std::vector<std::wstring> m_ShownItems;
    bool m_bPushing = false;               // the model's text is being written into the box
    std::shared_ptr<const HWND> m_pTaker;  // shared with posted texts: gone with these controls
};

}  // namespace taviro::platform::win32
