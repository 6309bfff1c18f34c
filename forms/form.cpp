// SPDX-License-Identifier: MIT
#include "forms/form.h"

namespace taviro::forms {

class Form::Frame : public Control {
  public:
    using Control::Control;
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::Form; }
};

Form::Form(std::wstring strFormName)
    : m_pFrame(std::make_unique<Frame>(*this, std::move(strFormName))),
      Caption(*m_pFrame, Aspect::Text),
      Left(*m_pFrame, Aspect::Geometry, UNPLACED),
      Top(*m_pFrame, Aspect::Geometry, UNPLACED),
      Width(*m_pFrame, Aspect::Geometry),
      Height(*m_pFrame, Aspect::Geometry),
      Visible(*m_pFrame, Aspect::Visibility, false),
      WindowState(*m_pFrame, Aspect::State, FormState::Normal) {}

void Form::Load() {
    if (m_bLoaded) return;
    m_bLoaded = true;
    if (OnLoad) OnLoad();
}

void Form::Show() {
    Load();
    if (!m_bLoaded) return;
    if (Visible) return ShowChange(*m_pFrame, Aspect::Visibility);
    Visible = true;
}

void Form::ShowModal() {
    if (m_bModal) return;
    m_bModal = true;
    Show();
    if (Visible && OnRunModal) OnRunModal();
    m_bModal = false;
}

void Form::Activate() {
    if (m_bActive) return;
    m_bActive = true;
    if (OnActivate) OnActivate();
}

void Form::Deactivate() {
    if (!m_bActive) return;
    m_bActive = false;
    if (OnDeactivate) OnDeactivate();
}

void Form::Unload() {
    if (!m_bLoaded || m_bUnloading) return;
    m_bUnloading = true;
    Deactivate();
    if (OnQueryUnload) OnQueryUnload();
    if (OnUnload) OnUnload();
    m_bLoaded = false;  // first: a form that hides unloaded is gone, and so is its window
    if (Visible) {
        Visible = false;
    } else {
        ShowChange(*m_pFrame, Aspect::Unloaded);  // its window is still there
    }
    m_bUnloading = false;
}

void Form::SetScale(int32_t nWidth, int32_t nHeight) {
    if (nWidth == nScaleWidth && nHeight == nScaleHeight) return;
    nScaleWidth = nWidth;
    nScaleHeight = nHeight;
    if (OnResize) OnResize();
}

void Form::ShowChange(Control& Changed, Aspect nAspect) const {
    if (OnShowChange) OnShowChange(Changed, nAspect);
}

}  // namespace taviro::forms
