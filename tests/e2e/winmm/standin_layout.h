// SPDX-License-Identifier: MIT
// The memory that a test and the stand-in winmm.dll share: a file that both map. The test (which
// may be a Linux program) makes the file, fills in the first block and appends samples to the
// queue; the stand-in takes samples, one a poll, and appends to the logs. All fields are
// little-endian and each counter has one writer, so neither side waits for the other. standin.py
// mirrors this layout.
#pragma once

#include <cstdint>

namespace taviro::standin {

inline constexpr uint32_t MAGIC = 0x49535654;  ///< "TVSI"
inline constexpr uint32_t VERSION = 2;
inline constexpr uint32_t QUEUE_LENGTH = 1024;
inline constexpr uint32_t READ_LOG_LENGTH = 4096;
inline constexpr uint32_t SOUND_LOG_LENGTH = 256;
inline constexpr uint32_t PATH_LENGTH = 260;

/// What the stick reports: raw axes 0 to 65535, bit i of nButtons is button i + 1.
struct Sample {
    uint32_t nX, nY, nButtons;
};

/// Why a position was asked for: the device was being opened (its capabilities were asked for just
/// before), or it was polled. Only a poll takes a sample from the queue.
enum class ReadKind : uint32_t { Poll = 0, Open = 1 };

struct ReadEntry {
    uint32_t nTick;  ///< milliseconds since the system started
    Sample Served;
    ReadKind nKind;
};

struct SoundEntry {
    uint32_t nTick;
    uint32_t nFlags;
    char16_t strPath[PATH_LENGTH];  ///< ended by a NUL
};

struct SharedRecord {
    uint32_t nMagic, nVersion, nSize;

    // Written by the test.
    uint32_t bPresent;     ///< 0: no device answers
    uint32_t nCapsResult;  ///< what the capabilities query returns while a device is present
    uint32_t nQueued;      ///< samples appended so far; the next goes to index nQueued modulo
                           ///< QUEUE_LENGTH, at most QUEUE_LENGTH ahead of nTaken

    // Written by the stand-in.
    uint32_t nTaken;       ///< samples taken so far; the last one taken stays in force
    uint32_t nReadCount;   ///< entries of ReadLog so far, stored modulo its length
    uint32_t nSoundCount;  ///< the same for SoundLog

    Sample Queue[QUEUE_LENGTH];
    ReadEntry ReadLog[READ_LOG_LENGTH];
    SoundEntry SoundLog[SOUND_LOG_LENGTH];
};
static_assert(sizeof(Sample) == 12 && sizeof(ReadEntry) == 20 && sizeof(SoundEntry) == 528);
static_assert(sizeof(SharedRecord) == 36 + 1024 * 12 + 4096 * 20 + 256 * 528);

}  // namespace taviro::standin
