// SPDX-License-Identifier: MIT
// What reaches the user's comfort.ini, and what stays whole when saving fails.
#include <gtest/gtest.h>

#include "settings/comfort_store.h"
#include "tests/unit/settings/comfort_fixture.h"

namespace taviro {
namespace {

using platform::headless::Desktop;

using ComfortSave = ComfortTest;

const char* const SAMPLE_DELIVERED =
    "[Stick]\r\nWatch=1\r\n[Scan]\r\nStepMs=1000\r\nPattern=rows\r\n";

TEST_F(ComfortSave, File_HoldsOnlyWhatWasChanged) {
    PutProgram(SAMPLE_DELIVERED);
    Init();
    Set(STEP, L"500");
    Set(DEVICE, L"Páka");
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(UserFile(), "[Stick]\r\nDevice=P\xE1ka\r\n[Scan]\r\nStepMs=500\r\n");
    Init();
    EXPECT_EQ(Sample.nStep, 500);
    EXPECT_EQ(Sample.strDevice, L"Páka");
}

TEST_F(ComfortSave, Key_GoesFromTheFile_WhenSetBackToTheDelivered) {
    InitFrom("[Scan]\r\nStepMs=500\r\nPattern=cells\r\n", SAMPLE_DELIVERED);
    Set(STEP, L"1000");
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(UserFile(), "[Scan]\r\nPattern=cells\r\n");
}

TEST_F(ComfortSave, Key_GoesFromTheFile_WhenSteppedBackToTheRules) {
    PutUser("[Scan]\r\nPattern=rows\r\n");
    Init();
    EXPECT_EQ(objStore.Step(PATTERN, false), ComfortOutcome::Taken);
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(UserFile(), "[Scan]\r\n");
}

TEST_F(ComfortSave, EveryLineOfTheKey_Goes) {
    InitFrom("[Stick]\r\nWatch=0\r\nWatch=0\r\n", SAMPLE_DELIVERED);
    Set(WATCH, L"1");
    EXPECT_TRUE(objStore.Save());
    Init();
    EXPECT_TRUE(Sample.bWatch);
}

TEST_F(ComfortSave, RulesValue_IsKeptInTheFile_WhenTheDeliveredDiffers) {
    PutProgram(SAMPLE_DELIVERED);
    Init();
    Set(WATCH, L"0");
    Set(STEP, L"0");
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(UserFile(), "[Stick]\r\nWatch=0\r\n[Scan]\r\nStepMs=0\r\n");
}

TEST_F(ComfortSave, NothingIsWritten_WhenNothingDiffers) {
    PutProgram(SAMPLE_DELIVERED);
    Init();
    EXPECT_TRUE(objStore.Save());
    Set(WATCH, L"0");
    Set(WATCH, L"1");
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(UserFile(), "(no file)");
    EXPECT_TRUE(Desktop.Transcript.empty());
}

TEST_F(ComfortSave, File_IsReplacedOnceForAllThatWasSet) {
    PutProgram(SAMPLE_DELIVERED);
    Init();
    Set(WATCH, L"0");
    Set(STEP, L"500");
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(Desktop.TakeEffects().size(), 1U);
    EXPECT_TRUE(objStore.Save());
    EXPECT_TRUE(Desktop.TakeEffects().empty());
}

TEST_F(ComfortSave, Save_KeepsWhatItDoesNotOwn) {
    InitFrom(
        "; mé\r\n[Other]\r\nx=1\r\n\r\n[Stick]\r\n; proč\r\nWatch = 1\r\nTomorrow=5\r\nword\r\n",
        SAMPLE_DELIVERED);
    Set(WATCH, L"0");
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(
        UserFile(),
        "; mé\r\n[Other]\r\nx=1\r\n\r\n[Stick]\r\n; proč\r\nWatch = 0\r\nTomorrow=5\r\nword\r\n");
}

TEST_F(ComfortSave, Save_WritesIntoTheFileOfThatMoment) {
    PutProgram(SAMPLE_DELIVERED);
    Init();
    PutUser("[Scan]\r\nPattern=groups\r\n");
    Set(STEP, L"500");
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(UserFile(), "[Scan]\r\nPattern=groups\r\nStepMs=500\r\n");
}

TEST_F(ComfortSave, SavedKey_IsNotWrittenAgain_WhenTheUserChangedItInTheFile) {
    Init();
    Set(STEP, L"500");
    EXPECT_TRUE(objStore.Save());
    PutUser("[Scan]\r\nStepMs=900\r\n");
    Set(WATCH, L"1");
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(UserFile(), "[Scan]\r\nStepMs=900\r\n[Stick]\r\nWatch=1\r\n");
}

TEST_F(ComfortSave, WhatWasNotSaved_IsForgotten_WhenTheFilesAreReadAnew) {
    Init();
    Set(STEP, L"500");
    objStore.Init(COMFORT_OF_USER, COMFORT_OF_PROGRAM);
    EXPECT_EQ(Sample.nStep, 0);
    PutUser("[Scan]\r\nStepMs=900\r\n");
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(UserFile(), "[Scan]\r\nStepMs=900\r\n");
}

TEST_F(ComfortSave, Text_IsReadBackAsItWas) {
    Init();
    for (const wchar_t* strText : {L" páka ", L"\"", L"\"a\"", L"'a'", L"a;b", L"=", L"[x]", L"",
                                   L"Generic   USB  Joystick  ", L"\x1A", L"\"\""}) {
        SCOPED_TRACE(platform::ToUtf8(strText));
        Set(DEVICE, strText);
        ASSERT_TRUE(objStore.Save());
        Init();
        EXPECT_EQ(Sample.strDevice, strText);
    }
}

TEST_F(ComfortSave, HalfWrittenOrZeroedFile_TakesTheChangeAndIsReadBack) {
    for (const std::string& strDamaged : {std::string("[Scan]\r\nStep"), std::string(700, '\0'),
                                          std::string("[Scan]\r\nStepMs=7\0\0\0\0\0", 21),
                                          std::string("\xEF\xBB\xBF"), std::string("[Scan")}) {
        InitFrom(strDamaged, SAMPLE_DELIVERED);
        Set(STEP, L"500");
        ASSERT_TRUE(objStore.Save());
        Init();
        EXPECT_EQ(Sample.nStep, 500);
        EXPECT_TRUE(Sample.bWatch);
    }
}

// A step of the one replacement fails: the old file is whole, nothing lies beside it, the value
// stays in force, and the next save brings it to the file.
TEST_F(ComfortSave, FailedSave_LeavesTheOldFileAndIsMadeUpFor) {
    const std::string strOwn = "[Stick]\r\nWatch=0\r\n";
    for (const char* strCall :
         {"CreateNewFile", "WriteToFile", "FlushFile", "RenameFile", "ReadFileBytes"}) {
        SCOPED_TRACE(strCall);
        InitFrom(strOwn, SAMPLE_DELIVERED);
        Set(STEP, L"500");
        Desktop.Failures.Next(strCall);
        EXPECT_FALSE(objStore.Save());
        EXPECT_EQ(UserFile(), strOwn);
        EXPECT_EQ(Desktop.Files.List(L"C:\\data\\*").size(), 1U);
        EXPECT_EQ(Sample.nStep, 500);
        EXPECT_TRUE(objStore.Save());
        EXPECT_EQ(UserFile(), strOwn + "[Scan]\r\nStepMs=500\r\n");
    }
}

TEST_F(ComfortSave, PowerCutWhileSaving_LeavesTheOldOrTheNewFileWhole) {
    const std::string strOwn = "[Stick]\r\nWatch=0\r\n";
    for (size_t nCall = 1; nCall <= 6; ++nCall) {
        Desktop = platform::headless::DesktopState{};
        InitFrom(strOwn, SAMPLE_DELIVERED);
        Set(STEP, L"500");
        Desktop.Failures.Add({.nFrom = nCall, .bPowerCut = true});
        try {
            Unneeded(objStore.Save());
        } catch (const platform::headless::PowerCut&) {
            Desktop.Files.CutPower();
        }
        Desktop.Failures.Clear();
        const std::string strAfter = UserFile();
        EXPECT_TRUE(strAfter == strOwn || strAfter == strOwn + "[Scan]\r\nStepMs=500\r\n")
            << nCall << ": " << strAfter;
    }
}

TEST_F(ComfortSave, LockedReadOnlyOrFullDisk_LeavesTheOldFile) {
    const std::string strOwn = "[Stick]\r\nWatch=0\r\n";
    InitFrom(strOwn, SAMPLE_DELIVERED);
    Set(STEP, L"500");
    Desktop.Files.Lock(COMFORT_OF_USER);
    EXPECT_FALSE(objStore.Save());
    Desktop.Files.Lock(COMFORT_OF_USER, false);
    Desktop.Files.SetReadOnly(COMFORT_OF_USER);
    EXPECT_FALSE(objStore.Save());
    Desktop.Files.SetReadOnly(COMFORT_OF_USER, false);
    Desktop.Files.nFreeBytes = 10;
    EXPECT_FALSE(objStore.Save());
    EXPECT_EQ(UserFile(), strOwn);
    Desktop.Files.nFreeBytes = 10000;
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(UserFile(), strOwn + "[Scan]\r\nStepMs=500\r\n");
}

TEST_F(ComfortSave, FileLockedAtInit_KeepsItsValuesButForChanges) {
    InitFrom("[Stick]\r\nWatch=0\r\n[Scan]\r\nPattern=groups\r\n", SAMPLE_DELIVERED);
    Desktop.Files.Lock(COMFORT_OF_USER);
    Init();
    Set(STEP, L"500");
    Set(WATCH, L"1");
    Desktop.Files.Lock(COMFORT_OF_USER, false);
    EXPECT_TRUE(objStore.Save());
    EXPECT_EQ(UserFile(), "[Stick]\r\n[Scan]\r\nPattern=groups\r\nStepMs=500\r\n");
}

// The person switches off what the delivered file, unseen today, switches on: tomorrow it must
// still be off.
TEST_F(ComfortSave, RulesValue_IsWritten_WhenTheProgramsFileCouldNotSayItsOwn) {
    const struct {
        const char* strName;
        std::string strProgram;
        bool bLocked;
    } Rows[] = {
        {"locked", SAMPLE_DELIVERED, true},
        {"zeroes", std::string(100, '\0'), false},
        {"no value", "[Stick]\r\nWatch=?\r\n", false},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(Row.strName);
        InitFrom("", Row.strProgram);
        Desktop.Files.Lock(COMFORT_OF_PROGRAM, Row.bLocked);
        Init();
        Set(WATCH, L"0");
        EXPECT_TRUE(objStore.Save());
        Desktop.Files.Lock(COMFORT_OF_PROGRAM, false);
        InitFrom(UserFile(), SAMPLE_DELIVERED);
        EXPECT_FALSE(Sample.bWatch);
    }
}

TEST_F(ComfortSave, MissingFolder_IsNoSuccess) {
    objStore.Init(L"C:\\nowhere\\comfort.ini", COMFORT_OF_PROGRAM);
    Set(WATCH, L"1");
    EXPECT_FALSE(objStore.Save());
    EXPECT_FALSE(platform::FolderExists(L"C:\\nowhere"));
    EXPECT_TRUE(Sample.bWatch);
}

}  // namespace
}  // namespace taviro
