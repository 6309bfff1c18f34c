// SPDX-License-Identifier: MIT
// The controls with which dialogs show and take a key with its modifiers, and how a code is put
// together: modifier digit x 10000 + key, where the digit is a sum of 1 Shift, 2 Ctrl and 4 Alt, or
// 9 for the Windows key, which goes with no other modifier.
#pragma once

#include <cstdint>

#include "forms/dialog_controls.h"

namespace taviro {

struct KeyChoice {
    forms::ListBox& ComboKey;
    forms::CheckBox& chkSHIFT;
    forms::CheckBox& chkCTRL;
    forms::CheckBox& chkALT;
    forms::CheckBox& chkWin;

    /// Fills the list and sets every control from a code. A key that has no name stays unselected.
    void Show(int32_t nCode) const;
    /// The code of the selected key with the ticked modifiers; nUnselected is the key without a
    /// selection.
    int32_t Code(int32_t nUnselected) const;
    void Enable(bool bEnabled) const;
};

/// The key of a code, without its modifiers.
int32_t KeyOf(int32_t nCode);

}  // namespace taviro
