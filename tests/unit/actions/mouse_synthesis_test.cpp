// SPDX-License-Identifier: MIT
#include "actions/mouse_synthesis.h"

#include <limits>

#include "tests/unit/actions/action_fixture.h"

namespace taviro {
namespace {

using platform::InputRecord;
using platform::MouseRecord;

class MouseSynthesis : public ActionTest {
  protected:
    MouseSynthesis() {
        Desktop.Pointer = {100, 50};
        Desktop.Metrics[platform::Metric::MouseButtons] = 5;
    }
};

TEST_F(MouseSynthesis, Click_MovesByTheDistanceAndPressesLeft) {
    Desktop.MouseAcceleration = {6, 10, 0};
    MouseClickAt(130, 20, false);
    EXPECT_EQ(Desktop.Sent, (std::vector<InputRecord>{MouseRecord{30, -30, 5, 1, 0, 0},
                                                      MouseRecord{0, 0, 5, 2, 0, 0},
                                                      MouseRecord{0, 0, 5, 4, 0, 0}}));
    EXPECT_EQ(Desktop.Pointer, (platform::ScreenPoint{130, 20}));
    EXPECT_EQ(Desktop.TakeEffects(),
              Effects{"SendInput: mouse (30, -30) flags 1, mouse (0, 0) flags 2, "
                      "mouse (0, 0) flags 4"});
}

TEST_F(MouseSynthesis, RightClick_UsesTheRightFlags) {
    Desktop.MouseAcceleration = {6, 10, 0};
    MouseClickAt(100, 50, true);
    EXPECT_EQ(Desktop.Sent, (std::vector<InputRecord>{MouseRecord{0, 0, 5, 1, 0, 0},
                                                      MouseRecord{0, 0, 5, 8, 0, 0},
                                                      MouseRecord{0, 0, 5, 16, 0, 0}}));
}

TEST_F(MouseSynthesis, Acceleration_IsOffDuringTheClickAndRestored_WhenItWasOn) {
    Desktop.MouseAcceleration = {6, 10, 2};
    MouseClickAt(101, 50, false);
    EXPECT_EQ(Desktop.TakeEffects(),
              (Effects{"mouse acceleration 0 0 0",
                       "SendInput: mouse (1, 0) flags 1, mouse (0, 0) flags 2, "
                       "mouse (0, 0) flags 4",
                       "mouse acceleration 6 10 2"}));
}

TEST_F(MouseSynthesis, DistanceBeyond32Bits_ClicksNothing_RestoresTheAcceleration) {
    Desktop.Pointer = {-1, 0};
    MouseClickAt(std::numeric_limits<int32_t>::max(), 0, false);
    Desktop.Pointer = {0, 2};
    MouseClickAt(0, std::numeric_limits<int32_t>::min() + 1, false);
    EXPECT_TRUE(Desktop.Sent.empty());
    EXPECT_EQ(Desktop.MouseAcceleration, (std::array<int32_t, 3>{6, 10, 1}));
}

TEST_F(MouseSynthesis, LargestDistanceThatFits_IsSent) {
    Desktop.Pointer = {0, -1};
    MouseClickAt(std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::max() - 1,
                 false);
    ASSERT_EQ(Desktop.Sent.size(), 3U);
    EXPECT_EQ(std::get<MouseRecord>(Desktop.Sent[0]).nDx, std::numeric_limits<int32_t>::max());
    EXPECT_EQ(std::get<MouseRecord>(Desktop.Sent[0]).nDy, std::numeric_limits<int32_t>::max());
}

TEST_F(MouseSynthesis, LargestDistanceBackThatFits_IsSent) {
    Desktop.Pointer = {0, 1};
    MouseClickAt(std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::min() + 1,
                 false);
    ASSERT_EQ(Desktop.Sent.size(), 3U);
    EXPECT_EQ(std::get<MouseRecord>(Desktop.Sent[0]).nDx, std::numeric_limits<int32_t>::min());
    EXPECT_EQ(std::get<MouseRecord>(Desktop.Sent[0]).nDy, std::numeric_limits<int32_t>::min());
}

}  // namespace
}  // namespace taviro
