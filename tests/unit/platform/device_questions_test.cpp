// SPDX-License-Identifier: MIT
// Questions to joystick devices: how long a caller waits, what a late answer is good for, and how
// often a device that does not answer is asked.
#include "platform/device_questions.h"

#include <gtest/gtest.h>
#include <vector>

#include "platform/clock.h"
#include "platform/headless/desktop.h"

namespace taviro::platform {
namespace {

using headless::Desktop;

class DeviceQuestionsTest : public ::testing::Test {
  protected:
    DeviceQuestionsTest() { Desktop = headless::DesktopState{}; }
    ~DeviceQuestionsTest() override { Desktop = headless::DesktopState{}; }

    static uint32_t Position(uint32_t nId = 0) {
        JoyInfoRecord Info{};
        return JoyGetPosEx(nId, Info);
    }
    static uint32_t Capabilities(uint32_t nId = 0) {
        JoyCapsRecord Caps{};
        return JoyGetDevCaps(nId, Caps, sizeof Caps);
    }
    /// The device was there, has answered, and has been pulled out.
    static void PullOut(uint32_t nId) {
        headless::VirtualJoystick& Device =
            nId == 0 ? Desktop.Joystick : Desktop.OtherJoysticks[nId];
        Device.bPresent = true;
        Capabilities(nId);
        Position(nId);
        Device.bPresent = false;
        Device.bKnown = true;
        Device.nReads = 0;
    }
    /// How long the question keeps its caller.
    static uint32_t Wait(uint32_t (*pAsk)(uint32_t)) {
        const uint32_t nStart = Desktop.nNow;
        pAsk(0);
        return Desktop.nNow - nStart;
    }
};

// A program that starts while the system still looks for the joystick would go without it.
TEST_F(DeviceQuestionsTest, FirstQuestionOfAKind_GetsMoreTime) {
    std::vector<uint32_t> Waits;
    const DeviceLine Line{.Begin = [](DeviceQuestion& Asked) { Asked.nResult = 0; },
                          .Ended =
                              [&](uint32_t nMilliseconds) {
                                  Waits.push_back(nMilliseconds);
                                  return true;
                              }};
    DeviceQuestions Questions;
    JoyCapsRecord Caps{};
    JoyInfoRecord Info{};
    for (int n = 0; n < 2; ++n) {
        EXPECT_EQ(Questions.Capabilities(Line, 0, Caps, sizeof Caps, 0), 0U);
        EXPECT_EQ(Questions.Position(Line, 0, Info, 0), 0U);
    }
    EXPECT_EQ(Waits, (std::vector<uint32_t>{JOY_FIRST_DEADLINE_MS, JOY_FIRST_DEADLINE_MS,
                                            JOY_DEADLINE_MS, JOY_DEADLINE_MS}));
}

TEST_F(DeviceQuestionsTest, Caller_WaitsAMomentOnly_WhenAnUnpluggedDeviceTakesItsTime) {
    PullOut(0);
    EXPECT_EQ(Wait(Position), JOY_DEADLINE_MS);
    SleepMs(JOY_PAUSE_MS);
    EXPECT_LE(Wait(Capabilities), JOY_DEADLINE_MS);
}

TEST_F(DeviceQuestionsTest, Capabilities_FailAlone_WhenThePositionFailed) {
    PullOut(0);
    EXPECT_EQ(Capabilities(), 0U) << "Windows tells them though the device is gone";
    EXPECT_EQ(Position(), JOY_NO_ANSWER);
    EXPECT_NE(Capabilities(), 0U) << "it is known to be gone now";
    Desktop.Joystick.bPresent = true;
    SleepMs(JOY_PAUSE_MS);
    EXPECT_EQ(Capabilities(), 0U) << "its position answers again";
    EXPECT_EQ(Position(), 0U);
}

TEST_F(DeviceQuestionsTest, LateAnswer_CountsForTheNextQuestion_WhenItIsTheSame) {
    Desktop.nUnpluggedTakes = 150;
    PullOut(0);
    EXPECT_EQ(Position(), JOY_NO_ANSWER);
    EXPECT_EQ(Wait(Position), 70U) << "the rest of the first question";
    EXPECT_EQ(Desktop.Joystick.nReads, 2U);
    PullOut(1);
    Desktop.nUnpluggedTakes = 300;
    EXPECT_EQ(Position(1), JOY_NO_ANSWER);
    SleepMs(300);
    EXPECT_EQ(Position(1), JOY_UNPLUGGED) << "the answer had come meanwhile";
}

TEST_F(DeviceQuestionsTest, OtherDevices_AreNotAskedAndNotBlamed_WhileAQuestionIsUnderWay) {
    Desktop.OtherJoysticks[1].bPresent = true;
    PullOut(0);
    EXPECT_EQ(Position(0), JOY_NO_ANSWER);
    for (uint32_t n = 0; n < 2 * JOY_FAILURES_TO_PAUSE; ++n)
        EXPECT_EQ(Position(1), JOY_BUSY);
    EXPECT_EQ(Capabilities(1), JOY_BUSY);
    SleepMs(300);
    EXPECT_EQ(Position(1), 0U) << "no pause";
}

TEST_F(DeviceQuestionsTest, FailingDevice_IsAskedEverySecond_AfterThreeFailuresInARow) {
    Desktop.nUnpluggedTakes = 0;
    PullOut(0);
    for (uint32_t n = 0; n < JOY_FAILURES_TO_PAUSE; ++n)
        EXPECT_EQ(Position(), JOY_UNPLUGGED);
    Desktop.nUnpluggedTakes = 300;
    SleepMs(JOY_PAUSE_MS - 1);
    EXPECT_EQ(Wait(Position), 0U) << "answered at once";
    EXPECT_EQ(Wait(Capabilities), 0U);
    SleepMs(1);
    EXPECT_EQ(Wait(Position), JOY_DEADLINE_MS) << "asked again";
    EXPECT_EQ(Wait(Position), 0U);
    Desktop.Joystick.bPresent = true;
    EXPECT_NE(Position(), 0U);
    SleepMs(JOY_PAUSE_MS);
    EXPECT_EQ(Position(), 0U) << "the late answer of a second ago says nothing any more";
    EXPECT_EQ(Position(), 0U) << "no pauses any more";
}

TEST_F(DeviceQuestionsTest, Success_EndsARowOfFailures) {
    Desktop.nUnpluggedTakes = 0;
    for (int n = 0; n < 5; ++n) {
        PullOut(0);
        EXPECT_NE(Position(), 0U);
        EXPECT_NE(Position(), 0U);
        Desktop.Joystick.bPresent = true;
        EXPECT_EQ(Position(), 0U) << n;
    }
}

TEST_F(DeviceQuestionsTest, Devices_HaveTheirOwnPositions_AndNumbersEndAtSixteen) {
    Desktop.OtherJoysticks[15] = {.bPresent = true, .strName = "Druhý", .nX = 7};
    JoyInfoRecord Info{};
    EXPECT_EQ(JoyGetPosEx(15, Info), 0U);
    EXPECT_EQ(Info.dwXpos, 7U);
    EXPECT_NE(Position(14), 0U);
    EXPECT_NE(Capabilities(14), 0U);
    EXPECT_EQ(Position(16), JOY_UNPLUGGED);
    EXPECT_EQ(Capabilities(16), JOY_UNPLUGGED);
}

}  // namespace
}  // namespace taviro::platform
