// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <limits>

#include "settings/setting.h"
#include "tests/unit/settings/setting_fixture.h"

namespace taviro {
namespace {

using platform::headless::Desktop;

using SettingSave = SettingTest;

const char* const FIRST_SAVE =
    "[Info]\r\n"
    "TriggerRowReset=0\r\n"
    "TriggerColumnReset=0\r\n"
    "ColumnWrap=0\r\n"
    "RowWrap=1\r\n"
    "ScanMode=0\r\n"
    "VoiceOnLineChange=0\r\n"
    "ScanSizeX=50\r\n"
    "ScanSizeY=50\r\n"
    "ScanDelay=0\r\n"
    "CellTextSize=8\r\n"
    "CellWidth=60\r\n"
    "CellHeight=15\r\n"
    "DefCursorButton=-1\r\n"
    "DefActionButton=-1\r\n"
    "Log=0\r\n"
    "[Voice]\r\n"
    "Name=Male\r\n"
    "Rate=0\r\n"
    "Pitch=0\r\n"
    "Volume=50\r\n"
    "[Buttons]\r\n"
    "0=*action\r\n"
    "1=*mode\r\n";

TEST_F(SettingSave, FirstSave_WritesTheKeysInOrder) {
    Init();
    EXPECT_EQ(Saved(), FIRST_SAVE);
}

TEST_F(SettingSave, MinusOne_IsSavedAsOneWhereOnIsMeant) {
    for (const NumberProperty& objProperty : NumberProperties) {
        Init();
        (objSetting.*objProperty.Set)(-1);
        objSetting.SaveSetting();
        EXPECT_EQ(Stored(objProperty.strSection, objProperty.strKey),
                  objProperty.strOff == nullptr ? "(none)" : objProperty.strOff)
            << objProperty.strKey;
    }
}

TEST_F(SettingSave, SmallestNumber_IsSavedWithoutItsSign) {
    Init();
    objSetting.CellWidth(std::numeric_limits<int32_t>::min());
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Info", "CellWidth"), "2147483648");
}

TEST_F(SettingSave, EverySavedNumber_IsReadBack) {
    Init();
    int32_t nValue = 100;
    for (const NumberProperty& objProperty : NumberProperties) {
        (objSetting.*objProperty.Set)(++nValue);
    }
    objSetting.VoiceName(L"Zuzana Černá");
    objSetting.SaveSetting();
    objSetting = cSetting{};
    Init();
    nValue = 100;
    for (const NumberProperty& objProperty : NumberProperties) {
        ++nValue;
        const bool bSaved = objProperty.strOff != nullptr;
        EXPECT_EQ((objSetting.*objProperty.Get)(), bSaved ? nValue : objProperty.nDefault)
            << objProperty.strKey;
    }
    EXPECT_EQ(objSetting.VoiceName(), L"Zuzana Černá");
}

TEST_F(SettingSave, Save_WritesTheVoiceNameUnquoted) {
    Init();
    objSetting.VoiceName(L"Zuzana \"Zuzka\" Černá");
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Voice", "Name"),
              "Zuzana \"Zuzka\" \xC8"
              "ern\xE1");
}

TEST_F(SettingSave, SaveButton_WritesItsText) {
    Init();
    const struct {
        ButtonAction objButton;
        const char* strText;
    } Rows[] = {
        {{ButtonKind::Action, L"x", 3}, "*action"},
        {{ButtonKind::Mode, L"x", 3}, "*mode"},
        {{ButtonKind::Code, L"x", 20065}, "20065"},
        {{ButtonKind::Code, L"x", -3}, "-3"},
        {{ButtonKind::Command, L"say \"ahoj\" č", 3}, "say $ahoj$ \xE8"},
        {{ButtonKind::Unassigned, L"x", 3}, "(none)"},
        {{static_cast<ButtonKind>(5), L"x", 3}, "(none)"},
        {{static_cast<ButtonKind>(-1), L"x", 3}, "(none)"},
    };
    for (const auto& Row : Rows) {
        ButtonTable[9] = {ButtonKind::Code, L"", 1};
        objSetting.SaveSetting();
        ASSERT_EQ(Stored("Buttons", "9"), "1");
        ButtonTable[9] = Row.objButton;
        objSetting.SaveSetting();
        EXPECT_EQ(Stored("Buttons", "9"), Row.strText);
    }
}

TEST_F(SettingSave, ButtonsCommand_ComesBackAsItWas_WhateverItLooksLike) {
    // What the file would read as a number, a word or a quoted text stands in quotes there; what
    // comes back as it is stands there as it is.
    const std::pair<std::wstring, std::string> ROWS[] = {
        {L"7zFM.exe", "\"\"7zFM.exe\"\""},
        {L".5x", "\"\".5x\"\""},
        {L"+1", "\"\"+1\"\""},
        {L"*action", "\"\"*action\"\""},
        {L"*mode", "\"\"*mode\"\""},
        {L"", "\"\"\"\""},
        {L"'x y'", "\"'x y'\""},
        {L"calc ", "\"calc \""},
        {L" calc", "\" calc\""},
        {L"\t", "\"\t\""},
        {L"\"7zFM.exe\"", "$7zFM.exe$"},
        {L"0", "0"},
        {L"-3", "-3"},
        {L"*Action", "*Action"},
        {L"'x", "'x"},
        {L"'", "'"},
        {L"\"", "$"},
        {L"notepad:a b", "notepad:a b"},
    };
    for (const auto& [strCommand, strInFile] : ROWS) {
        SCOPED_TRACE(strInFile);
        InitFrom("");
        ButtonTable[9] = {ButtonKind::Command, strCommand, 0};
        const std::string strLine = "\r\n9=" + strInFile + "\r\n";
        EXPECT_NE(Saved().find(strLine), std::string::npos) << Saved();
        ButtonTable[9] = {ButtonKind::Mode, L"old", 5};
        Init();
        EXPECT_EQ(ButtonTable[9], (ButtonAction{ButtonKind::Command, strCommand, 5}));
    }
}

TEST_F(SettingSave, UnassignedButton_LosesEveryLineOfItsKey) {
    InitFrom("[Buttons]\r\n0=*action\r\n1=*mode\r\n2=65\r\n2=66\r\n");
    ButtonTable[2].Kind = ButtonKind::Unassigned;
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Buttons", "2"), "(none)");
}

TEST_F(SettingSave, Save_KeepsWhatItDoesNotOwn) {
    InitFrom(
        "; my settings\r\n[Other]\r\nx=1\r\n\r\n[Info]\r\n; wrap\r\nRowWrap = 0\r\nDelay=9\r\n"
        "SndName=\"D:\\\"\r\nmystery\r\n\r\n[Buttons]\r\n16=far\r\n");
    EXPECT_EQ(
        Saved(),
        "; my settings\r\n[Other]\r\nx=1\r\n\r\n[Info]\r\n; wrap\r\nRowWrap = 0\r\nDelay=9\r\n"
        "SndName=\"D:\\\"\r\nmystery\r\nTriggerRowReset=0\r\nTriggerColumnReset=0\r\n"
        "ColumnWrap=0\r\nScanMode=0\r\nVoiceOnLineChange=0\r\nScanSizeX=50\r\n"
        "ScanSizeY=50\r\nScanDelay=0\r\nCellTextSize=8\r\nCellWidth=60\r\nCellHeight=15\r\n"
        "DefCursorButton=-1\r\nDefActionButton=-1\r\nLog=0\r\n\r\n[Buttons]\r\n16=far\r\n"
        "0=*action\r\n1=*mode\r\n[Voice]\r\nName=Male\r\nRate=0\r\nPitch=0\r\nVolume=50\r\n");
}

TEST_F(SettingSave, Save_WritesIntoTheFileOfThatMoment) {
    Init();
    Put("[Info]\r\nRowWrap=0\r\nNote=written meanwhile\r\n");
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Info", "Note"), "written meanwhile");
    EXPECT_EQ(Stored("Info", "RowWrap"), "1");
}

TEST_F(SettingSave, Save_GoesToTheDefaultFileOnly) {
    Put("[Info]\r\nColumnWrap=5\r\n", APP_FILE);
    objSetting.Init(SETTING_FILE, APP_FILE);
    objSetting.ColumnWrap(6);
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Info", "ColumnWrap"), "6");
    std::string strBytes;
    ASSERT_TRUE(platform::ReadFileBytes(APP_FILE, strBytes));
    EXPECT_EQ(strBytes, "[Info]\r\nColumnWrap=5\r\n");
}

TEST_F(SettingSave, Save_ReplacesTheFileOnceAndOnlyWhenItChanges) {
    Init();
    const auto Saves = [] {
        size_t nCount = 0;
        for (const auto& objEffect : Desktop.Transcript) {
            if (objEffect.strText.starts_with("save ")) ++nCount;
        }
        return nCount;
    };
    const size_t nBefore = Saves();
    objSetting.SaveSetting();
    EXPECT_EQ(Saves(), nBefore + 1);
    objSetting.SaveSetting();
    EXPECT_EQ(Saves(), nBefore + 1);
    objSetting.Log(1);
    objSetting.SaveSetting();
    EXPECT_EQ(Saves(), nBefore + 2);
}

TEST_F(SettingSave, FileLockedAtInit_KeepsItsValuesButForChanges) {
    const std::string strOwn =
        "[Info]\r\nRowWrap=0\r\nLog=1\r\n[Voice]\r\nName=Iveta\r\nVolume=80\r\n"
        "[Buttons]\r\n0=*mode\r\n1=*action\r\n2=65\r\n3=notepad\r\n";
    Put(strOwn);
    Desktop.Files.Lock(SETTING_FILE);
    Init();
    EXPECT_EQ(objSetting.VoiceName(), L"Male");
    ExpectKinds(UsualKinds);
    Desktop.Files.Lock(SETTING_FILE, false);
    EXPECT_EQ(Saved(), strOwn) << "nothing was changed";
    objSetting.Volume(60);
    ButtonTable[3] = {ButtonKind::Code, L"", 70};
    EXPECT_EQ(Saved(),
              "[Info]\r\nRowWrap=0\r\nLog=1\r\n[Voice]\r\nName=Iveta\r\nVolume=60\r\n"
              "[Buttons]\r\n0=*mode\r\n1=*action\r\n2=65\r\n3=70\r\n");
}

TEST_F(SettingSave, FileLockedAtAnEarlierInit_IsForgottenByTheNext) {
    Put("[Info]\r\nRowWrap=0\r\n");
    Desktop.Files.Lock(SETTING_FILE);
    Init();
    Desktop.Files.Lock(SETTING_FILE, false);
    Init();
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Voice", "Volume"), "50");
}

TEST_F(SettingSave, FileLockedAtSave_StaysAsItIs) {
    const std::string strOwn = "[Info]\r\nRowWrap=0\r\n";
    InitFrom(strOwn);
    Desktop.Files.Lock(SETTING_FILE);
    objSetting.SaveSetting();
    Desktop.Files.Lock(SETTING_FILE, false);
    std::string strBytes;
    ASSERT_TRUE(platform::ReadFileBytes(SETTING_FILE, strBytes));
    EXPECT_EQ(strBytes, strOwn);
}

TEST_F(SettingSave, FailedWrite_LeavesTheOldFile) {
    const std::string strOwn = "[Info]\r\nRowWrap=0\r\n";
    InitFrom(strOwn);
    Desktop.Files.SetReadOnly(SETTING_FILE);
    EXPECT_EQ(Saved(), strOwn);
    Desktop.Files.SetReadOnly(SETTING_FILE, false);
    Desktop.Files.nFreeBytes = 10;
    EXPECT_EQ(Saved(), strOwn);
}

TEST_F(SettingSave, FolderInPlaceOfTheFile_IsIgnored) {
    ASSERT_TRUE(platform::CreateFolder(SETTING_FILE));
    Init();
    EXPECT_EQ(objSetting.Volume(), 50);
    EXPECT_EQ(Saved(), "(no file)");
    EXPECT_TRUE(platform::FolderExists(SETTING_FILE));
}

TEST_F(SettingSave, MissingFolder_IsIgnored) {
    objSetting.Init(L"C:\\nowhere\\setting.ini");
    objSetting.SaveSetting();
    EXPECT_FALSE(platform::FolderExists(L"C:\\nowhere"));
}

TEST_F(SettingSave, SaveBeforeInit_WritesNothing) {
    objSetting.SaveSetting();
    EXPECT_EQ(Desktop.Files.List(L"*").size(), 0U);
}

TEST_F(SettingSave, BinaryJunk_SurvivesASave) {
    std::string strJunk;
    for (uint32_t n = 99; strJunk.size() < 50000; n = n * 1664525 + 1013904223) {
        strJunk += static_cast<char>(n >> 24U);
    }
    InitFrom(strJunk);
    EXPECT_EQ(objSetting.Volume(), 50);
    const std::string strAfter = Saved();
    EXPECT_EQ(strAfter.substr(0, strJunk.size()), strJunk);
    EXPECT_EQ(Stored("Voice", "Volume"), "50");
}

// Only reading fails: writing over the file would work.
TEST_F(SettingSave, FileThatCannotBeRead_IsNotOverwritten) {
    const std::string strOwn = "[Info]\r\nRowWrap=0\r\n";
    InitFrom(strOwn);
    objSetting.Volume(60);
    Desktop.Failures.Next("ReadFileBytes");
    EXPECT_EQ(Saved(), strOwn);
    EXPECT_NE(Saved(), strOwn) << "readable again, it takes the change";
    EXPECT_EQ(Stored("Voice", "Volume"), "60");
}

TEST_F(SettingSave, FileUnreadAtInit_KeepsItsValues) {
    const std::string strOwn = "[Info]\r\nRowWrap=0\r\n[Voice]\r\nVolume=80\r\n";
    Put(strOwn);
    Desktop.Failures.Next("ReadFileBytes");
    Init();
    EXPECT_EQ(objSetting.Volume(), 50);
    EXPECT_EQ(Saved(), strOwn);
}

}  // namespace
}  // namespace taviro
