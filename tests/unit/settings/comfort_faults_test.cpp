// SPDX-License-Identifier: MIT
// What is said of a comfort.ini that does not mean what its author thinks.
#include "settings/comfort_faults.h"

#include <gtest/gtest.h>

#include "tests/unit/settings/comfort_fixture.h"

namespace taviro {
namespace {

std::string Faults(const std::string& strBytes) {
    std::string strAll;
    for (const ComfortFault& objFault : FindComfortFaults(strBytes, SAMPLE_KEYS)) {
        strAll += std::to_string(objFault.nLine) + ": " + platform::ToUtf8(objFault.strText) + "\n";
    }
    return strAll;
}

TEST(ComfortFaults, GoodFile_HasNone) {
    constexpr const char* EVERY_KEY =
        "[scan]\nstepms=0\npattern=Rows\n[Stick]\nDevice=\nwatch=\"off\"\n[Sound]\nVolume=-100";
    for (const char* strGood : {"", "\r\n\r\n", "; note\r\n",
                                "\xEF\xBB\xBF; note\r\n[Stick]\r\nWatch=1\r\n", EVERY_KEY}) {
        EXPECT_EQ(Faults(strGood), "");
    }
}

struct ComfortFaultRow {
    std::string strFile;
    const char* strFaults;
};

TEST(ComfortFaults, Each_IsSaidWithItsLine) {
    const ComfortFaultRow Rows[] = {
        {"[Stick]\r\nWatch=2\r\n", "2: [Stick] Watch=2 is out of range, 1 counts (0 or 1)\n"},
        {"[Scan]\nStepMs=5\n",
         "2: [Scan] StepMs=5 is out of range, 300 counts (0 or 300 to 6000)\n"},
        {"[Scan]\n\n\nPattern=lines\n",
         "4: [Scan] Pattern=lines means nothing (cells, rows or groups)\n"},
        {"[Stick]\rWatch=1 ; on", "2: [Stick] Watch=1 ; on means nothing (0 or 1)\n"},
        {"[Stick]\nWatch=\n", "2: [Stick] Watch= means nothing (0 or 1)\n"},
        {"[Stick]\nWatch\n", "2: [Stick] Watch has no value\n"},
        {"[Stick]\nWach=1\n", "2: [Stick] Wach is no key\n"},
        {"[Scan]\nWatch=1\n", "2: [Scan] Watch is no key\n"},
        {"[Stick\nWatch=1\n",
         "1: [Stick stands before the first section\n2: Watch stands before the first section\n"},
        {"[Sticks]\nWatch=1\n", "1: there is no section [Sticks]\n"},
        {"[Stick]\n[Scan]\n[stick]\nWatch=1\n",
         "3: [Stick] stands there twice, the first counts\n"},
        {"[Stick]\nWatch=1\nWATCH=0\n", "3: [Stick] Watch stands there twice, the first counts\n"},
        {"[Stick]\nWatch=1\nWatch\n", "3: [Stick] Watch stands there twice, the first counts\n"},
        {"[Stick]\nDevice=" + std::string(1030, 'x'), ""},  // the reader cuts it
        {"[Stick]\na" + std::string(100, 'y') + "\x01=1",
         "2: [Stick] ayyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy… is no key\n"},
        {"[Stick]\nWatch=\x02x\n", "2: [Stick] Watch=?x means nothing (0 or 1)\n"},
        {std::string("[Stick]\nWatch=1\n\0\0", 18),
         "1: there are zero bytes: the file is damaged, or saved as Unicode\n"
         "3: [Stick] ?? is no key\n"},
    };
    for (const ComfortFaultRow& Row : Rows)
        EXPECT_EQ(Faults(Row.strFile), Row.strFaults) << Row.strFile;
}

TEST(ComfortFaults, FileOfSomethingElse_SaysTwentyAndEndsSoon) {
    std::string strLines;
    for (int i = 0; i < 1000; ++i)
        strLines += "[1,1]a,65\r\n";
    EXPECT_EQ(FindComfortFaults(strLines, SAMPLE_KEYS).size(), 20U);
    EXPECT_EQ(Faults("[Stick]\nWach=1\n" + std::string(200'000, '\n')),
              "2: [Stick] Wach is no key\n")
        << "what stands at the beginning is said";
    EXPECT_EQ(Faults(std::string(200'000, 'x')), "") << "one line longer than such a file";
    EXPECT_EQ(Faults(std::string(200'000, '\n') + "x"), "");
    EXPECT_EQ(Faults(std::string(65'534, '\n') + "x\n"),
              "65535: x stands before the first section\n");
    EXPECT_EQ(Faults(std::string(65'535, '\n') + "x"), "65536: x stands before the first section\n")
        << "the longest file that is looked at whole";
}

using ComfortStoreFaults = ComfortTest;

TEST_F(ComfortStoreFaults, BothFiles_AreNamedWithTheirLines) {
    InitFrom("[Stick]\r\nWatch=9\r\n", "[Stick]\r\n\r\nWach=1\r\n");
    const std::vector<std::wstring> Wanted{
        COMFORT_OF_USER + L", line 2: [Stick] Watch=9 is out of range, 1 counts (0 or 1)",
        COMFORT_OF_PROGRAM + L", line 3: [Stick] Wach is no key"};
    EXPECT_EQ(objStore.Faults(), Wanted);
    InitFrom("", "");
    EXPECT_TRUE(objStore.Faults().empty());
}

}  // namespace
}  // namespace taviro
