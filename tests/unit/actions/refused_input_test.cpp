// SPDX-License-Identifier: MIT
// Keys and clicks while the desktop refuses single steps of them: no key of the user's may stay
// down, no click may fall where nobody asked for it, no mouse setting may be left changed.
#include "actions/key_synthesis.h"
#include "actions/mouse_synthesis.h"
#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

using Triple = std::array<int32_t, 3>;
using Keys = std::vector<int>;

constexpr int VK_A = 65;
constexpr int32_t SHIFT_A = 10065;  // action code: Shift held around the virtual key A

class RefusedInput : public ActionTest {
  protected:
    RefusedInput() {
        Desktop.Pointer = {100, 50};
        Desktop.MouseAcceleration = {6, 10, 2};
    }
    // The only calls of a press that the desktop refuses: nNumber counts them from 1.
    static void RefuseSend(size_t nNumber, size_t nTaken = 0) {
        Desktop.Failures.Add({.strCall = "SendInputRecords", .nFrom = nNumber, .nDone = nTaken});
    }
};

TEST_F(RefusedInput, Click_IsNotMade_WhenThePointersPlaceIsUnknown) {
    Desktop.Failures.Always("GetPointer");
    MouseClickAt(130, 20, false);
    EXPECT_TRUE(Desktop.Sent.empty());
    EXPECT_EQ(Desktop.MouseAcceleration, (Triple{6, 10, 2}));
}

TEST_F(RefusedInput, Click_LeavesTheMouseSettingsAlone_WhenTheyCannotBeRead) {
    Desktop.Failures.Always("GetMouseAcceleration");
    MouseClickAt(130, 20, false);
    EXPECT_EQ(Desktop.TakeEffects(), Effects{"SendInput: mouse (30, -30) flags 1, "
                                             "mouse (0, 0) flags 2, mouse (0, 0) flags 4"});
    EXPECT_EQ(Desktop.MouseAcceleration, (Triple{6, 10, 2}));
}

TEST_F(RefusedInput, Click_IsMade_WhenTheAccelerationCannotBeSwitchedOff) {
    Desktop.Failures.Next("SetMouseAcceleration");
    MouseClickAt(130, 20, false);
    EXPECT_EQ(Desktop.Sent.size(), 3U);
    EXPECT_EQ(Desktop.MouseAcceleration, (Triple{6, 10, 2}));
}

TEST_F(RefusedInput, Acceleration_IsRestored_WhenTheClickWasTakenInPart) {
    RefuseSend(1, 2);
    MouseClickAt(130, 20, false);
    EXPECT_EQ(Desktop.Sent.size(), 2U);
    EXPECT_EQ(Desktop.MouseAcceleration, (Triple{6, 10, 2}));
}

TEST_F(RefusedInput, Tap_TellsWhatWasTaken_WhenOnlyItsDownWas) {
    RefuseSend(1, 1);
    EXPECT_EQ(SendVirtualKey(VK_A), 1U);
    EXPECT_EQ(Desktop.KeysDown(), Keys{VK_A}) << "the user finds it held";
    EXPECT_EQ(SendVirtualKey(VK_A), 2U);
    EXPECT_EQ(Desktop.KeysDown(), Keys{}) << "and free with the next press";
}

TEST_F(RefusedInput, Shift_IsLifted_WhenItsReleaseByScanCodeWasRefused) {
    RefuseSend(3);  // after Shift down and the key's tap
    PressActionCode(SHIFT_A);
    EXPECT_EQ(Typed(), L"A");
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
}

TEST_F(RefusedInput, NextPress_IsWhole_WhenOneWasRefusedAltogether) {
    Desktop.Failures.Always("SendInputRecords");
    Desktop.Failures.Always("KeybdEvent");
    PressActionCode(SHIFT_A);
    PressActionCode(1097);  // typed as a character
    EXPECT_EQ(Typed(), L"");
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
    Desktop.Failures.Clear();
    PressActionCode(SHIFT_A);
    PressActionCode(1097);
    EXPECT_EQ(Typed(), L"Aa");
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
}

TEST_F(RefusedInput, Character_LeavesNoShiftBehind_WhenItsKeyWasRefused) {
    // A capital as a character: Shift down, key down, Shift up, key up.
    Desktop.Failures.Add({.strCall = "KeybdEvent", .nFrom = 2});
    PressActionCode(1065);
    EXPECT_EQ(Typed(), L"");
    EXPECT_EQ(Desktop.KeysDown(), Keys{});
}

}  // namespace
}  // namespace taviro
