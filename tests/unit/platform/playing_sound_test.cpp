// SPDX-License-Identifier: MIT
// How long a sound plays, and that waiting for its end costs nothing.
#include "platform/playing_sound.h"

#include <gtest/gtest.h>
#include <string>

#include "tests/unit/program_fixture.h"

namespace taviro::platform {
namespace {

std::string Number(uint32_t nNumber) {
    std::string strBytes;
    for (int n = 0; n < 4; ++n, nNumber >>= 8U)
        strBytes += static_cast<char>(nNumber & 0xFFU);
    return strBytes;
}

std::string Chunk(const std::string& strName, const std::string& strContent) {
    return strName + Number(static_cast<uint32_t>(strContent.size())) + strContent +
           std::string(strContent.size() % 2, '\0');
}

std::string Format(uint32_t nBytesASecond) {
    return Chunk("fmt ", std::string("\1\0\1\0", 4) + Number(22050) + Number(nBytesASecond) +
                             std::string("\2\0\20\0", 4));
}

std::string Wave(const std::string& strChunks) {
    return "RIFF" + Number(static_cast<uint32_t>(strChunks.size() + 4)) + "WAVE" + strChunks;
}

const std::string SECOND = Chunk("data", std::string(44100, 'x'));

TEST(WaveLength, IsThatOfItsSamples) {
    const struct {
        const char* szName;
        std::string strBytes;
        uint32_t nLengthMs;
    } ROWS[] = {
        {"a second", Wave(Format(44100) + SECOND), 1000},
        {"twice as many bytes a second", Wave(Format(88200) + SECOND), 500},
        {"three bytes, a part of a millisecond", Wave(Format(44100) + Chunk("data", "abc")), 0},
        {"a chunk of odd size before it", Wave(Format(44100) + Chunk("LIST", "odd") + SECOND),
         1000},
        {"cut off in the middle", Wave(Format(44100) + SECOND).substr(0, 44 + 22050), 500},
        {"cut off in a header", Wave(Format(44100) + SECOND).substr(0, 41), 0},
        {"samples before their format", Wave(SECOND + Format(44100)), 0},
        {"no bytes a second", Wave(Format(0) + SECOND), 0},
        {"a format that is too short", Wave(Chunk("fmt ", "\1") + SECOND), 0},
        {"a chunk that says it is endless", Wave("LIST" + Number(0xFFFFFFFF) + "abc"), 0},
        {"no samples", Wave(Format(44100)), 0},
        {"no wave", "RIFF" + Number(4) + "AVI " + Format(44100) + SECOND, 0},
        {"no file of chunks", "MThd" + Number(4) + "WAVE" + Format(44100) + SECOND, 0},
        {"only its beginning", "RIFF", 0},
        {"nothing", "", 0},
    };
    for (const auto& Row : ROWS)
        EXPECT_EQ(WaveLengthMs(Row.strBytes), Row.nLengthMs) << Row.szName;
}

using PlayingSoundTest = ProgramTest;

TEST_F(PlayingSoundTest, End_IsSleptFor_ByItsOwnLength) {
    PlayingSound Playing;
    EXPECT_TRUE(Playing.HasEnded()) << "nothing plays yet";
    const uint32_t nStart = Desktop.nNow;
    Playing.Begin(645);
    int nAsked = 0;
    while (!Playing.HasEnded())
        ASSERT_LT(++nAsked, 66);
    EXPECT_EQ(nAsked, 65) << "sleeping between";
    EXPECT_EQ(Desktop.nNow, nStart + 645);
    Playing.Begin(0);
    EXPECT_TRUE(Playing.HasEnded());
}

}  // namespace
}  // namespace taviro::platform
