// SPDX-License-Identifier: MIT
// A thread that asks one question about a joystick device at a time, because the system may keep
// the asker waiting for long.
#pragma once

#include <windows.h>

#include "platform/device_questions.h"

namespace taviro::platform::win32 {

/// Its procedures are called from one thread. The thread of its own begins with the first question
/// and lives as long as the program; nothing of it outlives the process.
class DeviceWorker {
  public:
    /// pAsk asks the system, on the worker's thread, and writes the answer into the question.
    explicit DeviceWorker(void (*pAsk)(DeviceQuestion&)) : m_pAsk(pAsk) {}
    DeviceWorker(const DeviceWorker&) = delete;
    DeviceWorker& operator=(const DeviceWorker&) = delete;
    ~DeviceWorker() = default;

    /// Begins a question, when the one before has ended. The object must stay until it has ended.
    /// Where there can be no thread the question is asked here.
    void Begin(DeviceQuestion& Question);

    /// Waits at most so long for the end of the question; tells whether it has ended.
    bool Ended(uint32_t nMilliseconds) const;

  private:
    static DWORD WINAPI Run(void* pWorker);
    bool Start();

    void (*m_pAsk)(DeviceQuestion&);
    HANDLE m_hAsked = nullptr;     // event: there is a question
    HANDLE m_hAnswered = nullptr;  // event: the question has ended
    HANDLE m_hThread = nullptr;
    DeviceQuestion* m_pQuestion = nullptr;  // the worker's while it is under way
};

}  // namespace taviro::platform::win32
