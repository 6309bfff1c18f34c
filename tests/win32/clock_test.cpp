// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include <gtest/gtest.h>

namespace taviro::platform {
namespace {

TEST(Clock, Sleep_LastsAtLeastItsTime_AsTheTickCountTells) {
    for (int n = 0; n < 10; ++n) {
        const uint32_t nStart = TickCount();
        SleepMs(100);
        EXPECT_GE(TickCount() - nStart, 100U);
    }
}

}  // namespace
}  // namespace taviro::platform
