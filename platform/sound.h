// SPDX-License-Identifier: MIT
// Wave sounds and the system beep.
#pragma once

#include <cstdint>
#include <string>

namespace taviro::platform {

inline constexpr uint32_t SND_FLAG_ASYNC = 1;    ///< return at once, play in the background
inline constexpr uint32_t SND_FLAG_NOSTOP = 16;  ///< fail while another sound still plays

/// Plays a wave file with the given flags (the system's sndPlaySound). An empty name plays nothing:
/// with SND_FLAG_NOSTOP it tells whether the last sound has ended by its own length, and sleeps a
/// moment when it has not. A file that is no sound is silent. Returns false on failure.
[[nodiscard]] bool SndPlaySound(const std::wstring& strFile, uint32_t nFlags);

/// The system's plain beep.
void SystemBeep();

}  // namespace taviro::platform
