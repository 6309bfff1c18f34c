// SPDX-License-Identifier: MIT
// A device that keeps the asker waiting, asked on a thread of its own.
#include "platform/win32/device_worker.h"

#include <gtest/gtest.h>

#include "platform/joystick.h"

namespace taviro::platform {
namespace {

/// Set, the stand-in of the system answers.
HANDLE hMayAnswer = nullptr;
DWORD nAskedOn = 0;

void AnswerWhenAllowed(DeviceQuestion& Question) {
    nAskedOn = GetCurrentThreadId();
    WaitForSingleObject(hMayAnswer, INFINITE);
    Question.nResult = 0;
    Question.Info.dwXpos = 100 + Question.nId;
}

TEST(DeviceWorker_KeepsNobodyWaiting, WhenADeviceDoesNotAnswer) {
    hMayAnswer = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    static win32::DeviceWorker Worker(AnswerWhenAllowed);  // its thread outlives the test
    const DeviceLine Line{.Begin = [](DeviceQuestion& Asked) { Worker.Begin(Asked); },
                          .Ended = [](uint32_t nWait) { return Worker.Ended(nWait); }};
    static DeviceQuestions Questions;
    JoyInfoRecord Info{};
    EXPECT_EQ(Questions.Position(Line, 0, Info, 0), JOY_NO_ANSWER);
    EXPECT_EQ(Questions.Position(Line, 1, Info, 0), JOY_BUSY);
    SetEvent(hMayAnswer);
    EXPECT_TRUE(Worker.Ended(INFINITE));
    EXPECT_EQ(Questions.Position(Line, 0, Info, 0), 0U) << "the late answer";
    EXPECT_EQ(Info.dwXpos, 100U);
    EXPECT_EQ(Questions.Position(Line, 1, Info, 0), 0U);
    EXPECT_EQ(Info.dwXpos, 101U);
    EXPECT_NE(nAskedOn, GetCurrentThreadId());
}

}  // namespace
}  // namespace taviro::platform
