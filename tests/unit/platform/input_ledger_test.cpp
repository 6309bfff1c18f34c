// SPDX-License-Identifier: MIT
// What counts as pressed and not released.
#include "platform/input_ledger.h"

#include <gtest/gtest.h>

#include "platform/key_flags.h"

namespace taviro::platform {
namespace {

using Records = std::vector<InputRecord>;

constexpr KeyRecord SHIFT_DOWN{.wVk = 16};
constexpr KeyRecord SHIFT_UP{.wVk = 16, .dwFlags = KEY_FLAG_UP};
constexpr KeyRecord CTRL_DOWN{.wScan = 29, .dwFlags = KEY_FLAG_SCANCODE};
constexpr KeyRecord CTRL_UP{.wScan = 29, .dwFlags = KEY_FLAG_SCANCODE | KEY_FLAG_UP};
constexpr KeyRecord LETTER_DOWN{.wScan = 29, .dwFlags = KEY_FLAG_UNICODE};
constexpr KeyRecord LETTER_UP{.wScan = 29, .dwFlags = KEY_FLAG_UNICODE | KEY_FLAG_UP};
constexpr MouseRecord LEFT_DOWN{.nMouseData = 3, .dwFlags = MOUSE_FLAG_LEFTDOWN};
constexpr MouseRecord LEFT_UP{.dwFlags = MOUSE_FLAG_LEFTUP};
constexpr MouseRecord RIGHT_DOWN{.dwFlags = MOUSE_FLAG_RIGHTDOWN};
constexpr MouseRecord RIGHT_UP{.dwFlags = MOUSE_FLAG_RIGHTUP};

Records OwedAfter(const Records& Sent, size_t nTaken) {
    InputLedger Ledger;
    Ledger.Note(Sent, nTaken);
    return Ledger.Releases();
}

TEST(InputLedger, NothingIsOwed_WhenAllWasReleased) {
    EXPECT_EQ(OwedAfter({}, 0), Records{});
    EXPECT_EQ(OwedAfter({SHIFT_DOWN, CTRL_DOWN, SHIFT_UP, CTRL_UP}, 4), Records{});
    EXPECT_EQ(OwedAfter({LEFT_DOWN, LEFT_UP, RIGHT_DOWN, RIGHT_UP}, 4), Records{});
    EXPECT_EQ(OwedAfter({SHIFT_UP, LEFT_UP}, 2), Records{}) << "lifted without a press";
    EXPECT_EQ(OwedAfter({MouseRecord{.nDx = 5, .dwFlags = MOUSE_FLAG_MOVE}}, 1), Records{});
}

TEST(InputLedger, Release_IsOwed_WhenTheSystemDidNotTakeIt) {
    EXPECT_EQ(OwedAfter({SHIFT_DOWN, SHIFT_UP}, 1), Records{SHIFT_UP});
    EXPECT_EQ(OwedAfter({CTRL_DOWN, CTRL_UP}, 1), Records{CTRL_UP});
    EXPECT_EQ(OwedAfter({LEFT_DOWN, LEFT_UP}, 1), Records{LEFT_UP});
    EXPECT_EQ(OwedAfter({RIGHT_DOWN, RIGHT_UP}, 1), Records{RIGHT_UP});
    EXPECT_EQ(OwedAfter({SHIFT_DOWN, SHIFT_UP}, 0), Records{}) << "it was not pressed either";
    EXPECT_EQ(OwedAfter({SHIFT_DOWN}, 7), Records{SHIFT_UP}) << "no more than there were";
}

TEST(InputLedger, LastPressed_IsReleasedFirst) {
    EXPECT_EQ(OwedAfter({SHIFT_DOWN, CTRL_DOWN, LETTER_DOWN, LEFT_DOWN}, 4),
              (Records{LEFT_UP, LETTER_UP, CTRL_UP, SHIFT_UP}));
}

TEST(InputLedger, EachKey_IsOwedOnce_AndLiftedByItsOwnRelease) {
    EXPECT_EQ(OwedAfter({SHIFT_DOWN, SHIFT_DOWN}, 2), Records{SHIFT_UP}) << "it repeats";
    EXPECT_EQ(OwedAfter({CTRL_DOWN, LETTER_UP}, 2), Records{CTRL_UP});
    EXPECT_EQ(OwedAfter({SHIFT_DOWN, CTRL_UP}, 2), Records{SHIFT_UP});
    EXPECT_EQ(OwedAfter({LEFT_DOWN, RIGHT_UP}, 2), Records{LEFT_UP});
    EXPECT_EQ(OwedAfter({SHIFT_DOWN, LEFT_UP}, 2), Records{SHIFT_UP});
    EXPECT_EQ(OwedAfter({KeyRecord{.wVk = 16, .wScan = 42},
                         KeyRecord{.wVk = 16, .wScan = 54, .dwFlags = KEY_FLAG_UP}},
                        2),
              Records{})
        << "the virtual key names it";
}

}  // namespace
}  // namespace taviro::platform
