// SPDX-License-Identifier: MIT
#include "platform/metrics.h"

#include <algorithm>

namespace taviro::platform {

namespace {
constexpr int32_t TWIPS_PER_INCH = 1440;
}

int32_t TwipsPerPixelX() {
    return std::max(1, TWIPS_PER_INCH / std::max(1, ScreenDpiX()));
}

int32_t TwipsPerPixelY() {
    return std::max(1, TWIPS_PER_INCH / std::max(1, ScreenDpiY()));
}

}  // namespace taviro::platform
