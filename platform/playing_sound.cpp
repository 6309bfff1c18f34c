// SPDX-License-Identifier: MIT
#include "platform/playing_sound.h"

#include <algorithm>
#include <cstddef>

#include "platform/clock.h"

namespace taviro::platform {

namespace {

constexpr size_t FILE_HEADER = 12;    // "RIFF", a size, "WAVE"
constexpr size_t CHUNK_HEADER = 8;    // a name of four letters, the size of what follows
constexpr size_t BYTES_A_SECOND = 8;  // where the format says it
constexpr size_t LEAST_FORMAT = 16;
constexpr uint32_t LOOK_AGAIN_MS = 10;

uint32_t NumberAt(std::string_view strBytes, size_t nOffset) {
    uint32_t nNumber = 0;
    for (size_t n = 4; n-- > 0;)
        nNumber = nNumber << 8U | static_cast<uint8_t>(strBytes[nOffset + n]);
    return nNumber;
}

// How much of a size there is.
size_t HeldOf(uint64_t nSize, std::string_view strRest) {
    return static_cast<size_t>(std::min<uint64_t>(nSize, strRest.size()));
}

}  // namespace

uint32_t WaveLengthMs(std::string_view strBytes) {
    if (!strBytes.starts_with("RIFF") || strBytes.size() < FILE_HEADER ||
        strBytes.substr(8, 4) != "WAVE") {
        return 0;
    }
    uint32_t nBytesASecond = 0;
    std::string_view strRest = strBytes.substr(FILE_HEADER);
    while (strRest.size() >= CHUNK_HEADER) {
        const std::string_view strName = strRest.substr(0, 4);
        const uint64_t nSize = NumberAt(strRest, 4);
        strRest.remove_prefix(CHUNK_HEADER);
        const size_t nHeld = HeldOf(nSize, strRest);
        if (strName == "fmt " && nHeld >= LEAST_FORMAT) {
            nBytesASecond = NumberAt(strRest, BYTES_A_SECOND);
        } else if (strName == "data") {
            if (nBytesASecond == 0) return 0;
            return static_cast<uint32_t>(uint64_t{nHeld} * 1000 / nBytesASecond);
        }
        // Each begins at an even place.
        strRest.remove_prefix(HeldOf(nSize + nSize % 2, strRest));
    }
    return 0;
}

void PlayingSound::Begin(uint32_t nLengthMs) {
    m_nBegan = TickCount();
    m_nLengthMs = nLengthMs;
}

bool PlayingSound::HasEnded() const {
    const uint32_t nPassed = TickCount() - m_nBegan;
    if (nPassed >= m_nLengthMs) return true;
    SleepMs(std::min(m_nLengthMs - nPassed, LOOK_AGAIN_MS));
    return false;
}

}  // namespace taviro::platform
