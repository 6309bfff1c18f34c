// SPDX-License-Identifier: MIT
// The multimedia joystick calls, with their records in the layout of the system's own. A slow
// device holds up nobody: a caller waits at most a moment, and a device that fails again and again
// is asked with pauses (platform/device_questions.h).
#pragma once

#include <cstdint>

namespace taviro::platform {

/// Device capabilities (the system's JOYCAPSA).
struct JoyCapsRecord {
    uint16_t wMid;
    uint16_t wPid;
    char szPname[32];
    uint32_t wXmin, wXmax, wYmin, wYmax, wZmin, wZmax;
    uint32_t wNumButtons, wPeriodMin, wPeriodMax;
    uint32_t wRmin, wRmax, wUmin, wUmax, wVmin, wVmax;
    uint32_t wCaps, wMaxAxes, wNumAxes, wMaxButtons;
    char szRegKey[32];
    char szOEMVxD[260];
};
static_assert(sizeof(JoyCapsRecord) == 404);

/// One sample of position, hat and buttons (the system's JOYINFOEX). Axes run from 0 to 65535 with
/// the centre near 32767; bit i of dwButtons is the device's button i + 1.
struct JoyInfoRecord {
    uint32_t dwSize;
    uint32_t dwFlags;
    uint32_t dwXpos, dwYpos, dwZpos, dwRpos, dwUpos, dwVpos;
    uint32_t dwButtons;
    uint32_t dwButtonNumber;
    uint32_t dwPOV;
    uint32_t dwReserved1, dwReserved2;
};
static_assert(sizeof(JoyInfoRecord) == 52);

inline constexpr uint32_t JOY_DEVICE_COUNT = 16;  ///< devices are numbered from 0
inline constexpr uint32_t JOY_RETURN_ALL = 255;   ///< flags: all axes, the hat and the buttons

// Error numbers beside the system's own.
inline constexpr uint32_t JOY_UNPLUGGED = 167;  ///< the system's JOYERR_UNPLUGGED
inline constexpr uint32_t JOY_BUSY = 170;       ///< an earlier question is still under way
inline constexpr uint32_t JOY_NO_ANSWER = 258;  ///< not in time

/// Fills the capabilities of device nJoyId. Returns 0 on success, else the system's error number;
/// also when the device's position could not be had, though an unplugged one still tells them.
[[nodiscard]] uint32_t JoyGetDevCaps(uint32_t nJoyId, JoyCapsRecord& Caps, uint32_t nSize);

/// Samples device nJoyId; the caller sets dwSize and dwFlags first. Returns 0 on success; on
/// failure the record keeps what it held.
[[nodiscard]] uint32_t JoyGetPosEx(uint32_t nJoyId, JoyInfoRecord& Info);

}  // namespace taviro::platform
