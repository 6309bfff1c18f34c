// SPDX-License-Identifier: MIT
// The user's hand on the virtual desktop: what the program would see, and how long it takes.
#include <gtest/gtest.h>

#include "platform/headless/desktop.h"
#include "platform/headless/user.h"

namespace taviro::platform::headless {
namespace {

constexpr uint32_t CENTRE = 32767;

class VirtualUser : public ::testing::Test {
  protected:
    VirtualUser() { Desktop = DesktopState{}; }
    /// Looks at stick and buttons in the middle of each of the next ticks.
    void LookAtTicks(uint32_t nTicks) {
        for (uint32_t n = 0; n < nTicks; ++n)
            Desktop.At(Desktop.nNow + n * 100 + 50, [this] { Seen.push_back(Desktop.Joystick); });
    }
    std::vector<VirtualJoystick> Seen;
};

TEST_F(VirtualUser, Stick_StaysWhereItIsPushed_UntilItIsCentred) {
    TiltStick(1, -1);
    EXPECT_GT(Desktop.Joystick.nX, CENTRE);
    EXPECT_LT(Desktop.Joystick.nY, CENTRE);
    CentreStick();
    EXPECT_EQ(Desktop.Joystick.nX, CENTRE);
    EXPECT_EQ(Desktop.Joystick.nY, CENTRE);
}

TEST_F(VirtualUser, Stick_IsNoDeadDevice_WhenPushedIntoTheCorner) {
    TiltStick(-1, -1);
    EXPECT_GT(Desktop.Joystick.nX, 0U);
    EXPECT_GT(Desktop.Joystick.nY, 0U);
}

TEST_F(VirtualUser, Buttons_AreHeldTogether_UntilEachIsReleased) {
    PressButton(0);
    PressButton(3);
    EXPECT_EQ(Desktop.Joystick.nButtons, 0b1001U);
    ReleaseButton(0);
    EXPECT_EQ(Desktop.Joystick.nButtons, 0b1000U);
    ReleaseButtons();
    EXPECT_EQ(Desktop.Joystick.nButtons, 0U);
}

TEST_F(VirtualUser, Nudge_IsSeenForOneTick_AndLetGoForOne) {
    const uint32_t nStart = Desktop.nNow;
    LookAtTicks(2);
    NudgeStick(0, 1);
    EXPECT_EQ(Desktop.nNow - nStart, 200U);
    ASSERT_EQ(Seen.size(), 2U);
    EXPECT_GT(Seen[0].nY, CENTRE);
    EXPECT_EQ(Seen[1].nY, CENTRE);
}

TEST_F(VirtualUser, Push_LeavesOtherButtonsHeld_AndLastsAsLongAsAsked) {
    const uint32_t nStart = Desktop.nNow;
    PressButton(1);
    LookAtTicks(4);
    PushButton(0, 300);
    EXPECT_EQ(Desktop.nNow - nStart, 400U);
    ASSERT_EQ(Seen.size(), 4U);
    EXPECT_EQ(Seen[2].nButtons, 0b11U);
    EXPECT_EQ(Seen[3].nButtons, 0b10U);
}

}  // namespace
}  // namespace taviro::platform::headless
