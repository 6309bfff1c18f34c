// SPDX-License-Identifier: MIT
#include "dialogs/key_choice.h"

#include "maps/key_names.h"

namespace taviro {

namespace {

constexpr int32_t MODIFIER_STEP = 10000;  // one modifier digit in a code
constexpr int32_t MODIFIER_SHIFT = 1;
constexpr int32_t MODIFIER_CTRL = 2;
constexpr int32_t MODIFIER_ALT = 4;
constexpr int32_t MODIFIER_WINDOWS = 9;

}  // namespace

int32_t KeyOf(int32_t nCode) {
    return nCode % MODIFIER_STEP;
}

void KeyChoice::Show(int32_t nCode) const {
    const int32_t nModifiers = nCode / MODIFIER_STEP;
    const bool bWindows = nModifiers == MODIFIER_WINDOWS;
    chkWin.Value = bWindows;
    chkALT.Value = !bWindows && (nModifiers & MODIFIER_ALT) != 0;
    chkCTRL.Value = !bWindows && (nModifiers & MODIFIER_CTRL) != 0;
    chkSHIFT.Value = !bWindows && (nModifiers & MODIFIER_SHIFT) != 0;
    ComboKey.Clear();
    ComboKey.Items = KeyNames();
    ComboKey.Select(KeyIndexOf(KeyOf(nCode)));
}

int32_t KeyChoice::Code(int32_t nUnselected) const {
    int32_t nKey = nUnselected;
    (void)KeyCodeAt(ComboKey.ListIndex, nKey);
    int32_t nModifiers = 0;
    if (chkCTRL.Value) nModifiers += MODIFIER_CTRL;
    if (chkSHIFT.Value) nModifiers += MODIFIER_SHIFT;
    if (chkALT.Value) nModifiers += MODIFIER_ALT;
    if (chkWin.Value) nModifiers = MODIFIER_WINDOWS;
    return nModifiers * MODIFIER_STEP + nKey;
}

void KeyChoice::Enable(bool bEnabled) const {
    ComboKey.Enabled = bEnabled;
    for (forms::CheckBox* pBox : {&chkSHIFT, &chkCTRL, &chkALT, &chkWin})
        pBox->Enabled = bEnabled;
}

}  // namespace taviro
