// SPDX-License-Identifier: MIT
// What is laid out once is shown on monitors of every scale.
#include "platform/scale.h"

#include <gtest/gtest.h>

namespace taviro::platform {
namespace {

TEST(ScaleTest, Lengths_GrowWithTheDots) {
    EXPECT_EQ(Scale{}.ToMonitor(60), 60);
    EXPECT_EQ(Scale{120}.ToMonitor(60), 75);
    EXPECT_EQ(Scale{144}.ToMonitor(61), 92) << "91.5";
    EXPECT_EQ(Scale{120}.ToMonitor(-1), -1) << "-1.25";
    EXPECT_EQ(Scale{192}.ToMonitor(1'000'000'000), 2'000'000'000);
}

TEST(ScaleTest, Length_IsTheSameAgain_AfterItWasShown) {
    for (const int32_t nDpi : {96, 106, 120, 144, 168, 192, 288}) {
        for (int32_t nLength = -300; nLength <= 3000; ++nLength) {
            ASSERT_EQ(Scale{nDpi}.ToLayout(Scale{nDpi}.ToMonitor(nLength)), nLength) << nDpi;
        }
    }
}

TEST(ScaleTest, Place_IsBetweenTheEdgesThatAreShownAroundIt) {
    for (const int32_t nDpi : {96, 106, 120, 144, 168, 192, 288}) {
        const Scale Shown{nDpi};
        for (int32_t nPlace = -300; nPlace <= 3000; ++nPlace) {
            const int32_t nInLayout = Shown.PlaceInLayout(nPlace);
            ASSERT_LE(Shown.ToMonitor(nInLayout), nPlace) << nDpi;
            ASSERT_GT(Shown.ToMonitor(nInLayout + 1), nPlace) << nDpi;
        }
    }
}

}  // namespace
}  // namespace taviro::platform
