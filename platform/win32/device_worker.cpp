// SPDX-License-Identifier: MIT
#include "platform/win32/device_worker.h"

#include "platform/unneeded.h"
#include "platform/win32/failure.h"

namespace taviro::platform::win32 {

DWORD WINAPI DeviceWorker::Run(void* pWorker) {
    auto& Worker = *static_cast<DeviceWorker*>(pWorker);
    while (WaitForSingleObject(Worker.m_hAsked, INFINITE) == WAIT_OBJECT_0) {
        Worker.m_pAsk(*Worker.m_pQuestion);
        Unneeded(SetEvent(Worker.m_hAnswered));  // fails only for a handle that is none
    }
    return 0;
}

bool DeviceWorker::Start() {
    if (m_hThread != nullptr) return true;
    constexpr BOOL BY_HAND = TRUE, BY_ITSELF = FALSE;  // how the event is reset
    if (m_hAsked == nullptr) m_hAsked = CreateEventW(nullptr, BY_ITSELF, FALSE, nullptr);
    if (m_hAnswered == nullptr) m_hAnswered = CreateEventW(nullptr, BY_HAND, TRUE, nullptr);
    if (m_hAsked == nullptr || m_hAnswered == nullptr)
        return OrReport(FALSE, "CreateEvent(joystick)");
    m_hThread = CreateThread(nullptr, 0, Run, this, 0, nullptr);
    return OrReport(m_hThread, "CreateThread(joystick)") != nullptr;
}

void DeviceWorker::Begin(DeviceQuestion& Question) {
    if (!Start()) return m_pAsk(Question);
    m_pQuestion = &Question;
    Unneeded(ResetEvent(m_hAnswered));  // these fail only for a handle that is none
    Unneeded(SetEvent(m_hAsked));
}

bool DeviceWorker::Ended(uint32_t nMilliseconds) const {
    if (m_hThread == nullptr) return true;  // asked at once
    return WaitForSingleObject(m_hAnswered, nMilliseconds) == WAIT_OBJECT_0;
}

}  // namespace taviro::platform::win32
