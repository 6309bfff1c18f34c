// SPDX-License-Identifier: MIT
#include "platform/joystick.h"

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <mmsystem.h>

#include "platform/failure.h"

namespace taviro::platform {

static_assert(sizeof(JOYCAPSA) == sizeof(JoyCapsRecord));
static_assert(sizeof(JOYINFOEX) == sizeof(JoyInfoRecord));
static_assert(offsetof(JOYCAPSA, wXmin) == offsetof(JoyCapsRecord, wXmin));
static_assert(offsetof(JOYCAPSA, szOEMVxD) == offsetof(JoyCapsRecord, szOEMVxD));
static_assert(offsetof(JOYINFOEX, dwButtons) == offsetof(JoyInfoRecord, dwButtons));

namespace {

/// That there is no joystick is an answer, polled ten times a second.
bool IsAnswer(MMRESULT nResult) {
    return nResult == JOYERR_NOERROR || nResult == JOYERR_UNPLUGGED || nResult == JOYERR_PARMS ||
           nResult == MMSYSERR_NODRIVER || nResult == MMSYSERR_BADDEVICEID;
}

}  // namespace

uint32_t JoyGetDevCaps(uint32_t nJoyId, JoyCapsRecord& Caps, uint32_t nSize) {
    JOYCAPSA System{};
    static_assert(sizeof(System) == sizeof(Caps));
    std::memcpy(&System, &Caps, sizeof(System));
    const MMRESULT nResult = joyGetDevCapsA(nJoyId, &System, nSize);
    if (nResult == JOYERR_NOERROR) std::memcpy(&Caps, &System, sizeof(Caps));
    if (!IsAnswer(nResult)) ReportFailure("joyGetDevCaps", nResult);
    return nResult;
}

uint32_t JoyGetPosEx(uint32_t nJoyId, JoyInfoRecord& Info) {
    JOYINFOEX System{};
    std::memcpy(&System, &Info, sizeof(System));
    const MMRESULT nResult = joyGetPosEx(nJoyId, &System);
    if (nResult == JOYERR_NOERROR) std::memcpy(&Info, &System, sizeof(Info));
    if (!IsAnswer(nResult)) ReportFailure("joyGetPosEx", nResult);
    return nResult;
}

}  // namespace taviro::platform
