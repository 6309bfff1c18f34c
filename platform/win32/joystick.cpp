// SPDX-License-Identifier: MIT
#include "platform/joystick.h"

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <mmsystem.h>

namespace taviro::platform {

static_assert(sizeof(JOYCAPSA) == sizeof(JoyCapsRecord));
static_assert(sizeof(JOYINFOEX) == sizeof(JoyInfoRecord));
static_assert(offsetof(JOYCAPSA, wXmin) == offsetof(JoyCapsRecord, wXmin));
static_assert(offsetof(JOYCAPSA, szOEMVxD) == offsetof(JoyCapsRecord, szOEMVxD));
static_assert(offsetof(JOYINFOEX, dwButtons) == offsetof(JoyInfoRecord, dwButtons));

uint32_t JoyGetDevCaps(uint32_t nJoyId, JoyCapsRecord& Caps, uint32_t nSize) {
    JOYCAPSA System{};
    static_assert(sizeof(System) == sizeof(Caps));
    std::memcpy(&System, &Caps, sizeof(System));
    const MMRESULT nResult = joyGetDevCapsA(nJoyId, &System, nSize);
    if (nResult == JOYERR_NOERROR) std::memcpy(&Caps, &System, sizeof(Caps));
    return nResult;
}

uint32_t JoyGetPosEx(uint32_t nJoyId, JoyInfoRecord& Info) {
    JOYINFOEX System{};
    std::memcpy(&System, &Info, sizeof(System));
    const MMRESULT nResult = joyGetPosEx(nJoyId, &System);
    if (nResult == JOYERR_NOERROR) std::memcpy(&Info, &System, sizeof(Info));
    return nResult;
}

}  // namespace taviro::platform
