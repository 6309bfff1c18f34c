// SPDX-License-Identifier: MIT
// A window of the program as data: loaded once, shown and hidden, unloaded. Width and Height are
// twips (1/1440 inch), ScaleWidth and ScaleHeight the inner size in pixels, which the view sets.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "forms/control.h"

namespace taviro::forms {

/// A form: its own properties live on a control of its own so that they report like any other.
class Form {
  public:
    explicit Form(std::wstring strFormName);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

  private:
    class Frame;
    std::unique_ptr<Control> m_pFrame;  // stands before the properties that report through it

  public:
    Property<std::wstring> Caption;
    Property<int32_t> Width;   ///< between the side frames, so that a layout's last column is whole
    Property<int32_t> Height;  ///< of the whole window: caption, menu and both frames included
    Property<bool> Visible;

    int32_t nScaleWidth = 0;   ///< inner width in pixels
    int32_t nScaleHeight = 0;  ///< inner height in pixels

    std::function<void()> OnLoad;
    std::function<void()> OnQueryUnload;
    std::function<void()> OnUnload;
    std::function<void()> OnResize;

    /// The view: told of every change of the form (its own control) and of its controls.
    std::function<void(Control&, Aspect)> OnShowChange;

    bool IsLoaded() const { return m_bLoaded; }
    /// Runs the load handler unless the form is loaded.
    void Load();
    /// Loads the form if needed and shows it.
    void Show();
    /// Hides the form and runs its unload handlers; nothing happens when it is not loaded or is
    /// already unloading.
    void Unload();
    /// The inner size became nWidth x nHeight pixels; runs the resize handler when it changed.
    void SetScale(int32_t nWidth, int32_t nHeight);

    /// Whether the control that a change came from is the form itself.
    bool IsFrame(const Control& Changed) const { return &Changed == m_pFrame.get(); }
    void ShowChange(Control& Changed, Aspect nAspect) const;

  private:
    bool m_bLoaded = false;
    bool m_bUnloading = false;
};

}  // namespace taviro::forms
