// SPDX-License-Identifier: MIT
// Dialogs of the virtual desktop: their showing is written into the transcript, their timers tick,
// and a modal one lets the test be the user.
#include "platform/dialogs.h"

#include <algorithm>

#include "platform/headless/desktop.h"
#include "platform/main_window.h"
#include "platform/text.h"

namespace taviro::platform {

using forms::ControlKind;
using headless::Desktop;

namespace {

// The window that gets what the user does when a dialog goes: the modal dialog that it stood above.
forms::Form* DialogBelow(const forms::Form& Gone) {
    forms::Form* pBelow = nullptr;
    for (forms::Form* pForm : Desktop.Dialogs) {
        if (pForm != &Gone && pForm->Visible && pForm->IsModal()) pBelow = pForm;
    }
    return pBelow;
}

constexpr WindowHandle MESSAGE_WINDOW = headless::FIRST_OWN_WINDOW;
constexpr WindowHandle FIRST_DIALOG_WINDOW = headless::FIRST_OWN_WINDOW + 1;

WindowHandle WindowOf(const forms::Form& Form) {
    const auto it = std::ranges::find(Desktop.Dialogs, &Form);
    return FIRST_DIALOG_WINDOW + static_cast<WindowHandle>(it - Desktop.Dialogs.begin());
}

void HideDialog(forms::Form& Form, const std::string& strName) {
    Desktop.Record(strName + " hidden");
    const bool bAnotherShown = std::ranges::any_of(Desktop.Dialogs, [&](const forms::Form* pOther) {
        return pOther != &Form && pOther->Visible;
    });
    if (!bAnotherShown) Desktop.Driven.ReturnFrom(WindowOf(Form));
    const bool bInFront = Desktop.hForeground == WindowOf(Form);
    if (Desktop.pActiveDialog == &Form) Desktop.ActivateDialog(DialogBelow(Form));
    if (bInFront && Desktop.pActiveDialog == nullptr) Desktop.hForeground = MainWindowHandle();
}

void ShowOrHide(forms::Form& Form, const std::string& strName) {
    if (!Form.Visible) return HideDialog(Form, strName);
    Desktop.Driven.Note();
    if (Desktop.Refuses("CreateDialog", FromUtf8(strName))) return Form.Unload();
    Desktop.Record(strName + (Form.IsModal() ? " shown, modal" : " shown"));
    if (Form.OnLaidOut) Form.OnLaidOut();
    Desktop.ActivateDialog(&Form);
}

void ShowChange(forms::Form& Form, forms::Control& Changed, forms::Aspect nAspect) {
    switch (Changed.Kind()) {
        case ControlKind::Timer:
            return Desktop.WatchTimer(static_cast<forms::Timer&>(Changed));
        case ControlKind::Form:
            if (nAspect != forms::Aspect::Visibility) return;
            return ShowOrHide(Form, ToUtf8(Changed.strName));
        case ControlKind::Label:
        case ControlKind::TextBox:
        case ControlKind::ListBox:
        case ControlKind::MenuEntry:
        case ControlKind::CheckBox:
        case ControlKind::OptionGroup:
        case ControlKind::ComboBox:
        case ControlKind::ScrollBar:
        case ControlKind::Button:
        case ControlKind::GroupFrame:
            return;  // a test reads the model
    }
}

}  // namespace

void headless::DesktopState::ActivateDialog(forms::Form* pForm) {
    forms::Form* const pBefore = pActiveDialog;
    pActiveDialog = pForm;
    if (pBefore != nullptr && pBefore != pForm) pBefore->Deactivate();
    if (pForm == nullptr) return;
    hForeground = WindowOf(*pForm);
    pForm->Activate();
}

void headless::DesktopState::OpenMenu(forms::MenuEntry* pChosen) {
    Driven.Note();
    hForeground = MainWindowHandle();
    if (pChosen != nullptr) pChosen->Click();
    Driven.ReturnFrom(MainWindowHandle());
}

void AttachDialog(forms::Form& Form) {
    Form.OnShowChange = [&Form](forms::Control& Changed, forms::Aspect nAspect) {
        ShowChange(Form, Changed, nAspect);
    };
    Form.OnRunModal = [&Form] {
        const headless::Within Loop(Desktop.nInnerLoops);
        const headless::LetThrough Messages;
        if (Desktop.WhileModal) Desktop.WhileModal(Form);
    };
    Desktop.Dialogs.push_back(&Form);
}

void DetachDialogs() {
    for (forms::Form* pForm : Desktop.Dialogs) {
        pForm->OnShowChange = nullptr;
        pForm->OnRunModal = nullptr;
    }
    Desktop.Dialogs.clear();
    Desktop.pActiveDialog = nullptr;
    Desktop.ForgetTimers();
}

void ShowInformation(const std::wstring& strText, const std::wstring& strTitle) {
    Desktop.Record("information \"" + ToUtf8(strText) + "\" titled \"" + ToUtf8(strTitle) + "\"");
    forms::Form* const pBelow = Desktop.pActiveDialog;
    Desktop.Driven.Note();
    Desktop.ActivateDialog(nullptr);
    Desktop.hForeground = MESSAGE_WINDOW;
    {
        const headless::LetThrough Messages;
        if (Desktop.WhileMessage) Desktop.WhileMessage();
    }
    if (Desktop.hForeground == MESSAGE_WINDOW) Desktop.hForeground = MainWindowHandle();
    Desktop.ActivateDialog(pBelow);
    Desktop.Driven.ReturnFrom(MainWindowHandle());
}

}  // namespace taviro::platform
