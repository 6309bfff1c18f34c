// SPDX-License-Identifier: MIT
// Dialogs of the virtual desktop: their showing is written into the transcript, their timers tick,
// and a modal one lets the test be the user.
#include "platform/dialogs.h"

#include "platform/headless/desktop.h"
#include "platform/text.h"

namespace taviro::platform {

using headless::Desktop;

namespace {

void ShowOrHide(forms::Form& Form, const std::string& strName) {
    if (!Form.Visible) return Desktop.Record(strName + " hidden");
    if (Desktop.Refuses("CreateDialog", FromUtf8(strName))) return Form.Unload();
    Desktop.Record(strName + (Form.IsModal() ? " shown, modal" : " shown"));
    if (Form.OnLaidOut) Form.OnLaidOut();
    if (Form.OnActivate) Form.OnActivate();
}

}  // namespace

void AttachDialog(forms::Form& Form) {
    Form.OnShowChange = [&Form](forms::Control& Changed, forms::Aspect nAspect) {
        if (auto* pTimer = dynamic_cast<forms::Timer*>(&Changed)) {
            Desktop.WatchTimer(*pTimer);
        } else if (Form.IsFrame(Changed) && nAspect == forms::Aspect::Visibility) {
            ShowOrHide(Form, ToUtf8(Changed.strName));
        }
    };
    Form.OnRunModal = [&Form] {
        ++Desktop.nInnerLoops;
        if (Desktop.WhileModal) Desktop.WhileModal(Form);
        --Desktop.nInnerLoops;
    };
    Desktop.Dialogs.push_back(&Form);
}

void DetachDialogs() {
    for (forms::Form* pForm : Desktop.Dialogs) {
        pForm->OnShowChange = nullptr;
        pForm->OnRunModal = nullptr;
    }
    Desktop.Dialogs.clear();
    Desktop.ForgetTimers();
}

void ShowInformation(const std::wstring& strText, const std::wstring& strTitle) {
    Desktop.Record("information \"" + ToUtf8(strText) + "\" titled \"" + ToUtf8(strTitle) + "\"");
}

}  // namespace taviro::platform
