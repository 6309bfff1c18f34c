// SPDX-License-Identifier: MIT
// Joystick, sound, pointer, clock and messages of the virtual desktop.
#include <algorithm>
#include <cstdio>
#include <utility>

#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/headless/desktop.h"
#include "platform/messages.h"
#include "platform/sound.h"
#include "platform/text.h"

namespace taviro::platform {

using headless::Desktop;

namespace {

constexpr uint32_t NO_DEVICE = 165;  // the system's number for a device that never was

// The clock's zero, so that texts are the same in every run: 1:59:51.
constexpr uint32_t START_SECOND_OF_DAY = 7191;

uint32_t SecondOfDay() {
    return (START_SECOND_OF_DAY + Desktop.nNow / 1000) % 86400;
}

headless::VirtualJoystick& DeviceOf(uint32_t nId) {
    return nId == 0 ? Desktop.Joystick : Desktop.OtherJoysticks[nId];
}

uint32_t AnswerCapabilities(headless::VirtualJoystick& Joystick, DeviceQuestion& Asked) {
    Joystick.nLastCapsSize = Asked.nCapsSize;
    if (!Joystick.bPresent && !Joystick.bKnown) return NO_DEVICE;
    if (Desktop.Refuses("JoyGetDevCaps")) return NO_DEVICE;
    Asked.Caps = JoyCapsRecord{};
    Asked.Caps.wXmax = Asked.Caps.wYmax = 65535;
    Asked.Caps.wNumButtons = 16;
    Joystick.strName.copy(Asked.Caps.szPname, sizeof(Asked.Caps.szPname) - 1);
    return 0;
}

uint32_t AnswerPosition(headless::VirtualJoystick& Joystick, DeviceQuestion& Asked) {
    if (!Joystick.bPresent) return Joystick.bKnown ? JOY_UNPLUGGED : NO_DEVICE;
    if (Desktop.Refuses("JoyGetPosEx")) return NO_DEVICE;
    Asked.Info.dwXpos = Joystick.nX;
    Asked.Info.dwYpos = Joystick.nY;
    Asked.Info.dwButtons = Joystick.nButtons;
    return 0;
}

void BeginQuestion(DeviceQuestion& Asked) {
    headless::VirtualJoystick& Joystick = DeviceOf(Asked.nId);
    Joystick.bKnown = Joystick.bKnown || Joystick.bPresent;
    Asked.nResult =
        Asked.bPosition ? AnswerPosition(Joystick, Asked) : AnswerCapabilities(Joystick, Asked);
    const bool bSlow = Asked.nResult == JOY_UNPLUGGED;
    Desktop.nQuestionEnds = Desktop.nNow + (bSlow ? Desktop.nUnpluggedTakes : 0);
}

bool QuestionEnded(uint32_t nMilliseconds) {
    if (Desktop.nQuestionEnds > Desktop.nNow) {
        Desktop.Pass(std::min(nMilliseconds, Desktop.nQuestionEnds - Desktop.nNow));
    }
    return Desktop.nQuestionEnds <= Desktop.nNow;
}

const DeviceLine LINE{.Begin = BeginQuestion, .Ended = QuestionEnded};

}  // namespace

uint32_t JoyGetDevCaps(uint32_t nJoyId, JoyCapsRecord& Caps, uint32_t nSize) {
    return Desktop.Questions.Capabilities(LINE, nJoyId, Caps, nSize, Desktop.nNow);
}

uint32_t JoyGetPosEx(uint32_t nJoyId, JoyInfoRecord& Info) {
    auto& Joystick = DeviceOf(nJoyId);
    ++Joystick.nReads;
    Joystick.nLastReadAt = Desktop.nNow;
    Joystick.LastQuery = Info;
    return Desktop.Questions.Position(LINE, nJoyId, Info, Desktop.nNow);
}

bool SndPlaySound(const std::wstring& strFile, uint32_t nFlags) {
    if (Desktop.Refuses(__func__, strFile)) return false;
    if ((nFlags & SND_FLAG_NOSTOP) != 0 && !Desktop.Playing.HasEnded()) return false;
    if (strFile.empty()) return true;
    const bool bPlays = !Desktop.bSoundFails && Desktop.Files.FileExists(strFile);
    Desktop.Playing.Begin(bPlays ? Desktop.nSoundLength : 0);
    if (!bPlays) return false;
    Desktop.Record("sound " + ToUtf8(strFile));
    if ((nFlags & SND_FLAG_ASYNC) == 0) Desktop.Pass(Desktop.nSoundLength);
    return true;
}

void SystemBeep() {
    ++Desktop.nBeeps;
    Desktop.Record("beep");
}

bool GetPointer(ScreenPoint& Point) {
    if (Desktop.Refuses(__func__)) return false;
    Point = Desktop.Pointer;
    return true;
}

bool SetPointer(ScreenPoint Point) {
    if (Desktop.Refuses(__func__)) return false;
    Desktop.Record("pointer (" + std::to_string(Point.nX) + ", " + std::to_string(Point.nY) + ")");
    Desktop.Pointer = Point;
    return true;
}

bool GetMouseAcceleration(std::array<int32_t, 3>& Triple) {
    if (Desktop.Refuses(__func__)) return false;
    Triple = Desktop.MouseAcceleration;
    return true;
}

bool SetMouseAcceleration(const std::array<int32_t, 3>& Triple) {
    if (Desktop.Refuses(__func__)) return false;
    Desktop.Record("mouse acceleration " + std::to_string(Triple[0]) + " " +
                   std::to_string(Triple[1]) + " " + std::to_string(Triple[2]));
    Desktop.MouseAcceleration = Triple;
    return true;
}

uint32_t TickCount() {
    return Desktop.nNow;
}

void SleepMs(uint32_t nMilliseconds) {
    Desktop.Pass(nMilliseconds);
}

std::wstring TimeOfDayText() {
    const uint32_t n = SecondOfDay();
    char szText[16];
    (void)std::snprintf(szText, sizeof szText, "%02u:%02u:%02u", n / 3600 % 24, n / 60 % 60,
                        n % 60);
    return FromUtf8(szText);
}

std::wstring DateTimeText() {
    if (Desktop.Refuses(__func__)) return TimeOfDayText();
    const uint32_t n = SecondOfDay();
    char szText[32];
    (void)std::snprintf(szText, sizeof szText, "16.11.2026 %u:%02u:%02u", n / 3600 % 24,
                        n / 60 % 60, n % 60);
    return FromUtf8(szText);
}

void WriteToDebugger(const std::wstring& strLine) {
    Desktop.DebuggerLines.push_back(strLine);
}

void RunPendingMessages() {
    const headless::Within Loop(Desktop.nInnerLoops);
    Desktop.RunDue();
}

void Post(std::function<void()> Work) {
    Desktop.At(Desktop.nNow, [Work = std::move(Work)] {
        if (Desktop.nPauses > 0) return Desktop.Postponed.push_back(Work);
        const headless::Within Busy(Desktop.nBusy);
        Work();
    });
}

OwnWorkPause::OwnWorkPause() {
    ++Desktop.nPauses;
}

OwnWorkPause::~OwnWorkPause() {
    if (--Desktop.nPauses > 0) return;
    for (auto& Work : std::exchange(Desktop.Postponed, {}))
        Post(std::move(Work));
}

bool IsOutermostLoop() {
    return Desktop.nInnerLoops == 0;
}

int RunMessageLoop() {
    while (!Desktop.bQuit)
        Desktop.RunFor(1000);
    return Desktop.nExitCode;
}

void QuitMessageLoop(int nExitCode) {
    Desktop.bQuit = true;
    Desktop.nExitCode = nExitCode;
}

}  // namespace taviro::platform
