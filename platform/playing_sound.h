// SPDX-License-Identifier: MIT
// The end of a sound, by its own length. The system is not asked: without a working sound device it
// may say for ever that a sound still plays.
#pragma once

#include <cstdint>
#include <string_view>

namespace taviro::platform {

/// How long the wave file with these bytes plays, in milliseconds; 0 when they are none. What is
/// missing at its end does not play.
[[nodiscard]] uint32_t WaveLengthMs(std::string_view strBytes);

/// The sound that was started last.
class PlayingSound {
  public:
    void Begin(uint32_t nLengthMs);
    /// Whether it has ended. Sleeps a moment when it has not, so that it can be asked in a loop.
    [[nodiscard]] bool HasEnded() const;

  private:
    uint32_t m_nBegan = 0;  // tick count
    uint32_t m_nLengthMs = 0;
};

}  // namespace taviro::platform
