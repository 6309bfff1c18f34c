// SPDX-License-Identifier: MIT
// Where a value is looked up, and what changing it does before it is saved.
#include "settings/comfort_store.h"

#include <gtest/gtest.h>

#include "tests/unit/settings/comfort_fixture.h"

namespace taviro {
namespace {

using platform::headless::Desktop;

using ComfortStores = ComfortTest;

// What a file of every key says, and what then counts.
const char* const ALL_DELIVERED =
    "[Stick]\r\nWatch=1\r\nDevice=Stick\r\n[Scan]\r\nStepMs=1000\r\nPattern=rows\r\n"
    "[Sound]\r\nVolume=70\r\n";

void ExpectRules() {
    EXPECT_FALSE(Sample.bWatch);
    EXPECT_EQ(Sample.strDevice, L"");
    EXPECT_EQ(Sample.nStep, 0);
    EXPECT_EQ(Sample.nPattern, 0);
    EXPECT_EQ(Sample.nVolume, 50);
}

void ExpectDelivered() {
    EXPECT_TRUE(Sample.bWatch);
    EXPECT_EQ(Sample.strDevice, L"Stick");
    EXPECT_EQ(Sample.nStep, 1000);
    EXPECT_EQ(Sample.nPattern, 1);
    EXPECT_EQ(Sample.nVolume, 70);
}

TEST_F(ComfortStores, Rules_HoldToTheLetter_WithoutBothFiles) {
    Sample = {.bWatch = true, .nStep = 1, .nPattern = 1, .strDevice = L"x", .nVolume = 1};
    Init();
    ExpectRules();
    EXPECT_TRUE(objStore.Faults().empty());
    EXPECT_TRUE(Desktop.Transcript.empty()) << "nothing is written or made";
}

TEST_F(ComfortStores, ProgramsFile_IsWhatEverybodyGets) {
    PutProgram(ALL_DELIVERED);
    Init();
    ExpectDelivered();
}

TEST_F(ComfortStores, UsersKey_CountsBeforeTheProgramsAndOnlyThatKey) {
    InitFrom("[Scan]\r\nStepMs=700\r\n", ALL_DELIVERED);
    EXPECT_EQ(Sample.nStep, 700);
    EXPECT_TRUE(Sample.bWatch);
    EXPECT_EQ(Sample.nPattern, 1) << "the rest of the section comes from the program's file";
    EXPECT_EQ(Sample.nVolume, 70);
}

TEST_F(ComfortStores, UsersFileAlone_StandsOnTheRules) {
    PutUser("[Scan]\r\nPattern=groups\r\n");
    Init();
    EXPECT_EQ(Sample.nPattern, 2);
    Sample.nPattern = 0;
    ExpectRules();
}

TEST_F(ComfortStores, UsersEmptyText_CountsBeforeTheDelivered) {
    InitFrom("[Stick]\r\nDevice=\r\n", ALL_DELIVERED);
    EXPECT_EQ(Sample.strDevice, L"");
}

TEST_F(ComfortStores, Upgrade_BringsItsNewKey_WhenTheUserHasAFile) {
    InitFrom("[Stick]\r\nWatch=0\r\n", "[Stick]\r\nWatch=1\r\n");
    EXPECT_EQ(Sample.nPattern, 0) << "the old version's file does not know it";
    PutProgram(ALL_DELIVERED);
    Init();
    EXPECT_EQ(Sample.nPattern, 1);
    EXPECT_FALSE(Sample.bWatch) << "the user's own stays";
    EXPECT_EQ(UserFile(), "[Stick]\r\nWatch=0\r\n");
}

TEST_F(ComfortStores, ValueWithoutMeaning_LeavesTheNextPlaceToSay) {
    InitFrom("[Stick]\r\nWatch=perhaps\r\n[Scan]\r\nPattern=\r\nStepMs\r\n", ALL_DELIVERED);
    ExpectDelivered();
    InitFrom("[Stick]\r\nWatch=perhaps\r\n",
             "[Stick]\r\nWatch=?\r\n[Scan]\r\nStepMs=x\r\n[Sound]\r\nVolume=loud\r\n");
    ExpectRules();
}

TEST_F(ComfortStores, ValueOutOfRange_CountsAsTheNearest) {
    InitFrom("[Scan]\r\nStepMs=99999\r\n", "[Stick]\r\nWatch=5\r\n[Sound]\r\nVolume=-4000\r\n");
    EXPECT_EQ(Sample.nStep, 6000);
    EXPECT_TRUE(Sample.bWatch);
    EXPECT_EQ(Sample.nVolume, -100);
    EXPECT_EQ(UserFile(), "[Scan]\r\nStepMs=99999\r\n") << "the file is left alone";
}

struct ComfortFileRow {
    const char* strName;
    std::string strUser;
    int32_t nStep;  ///< 700 when the file's value was found
};

TEST_F(ComfortStores, UsersFile_IsReadAsFarAsItGoes_WhateverItHolds) {
    const std::string strGood = "[Scan]\r\nStepMs=700\r\n";
    std::string strJunk;
    for (uint32_t n = 7; strJunk.size() < 50000; n = n * 1664525 + 1013904223)
        strJunk += static_cast<char>(n >> 24U);
    const ComfortFileRow Rows[] = {
        {"empty", "", 1000},
        {"byte order mark", "\xEF\xBB\xBF" + strGood, 700},
        {"lone line feeds", "[Scan]\nStepMs=700", 700},
        {"lone carriage returns", "[Scan]\rStepMs=700\r", 700},
        {"written half: in the name", strGood.substr(0, 11), 1000},
        {"written half: before the value", strGood.substr(0, 15), 1000},
        {"zeroes only", std::string(4096, '\0'), 1000},
        {"zeroes behind", strGood + std::string(512, '\0'), 700},
        {"zeroes in front", std::string(512, '\0') + "\r\n" + strGood, 700},
        {"sixteen-bit text", std::string("\xFF\xFE[\0S\0c\0a\0n\0]\0\n\0S\0=\0", 20), 1000},
        {"junk", strJunk, 1000},
        {"junk in front", strJunk + "\r\n" + strGood, 700},
        {"second section of the name", "[Scan]\r\n[Stick]\r\n" + strGood, 1000},
        {"second key of the name", strGood + "StepMs=800\r\n", 700},
        {"in quotes", "[Scan]\r\nStepMs=\" 700 \"\r\n", 700},
        {"case and blanks", " [ sCAN ] \r\n\tstepms = 700\r\n", 700},
        {"another section", "[Stick]\r\nStepMs=700\r\n", 1000},
    };
    for (const ComfortFileRow& Row : Rows) {
        SCOPED_TRACE(Row.strName);
        InitFrom(Row.strUser, ALL_DELIVERED);
        EXPECT_EQ(Sample.nStep, Row.nStep);
        EXPECT_TRUE(objStore.Save());
        EXPECT_EQ(UserFile(), Row.strUser) << "nothing was set";
    }
}

TEST_F(ComfortStores, LockedOrMissingUsersFile_LeavesTheDelivered) {
    InitFrom("[Stick]\r\nWatch=0\r\n", ALL_DELIVERED);
    Desktop.Files.Lock(COMFORT_OF_USER);
    Init();
    ExpectDelivered();
    Desktop.Files = {};
    PutProgram(ALL_DELIVERED);
    ASSERT_TRUE(platform::CreateFolder(L"C:\\data"));
    ASSERT_TRUE(platform::CreateFolder(COMFORT_OF_USER)) << "a folder of that name";
    Init();
    ExpectDelivered();
}

TEST_F(ComfortStores, LockedProgramsFile_LeavesTheUsersAndTheRules) {
    InitFrom("[Stick]\r\nWatch=1\r\n", ALL_DELIVERED);
    Desktop.Files.Lock(COMFORT_OF_PROGRAM);
    Init();
    EXPECT_TRUE(Sample.bWatch);
    Sample.bWatch = false;
    ExpectRules();
}

TEST_F(ComfortStores, Set_IsInForceAtOnceAndOnlyInMemory) {
    InitFrom("", ALL_DELIVERED);
    const struct {
        const ComfortKey& objKey;
        const wchar_t* strText;
        ComfortOutcome nOutcome;
        const wchar_t* strInForce;
    } Rows[] = {
        {WATCH, L"off", ComfortOutcome::Taken, L"0"},
        {WATCH, L"7", ComfortOutcome::Bounded, L"1"},
        {WATCH, L"x", ComfortOutcome::Refused, L"1"},
        {STEP, L"500", ComfortOutcome::Taken, L"500"},
        {STEP, L"5", ComfortOutcome::Bounded, L"300"},
        {STEP, L"", ComfortOutcome::Refused, L"300"},
        {STEP, L"0", ComfortOutcome::Taken, L"0"},
        {PATTERN, L"GROUPS", ComfortOutcome::Taken, L"groups"},
        {PATTERN, L"columns", ComfortOutcome::Refused, L"groups"},
        {DEVICE, L"Páka", ComfortOutcome::Taken, L"Páka"},
        {DEVICE, L"", ComfortOutcome::Taken, L""},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(platform::ToUtf8(Row.strText));
        EXPECT_EQ(objStore.Set(Row.objKey, Row.strText), Row.nOutcome);
        EXPECT_EQ(objStore.Text(Row.objKey), Row.strInForce);
    }
    EXPECT_TRUE(Sample.bWatch);
    EXPECT_EQ(Sample.nStep, 0);
    EXPECT_EQ(Sample.nPattern, 2);
    EXPECT_EQ(Sample.strDevice, L"");
    EXPECT_EQ(UserFile(), "");
}

TEST_F(ComfortStores, Step_ChangesTheValueInForceUntilTheRangeEnds) {
    InitFrom("[Scan]\r\nStepMs=5900\r\n", ALL_DELIVERED);
    EXPECT_EQ(objStore.Step(STEP, true), ComfortOutcome::Taken);
    EXPECT_EQ(Sample.nStep, 6000);
    EXPECT_EQ(objStore.Step(STEP, true), ComfortOutcome::Bounded);
    EXPECT_EQ(Sample.nStep, 6000);
    EXPECT_EQ(objStore.Step(STEP, false), ComfortOutcome::Taken);
    EXPECT_EQ(objStore.Text(STEP), L"5900");
    EXPECT_EQ(objStore.Step(WATCH, false), ComfortOutcome::Taken);
    EXPECT_FALSE(Sample.bWatch);
    EXPECT_EQ(objStore.Step(DEVICE, true), ComfortOutcome::Refused);
    EXPECT_EQ(Sample.strDevice, L"Stick");
}

TEST_F(ComfortStores, Find_KnowsAKeyByItsNameWithOrWithoutSection) {
    EXPECT_EQ(objStore.Find(L"watch"), &WATCH);
    EXPECT_EQ(objStore.Find(L"SCAN.stepms"), &STEP);
    for (const wchar_t* strName : {L"", L".", L"Stick", L"Stick.", L"Scan.Watch", L"Wach"})
        EXPECT_EQ(objStore.Find(strName), nullptr) << platform::ToUtf8(strName);
}

TEST_F(ComfortStores, Find_AsksForTheSection_WhenTwoHaveTheKey) {
    const std::array<ComfortKey, 2> Twins = [] {
        std::array<ComfortKey, 2> Both{WATCH, WATCH};
        Both[1].strSection = L"Mouse";
        return Both;
    }();
    const ComfortStore objTwins(Twins);
    EXPECT_EQ(objTwins.Find(L"Watch"), nullptr);
    EXPECT_EQ(objTwins.Find(L"Mouse.Watch"), &Twins[1]);
    EXPECT_EQ(objTwins.Find(L"Stick.Watch"), &Twins[0]);
}

}  // namespace
}  // namespace taviro
