// SPDX-License-Identifier: MIT
// How long the server runs, and what it has to do beside the calls. Objects and locks of clients
// are counted by the threads that bring their calls; the main thread waits for events.
#pragma once

#include <windows.h>

#include <atomic>

#include "win32/com/handles.h"

namespace taviro::predictor {

class Lifetime {
  public:
    Lifetime()
        : m_hIdle(CreateEventW(nullptr, FALSE, FALSE, nullptr)),
          m_hSave(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    [[nodiscard]] bool IsReady() const { return m_hIdle != nullptr && m_hSave != nullptr; }

    void Hold() { ++m_nHolds; }
    void LetGo() {
        // Without the event, which is there, the server would only stay too long.
        if (--m_nHolds == 0) static_cast<void>(SetEvent(m_hIdle.get()));
    }
    [[nodiscard]] bool IsHeld() const { return m_nHolds > 0; }
    void RequestSave() const { static_cast<void>(SetEvent(m_hSave.get())); }

    /// Set when the last client lets go.
    [[nodiscard]] HANDLE Idle() const { return m_hIdle.get(); }
    /// Set when there is something to save.
    [[nodiscard]] HANDLE SaveWanted() const { return m_hSave.get(); }

  private:
    std::atomic<long> m_nHolds = 0;
    com::UniqueHandle m_hIdle;
    com::UniqueHandle m_hSave;
};

}  // namespace taviro::predictor
