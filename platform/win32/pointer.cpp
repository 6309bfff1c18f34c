// SPDX-License-Identifier: MIT
#include "platform/pointer.h"

#include <windows.h>

#include "platform/win32/failure.h"

namespace taviro::platform {

bool GetPointer(ScreenPoint& Point) {
    POINT System{};
    if (!win32::OrReport(GetCursorPos(&System), "GetCursorPos")) return false;
    Point = {.nX = System.x, .nY = System.y};
    return true;
}

bool SetPointer(ScreenPoint Point) {
    return win32::OrReport(SetCursorPos(Point.nX, Point.nY), "SetCursorPos");
}

bool GetMouseAcceleration(std::array<int32_t, 3>& Triple) {
    std::array<int32_t, 3> System{};
    if (!win32::OrReport(SystemParametersInfoA(SPI_GETMOUSE, 0, System.data(), 0),
                         "SystemParametersInfo(SPI_GETMOUSE)")) {
        return false;
    }
    Triple = System;
    return true;
}

bool SetMouseAcceleration(const std::array<int32_t, 3>& Triple) {
    std::array<int32_t, 3> System = Triple;  // the call takes no pointer to constants
    return win32::OrReport(SystemParametersInfoA(SPI_SETMOUSE, 0, System.data(), 0),
                           "SystemParametersInfo(SPI_SETMOUSE)");
}

}  // namespace taviro::platform
