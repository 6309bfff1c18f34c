// SPDX-License-Identifier: MIT
// Sizes that the system gives to windows, and the screen's resolution.
#pragma once

#include <cstdint>

namespace taviro::platform {

/// Numbers of system metrics (all in pixels but the mouse buttons).
enum class Metric : int32_t {
    CaptionHeight = 4,
    BorderWidth = 5,
    BorderHeight = 6,
    MenuHeight = 15,
    FrameWidth = 32,
    FrameHeight = 33,
    MouseButtons = 43,
};

/// The system's GetSystemMetrics in pixels of a layout (platform/scale.h); 0 when it has no value.
[[nodiscard]] int32_t SystemMetric(Metric nMetric);

/// Dots per logical inch that layouts count with: 96 on Windows, whatever the monitor's scale.
[[nodiscard]] int32_t ScreenDpiX();
[[nodiscard]] int32_t ScreenDpiY();

/// Twips (1/1440 inch) that one pixel measures; at least 1.
[[nodiscard]] int32_t TwipsPerPixelX();
[[nodiscard]] int32_t TwipsPerPixelY();

}  // namespace taviro::platform
