// SPDX-License-Identifier: MIT
// A window of the program as data: loaded, shown and hidden, unloaded. Position and size are twips
// (1/1440 inch), ScaleWidth and ScaleHeight the inner size in pixels, which the view sets.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "forms/control.h"

namespace taviro::forms {

/// Position of a form that the view places as it sees fit.
inline constexpr int32_t UNPLACED = INT32_MIN;

/// How a form stands on the screen while it is visible.
enum class FormState : int32_t { Normal = 0, Minimised = 1 };

/// A form: its own properties live on a control of its own so that they report like any other.
class Form {
  public:
    explicit Form(std::wstring strFormName);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

  private:
    class Frame;
    std::vector<Control*> m_Controls;
    std::unique_ptr<Control> m_pFrame;  // stands before the properties that report through it

  public:
    Property<std::wstring> Caption;
    Property<int32_t> Left;    ///< of the whole window on the screen, or UNPLACED
    Property<int32_t> Top;     ///< as Left
    Property<int32_t> Width;   ///< between the side frames, so that a layout's last column is whole
    Property<int32_t> Height;  ///< of the whole window: caption, menu and both frames included
    Property<bool> Visible;
    Property<FormState> WindowState;

    int32_t nScaleWidth = 0;   ///< inner width in pixels
    int32_t nScaleHeight = 0;  ///< inner height in pixels

    std::function<void()> OnLoad;
    std::function<void()> OnQueryUnload;
    std::function<void()> OnUnload;
    std::function<void()> OnResize;
    std::function<void()> OnActivate;    ///< became the window that the user works in
    std::function<void()> OnDeactivate;  ///< is it no more, or is about to unload
    std::function<void()> OnLaidOut;     ///< the view has given the controls their positions

    /// The view: returns when the form is shown no more.
    std::function<void()> OnRunModal;
    /// The view: told of every change of the form (its own control) and of its controls.
    std::function<void(Control&, Aspect)> OnShowChange;

    bool IsLoaded() const { return m_bLoaded; }
    bool IsUnloading() const { return m_bUnloading; }
    /// Runs the load handler unless the form is loaded.
    void Load();
    /// Loads the form if needed and shows it; one that is shown already comes to the front.
    void Show();
    /// The same, and returns when the form is shown no more; meanwhile the user can use no other
    /// window of the program. Nothing happens when the form is already shown so.
    void ShowModal();
    bool IsModal() const { return m_bModal; }
    /// The view: the form became the window that the user works in, or is it no more.
    void Activate();
    void Deactivate();
    bool IsActive() const { return m_bActive; }
    /// Hides the form and runs its unload handlers; nothing happens when it is not loaded or is
    /// already unloading.
    void Unload();
    /// The inner size became nWidth x nHeight pixels; runs the resize handler when it changed.
    void SetScale(int32_t nWidth, int32_t nHeight);

    /// The form's controls in the order of their making, its own control (see IsFrame) first.
    const std::vector<Control*>& Controls() const { return m_Controls; }
    void Add(Control& Made) { m_Controls.push_back(&Made); }

    /// Whether the control that a change came from is the form itself.
    bool IsFrame(const Control& Changed) const { return &Changed == m_pFrame.get(); }
    void ShowChange(Control& Changed, Aspect nAspect) const;

  private:
    bool m_bLoaded = false;
    bool m_bUnloading = false;
    bool m_bModal = false;
    bool m_bActive = false;
};

}  // namespace taviro::forms
