// SPDX-License-Identifier: MIT
#include "dialogs/keyboard_dialog.h"

#include "platform/dialogs.h"
#include "state/program_state.h"

namespace taviro {

void TakeKeyboard(forms::Form& Form) {
    Form.OnActivate = [] { Program.bDialogActive = true; };
    Form.OnDeactivate = [] { Program.bDialogActive = false; };
}

void TellUser(const forms::Form& Form, const std::wstring& strText) {
    Program.bMessageShown = true;  // the dialog below it is no longer active
    platform::ShowInformation(strText, Form.Caption);
    Program.bMessageShown = false;
}

}  // namespace taviro
