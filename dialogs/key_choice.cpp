// SPDX-License-Identifier: MIT
#include "dialogs/key_choice.h"

#include <algorithm>

#include "maps/key_names.h"
#include "vocabulary/action_code.h"

namespace taviro {

std::array<KeyChoice::ModifierBox, 4> KeyChoice::Boxes() const {
    return {{{chkSHIFT, Modifier::Shift},
             {chkCTRL, Modifier::Ctrl},
             {chkALT, Modifier::Alt},
             {chkWin, Modifier::Windows}}};
}

void KeyChoice::Show(int32_t nCode) const {
    const ActionCode Action = ParseActionCode(nCode);
    for (const ModifierBox& One : Boxes())
        One.Box.Value = HasModifier(Action, One.nModifier);
    ComboKey.Items = KeyNames();
    ComboKey.Select(KeyIndexOf(UnmodifiedCode(nCode)));
}

bool KeyChoice::IsAsShown(int32_t nCode) const {
    const ActionCode Action = ParseActionCode(nCode);
    const auto Boxed = Boxes();
    return ComboKey.ListIndex == KeyIndexOf(UnmodifiedCode(nCode)) &&
           std::all_of(Boxed.begin(), Boxed.end(), [&](const ModifierBox& One) {
               return One.Box.Value == HasModifier(Action, One.nModifier);
           });
}

int32_t KeyChoice::Code(int32_t nShown) const {
    if (IsAsShown(nShown)) return nShown;
    int32_t nKey = UnmodifiedCode(nShown);
    (void)KeyCodeAt(ComboKey.ListIndex, nKey);
    ActionCode Action = ParseActionCode(nKey);
    for (const ModifierBox& One : Boxes()) {
        if (One.Box.Value) Action.nModifiers += One.nModifier;
    }
    if (chkWin.Value) Action.nModifiers = Modifier::Windows;
    return ComposeActionCode(Action);
}

void KeyChoice::Enable(bool bEnabled) const {
    forms::Control* const CONTROLS[] = {&ComboKey, &chkSHIFT, &chkCTRL, &chkALT, &chkWin};
    for (forms::Control* pControl : CONTROLS)
        pControl->Enabled = bEnabled;
}

}  // namespace taviro
