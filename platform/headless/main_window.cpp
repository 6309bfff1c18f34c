// SPDX-License-Identifier: MIT
// The main window of the virtual desktop: keeps the inner size in step with the outer one, watches
// the timers and writes the caption's changes into the transcript.
#include "platform/main_window.h"

#include "platform/headless/desktop.h"
#include "platform/messages.h"
#include "platform/text.h"

namespace taviro::platform {

using forms::ControlKind;
using headless::Desktop;

namespace {

constexpr WindowHandle MAIN_WINDOW = 1;

void FitInside(forms::MainForm& Form) {
    const int32_t nAround = SystemMetric(Metric::MenuHeight) + SystemMetric(Metric::CaptionHeight) +
                            2 * SystemMetric(Metric::FrameHeight);
    Form.SetScale(Form.Width / TwipsPerPixelX(), Form.Height / TwipsPerPixelY() - nAround);
}

void ShowFrame(forms::MainForm& Form, forms::Aspect nAspect) {
    if (nAspect == forms::Aspect::Geometry) FitInside(Form);
    if (nAspect == forms::Aspect::Text) Desktop.Record("caption " + ToUtf8(Form.Caption.Get()));
    if (nAspect == forms::Aspect::State) {
        const bool bMinimised = Form.WindowState == forms::FormState::Minimised;
        Desktop.Record(bMinimised ? "main window minimised" : "main window restored");
    }
    if (nAspect == forms::Aspect::Visibility) {
        Desktop.Record(Form.Visible ? "main window shown" : "main window hidden");
    }
}

void Show(forms::MainForm& Form, forms::Control& Changed, forms::Aspect nAspect) {
    switch (Changed.Kind()) {
        case ControlKind::Timer:
            return Desktop.WatchTimer(static_cast<forms::Timer&>(Changed));
        case ControlKind::Form:
            return ShowFrame(Form, nAspect);
        case ControlKind::Label:
        case ControlKind::TextBox:
        case ControlKind::ListBox:
        case ControlKind::MenuEntry:
        case ControlKind::CheckBox:
        case ControlKind::OptionGroup:
        case ControlKind::ComboBox:
        case ControlKind::ScrollBar:
        case ControlKind::Button:
        case ControlKind::GroupFrame:
            return;  // a test reads the model
    }
}

}  // namespace

ScreenPoint headless::DesktopState::MainInnerCorner() const {
    constexpr int32_t PADDING = 4;
    const auto Size = [&](Metric nMetric) {
        const auto it = Metrics.find(nMetric);
        return it == Metrics.end() ? 0 : it->second;
    };
    return {.nX = MainRect.nLeft + Size(Metric::FrameWidth) + PADDING,
            .nY = MainRect.nTop + Size(Metric::FrameHeight) + PADDING +
                  Size(Metric::CaptionHeight) + Size(Metric::MenuHeight)};
}

void headless::DesktopState::WriteIntoBox(const std::wstring& strText) {
    {
        const Within Message(nNoCallsOut);
        // What the text does calls other programs, so it is done after the message.
        Post([strText] {
            if (Desktop.pMainForm != nullptr) Desktop.pMainForm->txtCmd.Receive(strText);
        });
    }
    if (nBusy == 0) RunDue();
}

bool OpenMainWindow(forms::MainForm& Form) {
    if (Desktop.Refuses(__func__)) return false;
    Desktop.pMainForm = &Form;
    Form.OnShowChange = [&Form](forms::Control& Changed, forms::Aspect nAspect) {
        Show(Form, Changed, nAspect);
    };
    return true;
}

void CloseMainWindow() {
    if (Desktop.pMainForm != nullptr) Desktop.pMainForm->OnShowChange = nullptr;
    Desktop.pMainForm = nullptr;
    Desktop.ForgetTimers();
}

WindowHandle MainWindowHandle() {
    return Desktop.pMainForm == nullptr ? 0 : MAIN_WINDOW;
}

}  // namespace taviro::platform
