// SPDX-License-Identifier: MIT
// How joystick devices are asked, so that a slow one holds up nobody. A device that was unplugged
// lets every question for its position wait, and goes on telling its capabilities. So one question
// is under way at a time and the caller waits only a moment for its answer, a device whose position
// fails counts as absent altogether, and one that keeps failing is asked with pauses.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "platform/joystick.h"

namespace taviro::platform {

inline constexpr uint32_t JOY_DEADLINE_MS = 80;  ///< how long a caller waits for an answer
/// The same for the first question of a kind to a device: the system may have to look for it first,
/// and who starts without it stays without it.
inline constexpr uint32_t JOY_FIRST_DEADLINE_MS = 2000;
inline constexpr uint32_t JOY_PAUSE_MS = 1000;  ///< between questions to one that keeps failing
inline constexpr uint32_t JOY_FAILURES_TO_PAUSE = 3;  ///< in a row

/// A question and, when it has ended, its answer.
struct DeviceQuestion {
    uint32_t nId = 0;
    bool bPosition = false;  ///< else for the capabilities
    uint32_t nCapsSize = 0;  ///< as the caller gave it
    JoyInfoRecord Info{};    ///< the position's record, handed in and out
    JoyCapsRecord Caps{};
    uint32_t nResult = 0;
};

/// How the layer asks. There is one question at a time; its answer is written into the object that
/// it began with.
struct DeviceLine {
    std::function<void(DeviceQuestion&)> Begin;
    /// Waits at most so many milliseconds for the end of the question; tells whether it has ended.
    std::function<bool(uint32_t nMilliseconds)> Ended;
};

/// The questions of one program. Times are tick counts.
class DeviceQuestions {
  public:
    /// The contract's two calls (see platform/joystick.h).
    uint32_t Position(const DeviceLine& Line, uint32_t nId, JoyInfoRecord& Info, uint32_t nNow);
    uint32_t Capabilities(const DeviceLine& Line, uint32_t nId, JoyCapsRecord& Caps, uint32_t nSize,
                          uint32_t nNow);

  private:
    struct Device {
        uint32_t nFailures = 0;  ///< of its position, in a row
        uint32_t nFailedAt = 0;
        std::array<bool, 2> bAsked{};  ///< for its capabilities, for its position
    };
    bool IsPaused(uint32_t nId, uint32_t nNow) const;
    uint32_t AskPosition(const DeviceLine& Line, uint32_t nId, JoyInfoRecord& Info, uint32_t nNow);
    uint32_t Ask(const DeviceLine& Line, DeviceQuestion& Question, uint32_t nNow);

    std::array<Device, JOY_DEVICE_COUNT> m_Devices{};
    DeviceQuestion m_Asked;  // the question that is under way, or was
    uint32_t m_nAskedAt = 0;
    bool m_bUnderWay = false;
};

}  // namespace taviro::platform
