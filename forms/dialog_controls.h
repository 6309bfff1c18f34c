// SPDX-License-Identifier: MIT
// The controls that only dialogs have. What a user does to them has a procedure of its own where it
// is more than setting a property.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "forms/control.h"

namespace taviro::forms {

/// A box to tick.
class CheckBox : public Control {
  public:
    using Control::Control;
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::CheckBox; }
    Property<bool> Value{*this, Aspect::Checked};
    std::function<void()> OnClick;

    /// What a user's click does.
    void Click() {
        if (Enabled) Value = !Value;
    }

  protected:
    void RunHandler(Aspect nAspect) override;
};

/// Option buttons of which at most one is chosen. Their numbers in the layout follow each other,
/// beginning with the group's own.
class OptionGroup : public Control {
  public:
    OptionGroup(Form& Parent, std::wstring strControlName, int32_t nControlId, int32_t nItemCount)
        : Control(Parent, std::move(strControlName), nControlId), nItems(nItemCount) {}
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::OptionGroup; }

    const int32_t nItems;
    Property<int32_t> Selected{*this, Aspect::Selection, -1};  ///< -1: none
    std::function<void(int32_t)> OnClick;                      ///< with the item's index

    /// Chooses an item; outside 0 to nItems - 1 nothing changes.
    void Choose(int32_t nItem);

  protected:
    void RunHandler(Aspect nAspect) override;
};

/// A list that drops down; the user picks an entry and cannot type another.
class ComboBox : public ListBox {
  public:
    using ListBox::ListBox;
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::ComboBox; }
};

/// A horizontal bar whose position the user moves.
class ScrollBar : public Control {
  public:
    ScrollBar(Form& Parent, std::wstring strControlName, int32_t nControlId, int32_t nLeast,
              int32_t nMost)
        : Control(Parent, std::move(strControlName), nControlId), nMin(nLeast), nMax(nMost) {
        Value = nLeast;
    }
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::ScrollBar; }

    const int32_t nMin;
    const int32_t nMax;
    Property<int32_t> Value{*this, Aspect::Selection};
    std::function<void()> OnChange;  ///< the position really changed

    /// Moves the bar; outside its range it stays and gives false.
    bool MoveTo(int32_t nPosition);

  protected:
    void RunHandler(Aspect nAspect) override;
};

/// A push button. Its caption is that of the layout while the model's is empty.
class Button : public Control {
  public:
    using Control::Control;
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::Button; }
    Property<std::wstring> Caption{*this, Aspect::Text};
    std::function<void()> OnClick;

    void Click() {
        if (Enabled && Visible && OnClick) OnClick();
    }
};

/// A captioned frame around other controls.
class GroupFrame : public Control {
  public:
    using Control::Control;
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::GroupFrame; }
    Property<std::wstring> Caption{*this, Aspect::Text};
};

}  // namespace taviro::forms
