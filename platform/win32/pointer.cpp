// SPDX-License-Identifier: MIT
#include "platform/pointer.h"

#include <windows.h>

namespace taviro::platform {

bool GetPointer(ScreenPoint& Point) {
    POINT System{};
    if (GetCursorPos(&System) == FALSE) return false;
    Point = {.nX = System.x, .nY = System.y};
    return true;
}

bool SetPointer(ScreenPoint Point) {
    return SetCursorPos(Point.nX, Point.nY) != FALSE;
}

bool GetMouseAcceleration(std::array<int32_t, 3>& Triple) {
    std::array<int32_t, 3> System{};
    if (SystemParametersInfoA(SPI_GETMOUSE, 0, System.data(), 0) == FALSE) return false;
    Triple = System;
    return true;
}

bool SetMouseAcceleration(const std::array<int32_t, 3>& Triple) {
    std::array<int32_t, 3> System = Triple;  // the call takes no pointer to constants
    return SystemParametersInfoA(SPI_SETMOUSE, 0, System.data(), 0) != FALSE;
}

}  // namespace taviro::platform
