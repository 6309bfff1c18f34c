// SPDX-License-Identifier: MIT
#include "dialogs/key_choice.h"

#include "maps/key_names.h"
#include "vocabulary/action_code.h"

namespace taviro {

void KeyChoice::Show(int32_t nCode) const {
    const ActionCode Action = ParseActionCode(nCode);
    chkWin.Value = HasModifier(Action, Modifier::Windows);
    chkALT.Value = HasModifier(Action, Modifier::Alt);
    chkCTRL.Value = HasModifier(Action, Modifier::Ctrl);
    chkSHIFT.Value = HasModifier(Action, Modifier::Shift);
    ComboKey.Clear();
    ComboKey.Items = KeyNames();
    ComboKey.Select(KeyIndexOf(UnmodifiedCode(nCode)));
}

int32_t KeyChoice::Code(int32_t nUnselected) const {
    int32_t nKey = nUnselected;
    (void)KeyCodeAt(ComboKey.ListIndex, nKey);
    ActionCode Action = ParseActionCode(nKey);
    Action.nModifiers = 0;
    if (chkCTRL.Value) Action.nModifiers += Modifier::Ctrl;
    if (chkSHIFT.Value) Action.nModifiers += Modifier::Shift;
    if (chkALT.Value) Action.nModifiers += Modifier::Alt;
    if (chkWin.Value) Action.nModifiers = Modifier::Windows;
    return ComposeActionCode(Action);
}

void KeyChoice::Enable(bool bEnabled) const {
    ComboKey.Enabled = bEnabled;
    for (forms::CheckBox* pBox : {&chkSHIFT, &chkCTRL, &chkALT, &chkWin})
        pBox->Enabled = bEnabled;
}

}  // namespace taviro
