// SPDX-License-Identifier: MIT
// The joystick reader: how a device is opened, and what a sample becomes.
#include "input/joystick_reader.h"

#include <bitset>
#include <cstdint>
#include <gtest/gtest.h>

#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

class JoystickReaderTest : public ProgramTest {
  protected:
    static uint32_t PressedMask() {
        std::bitset<JOY_BUTTON_COUNT> Pressed;
        for (size_t n = 0; n < Pressed.size(); ++n)
            Pressed[n] = Joystick.bJoyButton[n];
        return static_cast<uint32_t>(Pressed.to_ulong());
    }
};

TEST_F(JoystickReaderTest, JoyInit_StoresNumberAndAsksForWholeCapsRecord_WhenCalled) {
    Desktop.OtherJoysticks[3].bPresent = true;
    EXPECT_TRUE(JoyInit(3));
    EXPECT_EQ(Joystick.nJoyId, 3U);
    EXPECT_EQ(Desktop.OtherJoysticks[3].nLastCapsSize, 404U);
    EXPECT_EQ(Joystick.JoyCaps.wNumButtons, 16U);
}

TEST_F(JoystickReaderTest, JoyInit_FailsWithoutSampling_WhenNoDeviceAnswers) {
    Desktop.Joystick.bPresent = false;
    EXPECT_FALSE(JoyInit(2));
    EXPECT_EQ(Joystick.nJoyId, 2U);
    EXPECT_EQ(Desktop.Joystick.nReads, 0U);
    EXPECT_EQ(Joystick.nJoyCenterX, 0);
}

TEST_F(JoystickReaderTest, JoyInit_TakesOneSampleOfSize64AndAllFlags_WhenDeviceAnswers) {
    ASSERT_TRUE(JoyInit(0));
    EXPECT_EQ(Desktop.Joystick.nReads, 1U);
    EXPECT_EQ(Desktop.Joystick.LastQuery.dwSize, 64U);
    EXPECT_EQ(Desktop.Joystick.LastQuery.dwFlags, 255U);
}

TEST_F(JoystickReaderTest, JoyRead_SetsSizeAndFlagsAnew_WhenRecordWasChanged) {
    Joystick.JoyInfo.dwSize = 52;
    Joystick.JoyInfo.dwFlags = 0;
    JoyRead();
    EXPECT_EQ(Desktop.Joystick.nReads, 1U);
    EXPECT_EQ(Desktop.Joystick.LastQuery.dwSize, 64U);
    EXPECT_EQ(Desktop.Joystick.LastQuery.dwFlags, 255U);
}

TEST_F(JoystickReaderTest, JoyInit_StoresCentreOnly_WhenDeviceAnswers) {
    Desktop.Joystick.nX = 30000;
    Desktop.Joystick.nY = 31000;
    Desktop.Joystick.nButtons = 1;
    ASSERT_TRUE(JoyInit(0));
    EXPECT_EQ(Joystick.nJoyCenterX, 30000);
    EXPECT_EQ(Joystick.nJoyCenterY, 31000);
    EXPECT_EQ(Joystick.nJoyX, 0);
    EXPECT_EQ(Joystick.nJoyY, 0);
    EXPECT_EQ(PressedMask(), 0U);
}

TEST_F(JoystickReaderTest, JoyRead_LeavesCentreAlone_WhenStickMoves) {
    ASSERT_TRUE(JoyInit(0));
    Desktop.Joystick.nX = 65535;
    Desktop.Joystick.nY = 7;
    JoyRead();
    EXPECT_EQ(Joystick.nJoyX, 65535);
    EXPECT_EQ(Joystick.nJoyY, 7);
    EXPECT_EQ(Joystick.nJoyCenterX, 32767);
    EXPECT_EQ(Joystick.nJoyCenterY, 32767);
}

struct OpenCase {
    const char* szName;
    uint32_t nX;
    uint32_t nY;
    bool bOpens;
};

TEST_F(JoystickReaderTest, JoyInit_RejectsDevice_WhenBothAxesAreAtZero) {
    constexpr OpenCase CASES[] = {
        {"both at zero, as a dead device", 0, 0, false},
        {"only Y alive", 0, 1, true},
        {"only X alive", 1, 0, true},
        {"in the middle", 32767, 32767, true},
        {"negative as a signed number", 0xFFFFFFFF, 0, false},
    };
    for (const OpenCase& Case : CASES) {
        Desktop.Joystick.nX = Case.nX;
        Desktop.Joystick.nY = Case.nY;
        EXPECT_EQ(JoyInit(0), Case.bOpens) << Case.szName;
    }
}

struct ButtonCase {
    const char* szName;
    uint32_t nMask;
    uint32_t nPressed;
};

TEST_F(JoystickReaderTest, JoyRead_TakesMaskApart_WhenButtonsAreDown) {
    constexpr ButtonCase CASES[] = {
        {"all down", 0xFFFF, 0xFFFF},
        {"none", 0, 0},
        {"device's button 1", 1, 1},
        {"device's buttons 1 and 3", 0x0005, 0x0005},
        {"device's button 16", 0x8000, 0x8000},
        {"every second", 0xAAAA, 0xAAAA},
        // A seventeenth button makes every lower one fit.
        {"button 17 alone", 0x10000, 0xFFFF},
        {"buttons 17 and 1", 0x10001, 0xFFFF},
        {"button 32 alone", 0x80000000, 0xFFFF},
    };
    for (const ButtonCase& Case : CASES) {
        Desktop.Joystick.nButtons = Case.nMask;
        JoyRead();
        EXPECT_EQ(PressedMask(), Case.nPressed) << Case.szName;
    }
}

TEST_F(JoystickReaderTest, JoyRead_KeepsLastSample_WhenReadFails) {
    Desktop.Joystick.nX = 60000;
    Desktop.Joystick.nY = 5;
    Desktop.Joystick.nButtons = 0x0102;
    JoyRead();
    Desktop.Failures.Always("JoyGetPosEx");
    Desktop.Joystick.nX = 1;
    Desktop.Joystick.nY = 2;
    Desktop.Joystick.nButtons = 0;
    JoyRead();
    EXPECT_EQ(Joystick.nJoyX, 60000);
    EXPECT_EQ(Joystick.nJoyY, 5);
    EXPECT_EQ(PressedMask(), 0x0102U);
}

TEST_F(JoystickReaderTest, JoyInit_GoesByLastSample_WhenReadFails) {
    Desktop.Failures.Always("JoyGetPosEx");
    EXPECT_FALSE(JoyInit(0)) << "nothing was ever sampled";
    Desktop.Failures.Clear();
    ASSERT_TRUE(JoyInit(0));
    Desktop.Failures.Always("JoyGetPosEx");
    EXPECT_TRUE(JoyInit(0));
}

}  // namespace
}  // namespace taviro
