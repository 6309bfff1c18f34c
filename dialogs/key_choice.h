// SPDX-License-Identifier: MIT
// The controls with which dialogs show and take the key of an action code with its modifiers. A
// ticked Windows key goes with no other modifier.
#pragma once

#include <array>
#include <cstdint>

#include "forms/dialog_controls.h"

namespace taviro {

inline constexpr int32_t NO_KEY = 0;  ///< the code of no key at all

struct KeyChoice {
    forms::ListBox& ComboKey;
    forms::CheckBox& chkSHIFT;
    forms::CheckBox& chkCTRL;
    forms::CheckBox& chkALT;
    forms::CheckBox& chkWin;

    /// Fills the list and sets every control from a code. A key that has no name stays unselected.
    void Show(int32_t nCode) const;
    /// The code of the selected key with the ticked modifiers. Of the code that was shown the key
    /// stays when none is selected, and all of it when nothing was touched: the list does not name
    /// every key.
    int32_t Code(int32_t nShown) const;
    void Enable(bool bEnabled) const;

  private:
    struct ModifierBox {
        forms::CheckBox& Box;
        int32_t nModifier;
    };
    [[nodiscard]] std::array<ModifierBox, 4> Boxes() const;
    [[nodiscard]] bool IsAsShown(int32_t nCode) const;
};

}  // namespace taviro
