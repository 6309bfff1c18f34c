// SPDX-License-Identifier: MIT
#include "platform/headless/desktop.h"

#include <algorithm>

#include "platform/failure.h"

namespace taviro::platform::headless {

DesktopState::DesktopState()
    : Metrics{{Metric::CaptionHeight, 19}, {Metric::BorderWidth, 1}, {Metric::BorderHeight, 1},
              {Metric::MenuHeight, 20},    {Metric::FrameWidth, 4},  {Metric::FrameHeight, 4},
              {Metric::MouseButtons, 3}},
      SpecialFolders{{26, L"C:\\Users\\Jana\\AppData\\Roaming"}} {
    Files.CreateFolders(SpecialFolders[26]);
    Files.CreateFolders(strProgramFolder);
}

void DesktopState::Record(std::string strText) {
    if (bRecording) Transcript.push_back({nNow, std::move(strText)});
}

std::vector<std::string> DesktopState::TakeEffects() {
    std::vector<std::string> Texts;
    for (Effect& Done : Transcript)
        Texts.push_back(std::move(Done.strText));
    Transcript.clear();
    return Texts;
}

bool DesktopState::Refuses(const char* szCall, std::wstring_view strSubject, size_t* pDone) {
    if (!Failures.Fails(szCall, strSubject, pDone)) return false;
    ReportFailure(szCall, CODE_FAILED);
    return true;
}

void DesktopState::Insert(std::deque<Event>& Events, uint32_t nTime, std::function<void()> Run) {
    const auto it = std::upper_bound(Events.begin(), Events.end(), nTime,
                                     [](uint32_t n, const auto& e) { return n < e.nTime; });
    Events.insert(it, {nTime, std::move(Run)});
}

void DesktopState::At(uint32_t nTime, std::function<void()> Run) {
    Insert(m_Events, nTime, std::move(Run));
}

void DesktopState::Meanwhile(uint32_t nTime, std::function<void()> Run) {
    Insert(m_World, nTime, std::move(Run));
}

bool DesktopState::RunNext(std::deque<Event>& Events, uint32_t nUntil) {
    if (Events.empty() || Events.front().nTime > nUntil) return false;
    const Event Next = std::move(Events.front());
    Events.pop_front();
    nNow = std::max(nNow, Next.nTime);
    Next.Run();
    return true;
}

void DesktopState::Pass(uint32_t nMilliseconds) {
    const Within Busy(nBusy);
    const uint32_t nUntil = nNow + nMilliseconds;
    while (RunNext(m_World, nUntil)) {
    }
    if (static_cast<int32_t>(nUntil - nNow) > 0) nNow = nUntil;  // the count of ticks wraps
}

void DesktopState::WatchTimer(forms::Timer& Watched) {
    std::erase_if(m_Timers, [&](const Due& Entry) { return Entry.pTimer == &Watched; });
    if (!Watched.IsTicking() || Refuses("SetTimer", Watched.strName)) return;
    m_Timers.push_back({nNow + static_cast<uint32_t>(Watched.Interval.Get()), &Watched});
}

void DesktopState::ForgetTimers() {
    m_Timers.clear();
}

// Runs the earliest event or timer that is due by nUntil. Messages other than timers come first, as
// in a real message queue. Returns false when nothing was due.
bool DesktopState::RunNextDue(uint32_t nUntil) {
    const auto itTimer =
        std::min_element(m_Timers.begin(), m_Timers.end(), [](const Due& a, const Due& b) {
            // A timer whose handler is running cannot be next: it is not entered again.
            if (a.pTimer->IsRunning() != b.pTimer->IsRunning()) return b.pTimer->IsRunning();
            return a.nTime < b.nTime;
        });
    const bool bTimer = nPauses == 0 && itTimer != m_Timers.end() &&
                        !itTimer->pTimer->IsRunning() && itTimer->nTime <= nUntil;
    const uint32_t nOursUntil = bTimer ? itTimer->nTime : nUntil;
    const uint32_t nEvent = m_Events.empty() ? nOursUntil : m_Events.front().nTime;
    if (RunNext(m_World, std::min(nOursUntil, nEvent)) || RunNext(m_Events, nOursUntil))
        return true;
    if (!bTimer) return false;
    forms::Timer& Timer = *itTimer->pTimer;
    nNow = std::max(nNow, itTimer->nTime);
    {
        const Within Busy(nBusy);
        Timer.Tick();
    }
    WatchTimer(Timer);  // due again its interval after the handler ended
    return true;
}

void DesktopState::RunDue() {
    const uint32_t nUntil = nNow;
    // What a handler posts while it takes its time waits at the end of the queue.
    while (RunNextDue(nUntil) || RunNext(m_Events, nNow)) {
    }
}

void DesktopState::RunFor(uint32_t nMilliseconds) {
    const uint32_t nUntil = nNow + nMilliseconds;
    while (RunNextDue(nUntil)) {
    }
    nNow = std::max(nNow, nUntil);
}

}  // namespace taviro::platform::headless
