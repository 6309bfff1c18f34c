// SPDX-License-Identifier: MIT
#include "platform/metrics.h"

#include <windows.h>

#include "platform/win32/screen.h"

namespace taviro::platform {

int32_t SystemMetric(Metric nMetric) {
    const int32_t nValue = win32::LayoutMetric(static_cast<int>(nMetric));
    // Newer systems tell only a part of the sizing frame here and its padding apart; who lays out
    // the window means the whole frame.
    if (nMetric == Metric::FrameWidth || nMetric == Metric::FrameHeight) {
        return nValue + win32::LayoutMetric(SM_CXPADDEDBORDER);
    }
    return nValue;
}

int32_t ScreenDpiX() {
    return LAYOUT_DPI;
}

int32_t ScreenDpiY() {
    return LAYOUT_DPI;
}

}  // namespace taviro::platform
