// SPDX-License-Identifier: MIT
#include "platform/device_questions.h"

namespace taviro::platform {

bool DeviceQuestions::IsPaused(uint32_t nId, uint32_t nNow) const {
    const Device& Asked = m_Devices[nId];
    return Asked.nFailures >= JOY_FAILURES_TO_PAUSE && nNow - Asked.nFailedAt < JOY_PAUSE_MS;
}

uint32_t DeviceQuestions::Position(const DeviceLine& Line, uint32_t nId, JoyInfoRecord& Info,
                                   uint32_t nNow) {
    if (nId >= JOY_DEVICE_COUNT || IsPaused(nId, nNow)) return JOY_UNPLUGGED;
    return AskPosition(Line, nId, Info, nNow);
}

uint32_t DeviceQuestions::Capabilities(const DeviceLine& Line, uint32_t nId, JoyCapsRecord& Caps,
                                       uint32_t nSize, uint32_t nNow) {
    if (nId >= JOY_DEVICE_COUNT) return JOY_UNPLUGGED;
    if (m_Devices[nId].nFailures > 0) {
        JoyInfoRecord Probe{};
        Probe.dwSize = sizeof(Probe);
        Probe.dwFlags = JOY_RETURN_ALL;
        if (const uint32_t nResult = Position(Line, nId, Probe, nNow); nResult != 0) return nResult;
    }
    DeviceQuestion Question{.nId = nId, .nCapsSize = nSize, .Caps = Caps};
    const uint32_t nResult = Ask(Line, Question, nNow);
    if (nResult == 0) Caps = Question.Caps;
    return nResult;
}

uint32_t DeviceQuestions::AskPosition(const DeviceLine& Line, uint32_t nId, JoyInfoRecord& Info,
                                      uint32_t nNow) {
    DeviceQuestion Question{.nId = nId, .bPosition = true, .Info = Info};
    const uint32_t nResult = Ask(Line, Question, nNow);
    if (nResult == JOY_BUSY) return nResult;  // says nothing about this device
    Device& Asked = m_Devices[nId];
    Asked.nFailures = nResult == 0 ? 0 : Asked.nFailures + 1;
    Asked.nFailedAt = nNow;
    if (nResult == 0) Info = Question.Info;
    return nResult;
}

// An answer that comes too late counts for the next question, if that is the same and comes soon.
uint32_t DeviceQuestions::Ask(const DeviceLine& Line, DeviceQuestion& Question, uint32_t nNow) {
    const bool bSame = m_Asked.nId == Question.nId && m_Asked.bPosition == Question.bPosition;
    if (m_bUnderWay && !Line.Ended(bSame ? JOY_DEADLINE_MS : 0)) {
        return bSame ? JOY_NO_ANSWER : JOY_BUSY;
    }
    if (!m_bUnderWay || !bSame || nNow - m_nAskedAt >= JOY_PAUSE_MS) {
        m_Asked = Question;
        m_nAskedAt = nNow;
        m_bUnderWay = true;
        Line.Begin(m_Asked);
        bool& bAsked = m_Devices[Question.nId].bAsked[Question.bPosition ? 1 : 0];
        const uint32_t nDeadline = bAsked ? JOY_DEADLINE_MS : JOY_FIRST_DEADLINE_MS;
        bAsked = true;
        if (!Line.Ended(nDeadline)) return JOY_NO_ANSWER;
    }
    m_bUnderWay = false;
    Question = m_Asked;
    return Question.nResult;
}

}  // namespace taviro::platform
