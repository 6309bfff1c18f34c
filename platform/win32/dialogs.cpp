// SPDX-License-Identifier: MIT
#include "platform/dialogs.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/main_window.h"
#include "platform/unneeded.h"
#include "platform/win32/dialog_view.h"
#include "platform/win32/driven_window.h"
#include "platform/win32/failure.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/numbers.h"
#include "platform/win32/visual_styles.h"

namespace taviro::platform {

namespace {

using win32::DialogView;

/// A dialog that holds the other windows of the program, and those that it has disabled.
struct ModalDialog {
    const DialogView* pView;
    std::vector<HWND> Disabled;
};

struct DialogState {
    std::vector<std::unique_ptr<DialogView>> Views;
    std::vector<ModalDialog> Modal;  ///< the innermost last
};
DialogState Dialogs;

HWND MainWindow() {
    return win32::ToHwnd(MainWindowHandle());
}

/// A dialog stands above the innermost modal one, else above the main window.
HWND OwnerOfNext() {
    return Dialogs.Modal.empty() ? MainWindow() : Dialogs.Modal.back().pView->Window();
}

void HoldOthers(const DialogView& View) {
    ModalDialog Holding{.pView = &View, .Disabled = {}};
    const auto Hold = [&](HWND hWindow) {
        if (hWindow == nullptr || hWindow == View.Window() || !IsWindowEnabled(hWindow)) return;
        Unneeded(EnableWindow(hWindow, FALSE));  // returns the earlier state
        Holding.Disabled.push_back(hWindow);
    };
    Hold(MainWindow());
    for (const auto& pOther : Dialogs.Views)
        Hold(pOther->Window());
    Dialogs.Modal.push_back(std::move(Holding));
}

/// Before the dialog goes: else the system would give the focus to another program.
void FreeOthers(const DialogView& View) {
    const auto it = std::find_if(Dialogs.Modal.begin(), Dialogs.Modal.end(),
                                 [&](const ModalDialog& Entry) { return Entry.pView == &View; });
    if (it == Dialogs.Modal.end()) return;
    for (HWND hWindow : it->Disabled)
        Unneeded(EnableWindow(hWindow, TRUE));  // fails when it is gone: nothing to free
    Dialogs.Modal.erase(it);
}

/// Whether a dialog other than this one is shown: it goes on with the focus.
bool IsAnotherShown(const DialogView& View) {
    return std::ranges::any_of(Dialogs.Views, [&](const auto& pOther) {
        return pOther.get() != &View && pOther->Window() != nullptr && pOther->Model().Visible;
    });
}

void Show(DialogView& View) {
    win32::Driven.Note();
    if (View.Window() == nullptr && !View.Create(OwnerOfNext())) {
        View.Model().Unload();  // nothing can be shown, so nothing may wait for it
        return;
    }
    if (View.Model().IsModal()) HoldOthers(View);
    Unneeded(ShowWindow(View.Window(), SW_SHOW));  // the earlier state
    Unneeded(SetForegroundWindow(View.Window()));  // refused: a click brings it up
}

void Hide(DialogView& View) {
    FreeOthers(View);
    if (View.Window() != nullptr && !IsAnotherShown(View)) {
        win32::Driven.ReturnFrom(win32::ToNumber(View.Window()));
    }
    if (View.Model().IsLoaded()) {
        Unneeded(ShowWindow(View.Window(), SW_HIDE));
    } else {
        View.Destroy();
    }
}

void OnShowChange(DialogView& View, forms::Control& Changed, forms::Aspect nAspect) {
    forms::Form& Form = View.Model();
    if (!Form.IsFrame(Changed)) return View.Push(Changed, nAspect);
    if (nAspect == forms::Aspect::Unloaded) return Hide(View);
    if (nAspect != forms::Aspect::Visibility) return View.PushFrame(nAspect);
    Form.Visible ? Show(View) : Hide(View);
}

}  // namespace

void AttachDialog(forms::Form& Form) {
    Dialogs.Views.push_back(std::make_unique<DialogView>(Form));
    DialogView& View = *Dialogs.Views.back();
    Form.OnShowChange = [&View](forms::Control& Changed, forms::Aspect nAspect) {
        OnShowChange(View, Changed, nAspect);
    };
    Form.OnRunModal = [&Form] { win32::RunMessagesWhile([&] { return Form.Visible.Get(); }); };
}

void DetachDialogs() {
    for (const auto& pView : Dialogs.Views) {
        pView->Model().OnShowChange = nullptr;
        pView->Model().OnRunModal = nullptr;
        pView->Destroy();
    }
    Dialogs = {};
}

void ShowInformation(const std::wstring& strText, const std::wstring& strTitle) {
    win32::Driven.Note();
    const win32::VisualStyles Look;
    // The answer can only be OK.
    win32::OrReport(MessageBoxW(OwnerOfNext(), strText.c_str(), strTitle.c_str(),
                                MB_OK | MB_ICONINFORMATION | MB_SETFOREGROUND) != 0,
                    "MessageBox");
    win32::Driven.ReturnFrom(MainWindowHandle());
}

}  // namespace taviro::platform
