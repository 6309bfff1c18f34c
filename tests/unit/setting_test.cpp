// SPDX-License-Identifier: MIT
#include "settings/setting.h"

#include <gtest/gtest.h>
#include <limits>

#include "platform/files.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "settings/button_table.h"

namespace taviro {
namespace {

using platform::headless::Desktop;

const std::wstring strFile = L"C:\\data\\setting.ini";
const std::wstring strAppFile = L"C:\\data\\app.ini";

const char* const strFirstSave =
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

/// A number property, for the tests that hold for every one of them.
struct NumberProperty {
    const char* strSection;
    const char* strKey;
    int32_t (cSetting::*Get)() const;
    void (cSetting::*Set)(int32_t);
    int32_t nDefault;
    bool bWholeText;     ///< a text that is no number leaves the property alone
    const char* strOff;  ///< what a saved -1 becomes; null when the setting is not saved
};

#define TAVIRO_NUMBER(strSection, strKey, Name, nDefault, bWholeText, strOff) \
    { strSection, strKey, &cSetting::Name, &cSetting::Name, nDefault, bWholeText, strOff }

const NumberProperty NumberProperties[] = {
    TAVIRO_NUMBER("Info", "Delay", Delay, 1, false, nullptr),
    TAVIRO_NUMBER("Info", "RowWrap", RowWrap, 1, false, "1"),
    TAVIRO_NUMBER("Info", "ColumnWrap", ColumnWrap, 0, false, "1"),
    TAVIRO_NUMBER("Info", "TriggerColumnReset", TriggerColumnReset, 0, false, "1"),
    TAVIRO_NUMBER("Info", "TriggerRowReset", TriggerRowReset, 0, false, "1"),
    TAVIRO_NUMBER("Info", "DefCursorButton", DefCursorButton, -1, false, "-1"),
    TAVIRO_NUMBER("Info", "DefActionButton", DefActionButton, -1, false, "-1"),
    TAVIRO_NUMBER("Info", "ScanMode", ScanMode, 0, false, "1"),
    TAVIRO_NUMBER("Info", "VoiceOnLineChange", VoiceOnLineChange, 0, false, "1"),
    TAVIRO_NUMBER("Voice", "Volume", Volume, 50, true, "-1"),
    TAVIRO_NUMBER("Voice", "Rate", Rate, 0, true, "-1"),
    TAVIRO_NUMBER("Voice", "Pitch", Pitch, 0, true, "-1"),
    TAVIRO_NUMBER("Info", "ScanSizeX", ScanSizeX, 50, true, "1"),
    TAVIRO_NUMBER("Info", "ScanSizeY", ScanSizeY, 50, true, "1"),
    TAVIRO_NUMBER("Info", "ScanDelay", ScanDelay, 0, true, "1"),
    TAVIRO_NUMBER("Info", "CellTextSize", CellTextSize, 8, true, "1"),
    TAVIRO_NUMBER("Info", "CellWidth", CellWidth, 60, true, "1"),
    TAVIRO_NUMBER("Info", "CellHeight", CellHeight, 15, true, "1"),
    TAVIRO_NUMBER("Info", "Log", Log, 0, false, "1"),
};

class Setting : public testing::Test {
  protected:
    Setting() {
        Desktop.Files = {};
        Desktop.Files.CreateFolders(L"C:\\data");
        objSetting = cSetting{};
        ButtonTable = {};
    }

    static void Put(const std::string& strBytes, const std::wstring& strPath = strFile) {
        ASSERT_TRUE(platform::ReplaceFileBytes(strPath, strBytes));
    }

    static void Init() { objSetting.Init(strFile); }

    static void InitFrom(const std::string& strBytes) {
        Put(strBytes);
        Init();
    }

    static std::string Saved() {
        objSetting.SaveSetting();
        std::string strBytes = "(no file)";
        (void)platform::ReadFileBytes(strFile, strBytes);
        return strBytes;
    }

    /// The text of a key in the file as it is on disk; "(none)" when the key is missing.
    static std::string Stored(const std::string& strSection, const std::string& strKey) {
        std::string strBytes;
        (void)platform::ReadFileBytes(strFile, strBytes);
        return platform::ToAnsi(IniFile(strBytes).ReadString(
            platform::FromAnsi(strSection), platform::FromAnsi(strKey), L"(none)"));
    }

    static std::string KeyLine(const NumberProperty& objProperty, const std::string& strText) {
        return std::string("[") + objProperty.strSection + "]\r\n" + objProperty.strKey + "=" +
               strText + "\r\n";
    }

    static void ExpectKinds(const std::array<int, nButtonCount>& Kinds) {
        for (size_t i = 0; i < nButtonCount; ++i) {
            EXPECT_EQ(static_cast<int>(ButtonTable[i].Kind), Kinds[i]) << "button " << i;
        }
    }
};

constexpr std::array<int, nButtonCount> UsualKinds = {0, 1, 4, 4, 4, 4, 4, 4,
                                                      4, 4, 4, 4, 4, 4, 4, 4};

TEST_F(Setting, FreshObject_HoldsZeroesAndEmptyTexts) {
    for (const NumberProperty& objProperty : NumberProperties) {
        EXPECT_EQ((objSetting.*objProperty.Get)(), 0) << objProperty.strKey;
    }
    EXPECT_EQ(objSetting.VoiceName(), L"");
    EXPECT_EQ(objSetting.SndName(), L"");
}

TEST_F(Setting, Properties_AreTwentyOne) {
    EXPECT_EQ(std::size(NumberProperties) + 2, 21U);
}

TEST_F(Setting, MissingOrEmptyFile_GivesTheDefaults) {
    for (const bool bExists : {false, true}) {
        objSetting = cSetting{};
        ButtonTable = {};
        if (bExists) Put("");
        Init();
        for (const NumberProperty& objProperty : NumberProperties) {
            EXPECT_EQ((objSetting.*objProperty.Get)(), objProperty.nDefault) << objProperty.strKey;
        }
        EXPECT_EQ(objSetting.VoiceName(), L"Male");
        EXPECT_EQ(objSetting.SndName(), L"C:\\");
        ExpectKinds(UsualKinds);
    }
}

TEST_F(Setting, EveryNumber_IsReadFromItsKeyAlone) {
    for (const NumberProperty& objProperty : NumberProperties) {
        objSetting = cSetting{};
        InitFrom(KeyLine(objProperty, "7"));
        for (const NumberProperty& objOther : NumberProperties) {
            const bool bSame = objOther.strKey == objProperty.strKey;
            EXPECT_EQ((objSetting.*objOther.Get)(), bSame ? 7 : objOther.nDefault)
                << objOther.strKey << " when " << objProperty.strKey << " is 7";
        }
    }
}

TEST_F(Setting, EveryNumber_TakesTextAsItsReadingSays) {
    const struct {
        const char* strText;
        int32_t nInt;
        int32_t nWholeText;  ///< 0: stays as it is on a fresh object
    } Rows[] = {
        {"abc", 0, 0},        {"1x", 1, 0},  {"", 0, 0},      {"-4", -4, -4},
        {"2.5", 2, 2},        {"3.5", 3, 4}, {"\"9\"", 9, 9}, {"2147483648", -2147483647 - 1, 0},
        {"4294967297", 1, 0},
    };
    for (const NumberProperty& objProperty : NumberProperties) {
        for (const auto& Row : Rows) {
            objSetting = cSetting{};
            InitFrom(KeyLine(objProperty, Row.strText));
            EXPECT_EQ((objSetting.*objProperty.Get)(),
                      objProperty.bWholeText ? Row.nWholeText : Row.nInt)
                << objProperty.strKey << " = " << Row.strText;
        }
    }
}

TEST_F(Setting, TextThatIsNoNumber_KeepsTheEarlierValue) {
    for (const NumberProperty& objProperty : NumberProperties) {
        (objSetting.*objProperty.Set)(33);
        InitFrom(KeyLine(objProperty, "abc"));
        EXPECT_EQ((objSetting.*objProperty.Get)(), objProperty.bWholeText ? 33 : 0)
            << objProperty.strKey;
    }
}

TEST_F(Setting, Texts_AreRead) {
    InitFrom(
        "[Voice]\r\nNAME = \"Zuzana \xC8"
        "ern\xE1\"\r\n[INFO]\r\nsndname=D:\\zvuk\r\n");
    EXPECT_EQ(objSetting.VoiceName(), L"Zuzana Černá");
    EXPECT_EQ(objSetting.SndName(), L"D:\\zvuk");
}

TEST_F(Setting, ValueLongerThan1023Characters_IsCut) {
    InitFrom("[Voice]\r\nName=" + std::string(1500, 'x') +
             "\r\n[Buttons]\r\n3=" + std::string(1500, 'y'));
    EXPECT_EQ(objSetting.VoiceName(), std::wstring(1023, L'x'));
    EXPECT_EQ(ButtonTable[3].Command, std::wstring(1023, L'y'));
}

TEST_F(Setting, SetterOfANumber_StoresAnythingAndLeavesTheFileAlone) {
    Init();
    for (const NumberProperty& objProperty : NumberProperties) {
        for (const int32_t nValue : {-99999, 0, std::numeric_limits<int32_t>::max()}) {
            (objSetting.*objProperty.Set)(nValue);
            EXPECT_EQ((objSetting.*objProperty.Get)(), nValue) << objProperty.strKey;
        }
    }
    objSetting.VoiceName(L"Iveta");
    EXPECT_EQ(objSetting.VoiceName(), L"Iveta");
    EXPECT_FALSE(platform::FileExists(strFile));
}

TEST_F(Setting, SndName_StaysWhenAssigned) {
    Init();
    objSetting.SndName(L"D:\\zvuk");
    EXPECT_EQ(objSetting.SndName(), L"C:\\");
}

TEST_F(Setting, ApplicationFile_OverridesWholeSections) {
    Put("[Info]\r\nRowWrap=0\r\nColumnWrap=1\r\nCellWidth=99\r\n[Voice]\r\nVolume=70\r\n"
        "[Buttons]\r\n4=*mode\r\n");
    Put("[info]\r\nColumnWrap=5\r\n[Voice]\r\n\r\n;empty\r\n", strAppFile);
    objSetting.Init(strFile, strAppFile);
    EXPECT_EQ(objSetting.ColumnWrap(), 5);
    EXPECT_EQ(objSetting.RowWrap(), 1) << "missing there: the built-in default";
    EXPECT_EQ(objSetting.CellWidth(), 60) << "missing there: the built-in default";
    EXPECT_EQ(objSetting.Volume(), 70) << "a section without entries does not count";
    EXPECT_EQ(ButtonTable[4].Kind, ButtonKind::Mode);
}

TEST_F(Setting, MissingOrUnreadableApplicationFile_NeverMatches) {
    Put("[Info]\r\nColumnWrap=3\r\n");
    for (const wchar_t* strPath : {L"", L"C:\\nowhere\\app.ini", L"C:\\data"}) {
        objSetting.Init(strFile, strPath);
        EXPECT_EQ(objSetting.ColumnWrap(), 3);
    }
    Put("[Info]\r\nColumnWrap=5\r\n", strAppFile);
    Desktop.Files.Lock(strAppFile);
    objSetting.Init(strFile, strAppFile);
    EXPECT_EQ(objSetting.ColumnWrap(), 3);
}

TEST_F(Setting, ApplicationFileAlone_IsEnough) {
    Put("[Info]\r\nColumnWrap=5\r\n", strAppFile);
    objSetting.Init(strFile, strAppFile);
    EXPECT_EQ(objSetting.ColumnWrap(), 5);
    EXPECT_EQ(objSetting.Volume(), 50);
}

struct ButtonRow {
    const char* strText;
    int nKind;
    int32_t nCode;
    const wchar_t* strCommand;
};

TEST_F(Setting, ButtonText_GivesTheRecord) {
    // A record starts as code 5 and command "old": fields that its kind does not use stay.
    const ButtonRow Rows[] = {
        {"*action", 0, 5, L"old"},
        {"*mode", 1, 5, L"old"},
        {"*Action", 3, 5, L"*Action"},
        {"*mode x", 3, 5, L"*mode x"},
        {"12", 2, 12, L"old"},
        {"12abc", 2, 12, L"old"},
        {"20065", 2, 20065, L"old"},
        {" 1 2 x", 2, 12, L"old"},
        {"1.5", 2, 2, L"old"},
        {"2.5", 2, 2, L"old"},
        {"0.4", 2, 0, L"old"},
        {"99999999999", 2, 5, L"old"},
        {"", 4, 5, L"old"},
        {"-3", 3, 5, L"-3"},
        {"0", 3, 5, L"0"},
        {"notepad", 3, 5, L"notepad"},
        {"$C:\\Program Files\\a.exe$ -x", 3, 5, L"\"C:\\Program Files\\a.exe\" -x"},
        {"\"quoted\"", 3, 5, L"quoted"},
        {"|\xE8>", 3, 5, L"|č>"},
    };
    for (const ButtonRow& Row : Rows) {
        ButtonTable[7] = {ButtonKind::Mode, L"old", 5};
        InitFrom(std::string("[Buttons]\r\n7=") + Row.strText + "\r\n");
        EXPECT_EQ(static_cast<int>(ButtonTable[7].Kind), Row.nKind) << Row.strText;
        EXPECT_EQ(ButtonTable[7].Code, Row.nCode) << Row.strText;
        EXPECT_EQ(ButtonTable[7].Command, Row.strCommand) << Row.strText;
    }
}

TEST_F(Setting, OnlyEntryIsAction_LeavesButton0Unassigned) {
    InitFrom("[Buttons]\r\n5=*action\r\n");
    ExpectKinds({4, 1, 4, 4, 4, 0, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4});
}

TEST_F(Setting, OnlyEntryIsMode_LeavesButton1Unassigned) {
    InitFrom("[Buttons]\r\n15=*mode\r\n");
    ExpectKinds({0, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 1});
}

TEST_F(Setting, NoActionOrMode_OverridesButtons0And1) {
    InitFrom("[Buttons]\r\n0=65\r\n1=notepad\r\n2=66\r\n");
    ExpectKinds({0, 1, 2, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4});
    EXPECT_EQ(ButtonTable[0].Code, 65);
    EXPECT_EQ(ButtonTable[1].Command, L"notepad");
}

TEST_F(Setting, SeveralActionsAndModes_AllStay) {
    InitFrom("[Buttons]\r\n2=*mode\r\n3=*action\r\n9=*action\r\n10=*mode\r\n");
    ExpectKinds({4, 4, 1, 0, 4, 4, 4, 4, 4, 0, 1, 4, 4, 4, 4, 4});
}

TEST_F(Setting, ButtonKeys_AreZeroTo15WithoutLeadingZeros) {
    InitFrom("[Buttons]\r\n02=*mode\r\n16=*mode\r\n-1=*mode\r\n15=17\r\n");
    ExpectKinds({0, 1, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 2});
}

TEST_F(Setting, FirstSave_WritesTheKeysInOrder) {
    Init();
    EXPECT_EQ(Saved(), strFirstSave);
}

TEST_F(Setting, MinusOne_IsSavedAsOneWhereOnIsMeant) {
    for (const NumberProperty& objProperty : NumberProperties) {
        Init();
        (objSetting.*objProperty.Set)(-1);
        objSetting.SaveSetting();
        EXPECT_EQ(Stored(objProperty.strSection, objProperty.strKey),
                  objProperty.strOff == nullptr ? "(none)" : objProperty.strOff)
            << objProperty.strKey;
    }
}

TEST_F(Setting, SmallestNumber_IsSavedWithoutItsSign) {
    Init();
    objSetting.CellWidth(std::numeric_limits<int32_t>::min());
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Info", "CellWidth"), "2147483648");
}

TEST_F(Setting, EverySavedNumber_IsReadBack) {
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

TEST_F(Setting, Save_WritesTheVoiceNameUnquoted) {
    Init();
    objSetting.VoiceName(L"Zuzana \"Zuzka\" Černá");
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Voice", "Name"),
              "Zuzana \"Zuzka\" \xC8"
              "ern\xE1");
}

TEST_F(Setting, SaveButton_WritesItsText) {
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

TEST_F(Setting, UnassignedButton_LosesEveryLineOfItsKey) {
    InitFrom("[Buttons]\r\n0=*action\r\n1=*mode\r\n2=65\r\n2=66\r\n");
    ButtonTable[2].Kind = ButtonKind::Unassigned;
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Buttons", "2"), "(none)");
}

TEST_F(Setting, Save_KeepsWhatItDoesNotOwn) {
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

TEST_F(Setting, Save_WritesIntoTheFileOfThatMoment) {
    Init();
    Put("[Info]\r\nRowWrap=0\r\nNote=written meanwhile\r\n");
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Info", "Note"), "written meanwhile");
    EXPECT_EQ(Stored("Info", "RowWrap"), "1");
}

TEST_F(Setting, Save_GoesToTheDefaultFileOnly) {
    Put("[Info]\r\nColumnWrap=5\r\n", strAppFile);
    objSetting.Init(strFile, strAppFile);
    objSetting.ColumnWrap(6);
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Info", "ColumnWrap"), "6");
    std::string strBytes;
    ASSERT_TRUE(platform::ReadFileBytes(strAppFile, strBytes));
    EXPECT_EQ(strBytes, "[Info]\r\nColumnWrap=5\r\n");
}

TEST_F(Setting, Save_ReplacesTheFileOnceAndOnlyWhenItChanges) {
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

TEST_F(Setting, FileLockedAtInit_KeepsItsValuesButForChanges) {
    const std::string strOwn =
        "[Info]\r\nRowWrap=0\r\nLog=1\r\n[Voice]\r\nName=Iveta\r\nVolume=80\r\n"
        "[Buttons]\r\n0=*mode\r\n1=*action\r\n2=65\r\n3=notepad\r\n";
    Put(strOwn);
    Desktop.Files.Lock(strFile);
    Init();
    EXPECT_EQ(objSetting.VoiceName(), L"Male");
    ExpectKinds(UsualKinds);
    Desktop.Files.Lock(strFile, false);
    EXPECT_EQ(Saved(), strOwn) << "nothing was changed";
    objSetting.Volume(60);
    ButtonTable[3] = {ButtonKind::Code, L"", 70};
    EXPECT_EQ(Saved(),
              "[Info]\r\nRowWrap=0\r\nLog=1\r\n[Voice]\r\nName=Iveta\r\nVolume=60\r\n"
              "[Buttons]\r\n0=*mode\r\n1=*action\r\n2=65\r\n3=70\r\n");
}

TEST_F(Setting, FileLockedAtAnEarlierInit_IsForgottenByTheNext) {
    Put("[Info]\r\nRowWrap=0\r\n");
    Desktop.Files.Lock(strFile);
    Init();
    Desktop.Files.Lock(strFile, false);
    Init();
    objSetting.SaveSetting();
    EXPECT_EQ(Stored("Voice", "Volume"), "50");
}

TEST_F(Setting, FileLockedAtSave_StaysAsItIs) {
    const std::string strOwn = "[Info]\r\nRowWrap=0\r\n";
    InitFrom(strOwn);
    Desktop.Files.Lock(strFile);
    objSetting.SaveSetting();
    Desktop.Files.Lock(strFile, false);
    std::string strBytes;
    ASSERT_TRUE(platform::ReadFileBytes(strFile, strBytes));
    EXPECT_EQ(strBytes, strOwn);
}

TEST_F(Setting, FailedWrite_LeavesTheOldFile) {
    const std::string strOwn = "[Info]\r\nRowWrap=0\r\n";
    InitFrom(strOwn);
    Desktop.Files.SetReadOnly(strFile);
    EXPECT_EQ(Saved(), strOwn);
    Desktop.Files.SetReadOnly(strFile, false);
    Desktop.Files.nFreeBytes = 10;
    EXPECT_EQ(Saved(), strOwn);
}

TEST_F(Setting, FolderInPlaceOfTheFile_IsIgnored) {
    ASSERT_TRUE(platform::CreateFolder(strFile));
    Init();
    EXPECT_EQ(objSetting.Volume(), 50);
    EXPECT_EQ(Saved(), "(no file)");
    EXPECT_TRUE(platform::FolderExists(strFile));
}

TEST_F(Setting, MissingFolder_IsIgnored) {
    objSetting.Init(L"C:\\nowhere\\setting.ini");
    objSetting.SaveSetting();
    EXPECT_FALSE(platform::FolderExists(L"C:\\nowhere"));
}

TEST_F(Setting, SaveBeforeInit_WritesNothing) {
    objSetting.SaveSetting();
    EXPECT_EQ(Desktop.Files.List(L"*").size(), 0U);
}

TEST_F(Setting, BinaryJunk_SurvivesASave) {
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

}  // namespace
}  // namespace taviro
