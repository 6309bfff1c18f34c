// SPDX-License-Identifier: MIT
#include "forms/dialog_controls.h"

namespace taviro::forms {

void CheckBox::RunHandler(Aspect nAspect) {
    if (nAspect == Aspect::Checked && OnClick) OnClick();
}

void OptionGroup::Choose(int32_t nItem) {
    if (nItem >= 0 && nItem < nItems) Selected = nItem;
}

void OptionGroup::RunHandler(Aspect nAspect) {
    if (nAspect == Aspect::Selection && Selected >= 0 && OnClick) OnClick(Selected);
}

bool ScrollBar::MoveTo(int32_t nPosition) {
    if (nPosition < nMin || nPosition > nMax) return false;
    Value = nPosition;
    return true;
}

void ScrollBar::RunHandler(Aspect nAspect) {
    if (nAspect == Aspect::Selection && OnChange) OnChange();
}

}  // namespace taviro::forms
