// SPDX-License-Identifier: MIT
#include "platform/metrics.h"

#include <windows.h>

#include "platform/win32/screen.h"

namespace taviro::platform {

int32_t SystemMetric(Metric nMetric) {
    const int32_t nValue = GetSystemMetrics(static_cast<int>(nMetric));
    // Newer systems tell only a part of the sizing frame here and its padding apart; who lays out
    // the window means the whole frame.
    if (nMetric == Metric::FrameWidth || nMetric == Metric::FrameHeight) {
        return nValue + GetSystemMetrics(SM_CXPADDEDBORDER);
    }
    return nValue;
}

int32_t ScreenDpiX() {
    return win32::ScreenCapability(LOGPIXELSX);
}

int32_t ScreenDpiY() {
    return win32::ScreenCapability(LOGPIXELSY);
}

}  // namespace taviro::platform
