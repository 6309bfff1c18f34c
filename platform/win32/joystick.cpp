// SPDX-License-Identifier: MIT
#include "platform/joystick.h"

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <mmsystem.h>

#include "platform/clock.h"
#include "platform/device_questions.h"
#include "platform/failure.h"
#include "platform/win32/device_worker.h"

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
           nResult == MMSYSERR_NODRIVER || nResult == MMSYSERR_BADDEVICEID || nResult == JOY_BUSY ||
           nResult == JOY_NO_ANSWER;
}

/// On the worker's thread.
void AskSystem(DeviceQuestion& Asked) {
    if (Asked.bPosition) {
        JOYINFOEX System{};
        std::memcpy(&System, &Asked.Info, sizeof(System));
        Asked.nResult = joyGetPosEx(Asked.nId, &System);
        if (Asked.nResult == JOYERR_NOERROR) std::memcpy(&Asked.Info, &System, sizeof(System));
        return;
    }
    JOYCAPSA System{};
    std::memcpy(&System, &Asked.Caps, sizeof(System));
    Asked.nResult = joyGetDevCapsA(Asked.nId, &System, Asked.nCapsSize);
    if (Asked.nResult == JOYERR_NOERROR) std::memcpy(&Asked.Caps, &System, sizeof(System));
}

win32::DeviceWorker Worker(AskSystem);
const DeviceLine LINE{.Begin = [](DeviceQuestion& Asked) { Worker.Begin(Asked); },
                      .Ended = [](uint32_t nMilliseconds) { return Worker.Ended(nMilliseconds); }};
DeviceQuestions Questions;

}  // namespace

uint32_t JoyGetDevCaps(uint32_t nJoyId, JoyCapsRecord& Caps, uint32_t nSize) {
    const uint32_t nResult = Questions.Capabilities(LINE, nJoyId, Caps, nSize, TickCount());
    if (!IsAnswer(nResult)) ReportFailure("joyGetDevCaps", nResult);
    return nResult;
}

uint32_t JoyGetPosEx(uint32_t nJoyId, JoyInfoRecord& Info) {
    const uint32_t nResult = Questions.Position(LINE, nJoyId, Info, TickCount());
    if (!IsAnswer(nResult)) ReportFailure("joyGetPosEx", nResult);
    return nResult;
}

}  // namespace taviro::platform
