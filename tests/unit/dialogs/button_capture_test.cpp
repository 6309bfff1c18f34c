// SPDX-License-Identifier: MIT
// The joystick in the settings of the program: a button that is pressed there opens the dialog that
// says what it does.
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "dialogs/app_setting_form.h"
#include "dialogs/button_config_form.h"
#include "forms/main_form.h"
#include "input/joystick_reader.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

const std::string MESSAGE =
    "information \"Přesuňte se na předchozí textové pole a stiskněte požadované tlačítko na "
    "pákovém ovladači.\" titled \"Taviro\"";

// The form is shown; the user closes the button's dialog at once, which is noted with its title.
class ButtonCaptureTest : public ProgramTest {
  protected:
    ButtonCaptureTest() {
        PutData(L"data.ini", L"[1,1]A,65\r\n");
        Start();
        frmAppSetting->Show();
        Desktop.WhileModal = [this](forms::Form& Form) {
            EXPECT_EQ(&Form, frmButtonConfig.get());
            Opened.push_back(frmButtonConfig->Caption);
            if (bRelease) ReleaseButtons();
            Form.Unload();
        };
        Desktop.TakeEffects();
    }
    /// The dialog's title for a button, as the dialog itself makes it.
    static std::wstring TitleOf(int32_t nButton) {
        frmButtonConfig->SetButton(nButton);
        frmButtonConfig->Show();
        const std::wstring strTitle = frmButtonConfig->Caption;
        frmButtonConfig->Unload();
        return strTitle;
    }
    static void NextTick() { Desktop.RunFor(AppSettingForm::CAPTURE_INTERVAL_MS); }

    std::vector<std::wstring> Opened;
    bool bRelease = true;
};

TEST_F(ButtonCaptureTest, Dialog_OpensForEveryButton_WhenItIsPressed) {
    for (int32_t nButton = 0; nButton < JOY_BUTTON_COUNT; ++nButton) {
        Opened.clear();
        PressButton(nButton);
        NextTick();
        EXPECT_EQ(frmAppSetting->txtActionButton.Text.Get(), std::to_wstring(nButton));
        EXPECT_EQ(Opened, std::vector<std::wstring>{TitleOf(nButton)});
        EXPECT_TRUE(frmAppSetting->Visible);
    }
}

TEST_F(ButtonCaptureTest, Dialog_OpensForTheFirstButton_WhenSeveralArePressed) {
    PressButton(9);
    PressButton(4);
    NextTick();
    EXPECT_EQ(Opened, std::vector<std::wstring>{TitleOf(4)});
}

TEST_F(ButtonCaptureTest, Dialog_StaysAway_WhenNoButtonIsPressed) {
    TiltRight();
    Desktop.RunFor(2000);
    EXPECT_EQ(frmAppSetting->txtActionButton.Text.Get(), L"");
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(ButtonCaptureTest, Joystick_IsReadEvery200Milliseconds_WhileFormIsLoaded) {
    const uint32_t nBefore = Desktop.Joystick.nReads;
    Desktop.RunFor(1000);
    EXPECT_EQ(Desktop.Joystick.nReads - nBefore, 5U) << "and the poll loop reads nothing";
    PressButton(0);
    frmAppSetting->cmdCancel.Click();
    Desktop.RunFor(1000);
    EXPECT_TRUE(Opened.empty());
}

TEST_F(ButtonCaptureTest, Ticks_Wait_WhileTheButtonsDialogIsOpen) {
    const auto CloseAtOnce = Desktop.WhileModal;
    Desktop.WhileModal = [&](forms::Form& Form) {
        Desktop.RunFor(1000);
        CloseAtOnce(Form);
    };
    PressButton(3);
    NextTick();
    EXPECT_EQ(Opened.size(), 1U);
}

TEST_F(ButtonCaptureTest, Dialog_OpensAgain_WhenTheButtonIsStillHeld) {
    bRelease = false;
    PressButton(3);
    NextTick();
    NextTick();
    EXPECT_EQ(Opened.size(), 2U);
    ReleaseButtons();
    NextTick();
    EXPECT_EQ(Opened.size(), 2U);
}

TEST_F(ButtonCaptureTest, NoButtonStaysNone_WhenJoystickIsUnpluggedMeanwhile) {
    NextTick();
    Desktop.Failures.Always("JoyGetPosEx");
    PressButton(3);
    Desktop.RunFor(2000);
    EXPECT_TRUE(Opened.empty());
    Desktop.Failures.Clear();  // and plugged in again
    Desktop.RunFor(platform::JOY_PAUSE_MS);
    EXPECT_EQ(Opened.size(), 1U);
}

TEST_F(ButtonCaptureTest, DialogStaysAway_WhenJoystickIsUnpluggedWithAButtonHeld) {
    PressButton(3);
    bRelease = false;
    NextTick();
    EXPECT_EQ(Opened.size(), 1U);
    Desktop.Joystick.bPresent = false;
    Desktop.RunFor(1000);
    EXPECT_EQ(Opened.size(), 1U);
    Desktop.Joystick.bPresent = true;
    Desktop.RunFor(platform::JOY_PAUSE_MS);
    EXPECT_GE(Opened.size(), 2U);
}

TEST_F(ButtonCaptureTest, NumberAloneIsShown_WhenTheFieldIsHidden) {
    frmAppSetting->txtActionButton.Visible = false;
    PressButton(5);
    NextTick();
    EXPECT_EQ(frmAppSetting->txtActionButton.Text.Get(), L"5");
    EXPECT_TRUE(Opened.empty());
    frmAppSetting->txtActionButton.Visible = true;
}

TEST_F(ButtonCaptureTest, UserIsTold_WhenTheNumberCouldNotBeFilledIn) {
    frmAppSetting->txtActionButton.OnChange = [] { frmAppSetting->txtActionButton.Text = L""; };
    PressButton(5);
    NextTick();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{MESSAGE});
    EXPECT_TRUE(Opened.empty());
}

TEST_F(ButtonCaptureTest, Field_IsEmpty_WhenFormIsLoadedAgain) {
    PressButton(5);
    NextTick();
    frmAppSetting->cmdCancel.Click();
    frmAppSetting->Show();
    EXPECT_EQ(frmAppSetting->txtActionButton.Text.Get(), L"");
}

}  // namespace
}  // namespace taviro
