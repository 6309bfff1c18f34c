// SPDX-License-Identifier: MIT
#include "settings/setting.h"

#include <gtest/gtest.h>
#include <limits>

#include "tests/unit/settings/setting_fixture.h"

namespace taviro {
namespace {

using platform::headless::Desktop;

using Setting = SettingTest;

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
    EXPECT_FALSE(platform::FileExists(SETTING_FILE));
}

TEST_F(Setting, SndName_StaysWhenAssigned) {
    Init();
    objSetting.SndName(L"D:\\zvuk");
    EXPECT_EQ(objSetting.SndName(), L"C:\\");
}

TEST_F(Setting, ApplicationFile_OverridesWholeSections) {
    Put("[Info]\r\nRowWrap=0\r\nColumnWrap=1\r\nCellWidth=99\r\n[Voice]\r\nVolume=70\r\n"
        "[Buttons]\r\n4=*mode\r\n");
    Put("[info]\r\nColumnWrap=5\r\n[Voice]\r\n\r\n;empty\r\n", APP_FILE);
    objSetting.Init(SETTING_FILE, APP_FILE);
    EXPECT_EQ(objSetting.ColumnWrap(), 5);
    EXPECT_EQ(objSetting.RowWrap(), 1) << "missing there: the built-in default";
    EXPECT_EQ(objSetting.CellWidth(), 60) << "missing there: the built-in default";
    EXPECT_EQ(objSetting.Volume(), 70) << "a section without entries does not count";
    EXPECT_EQ(ButtonTable[4].Kind, ButtonKind::Mode);
}

TEST_F(Setting, MissingOrUnreadableApplicationFile_NeverMatches) {
    Put("[Info]\r\nColumnWrap=3\r\n");
    for (const wchar_t* strPath : {L"", L"C:\\nowhere\\app.ini", L"C:\\data"}) {
        objSetting.Init(SETTING_FILE, strPath);
        EXPECT_EQ(objSetting.ColumnWrap(), 3);
    }
    Put("[Info]\r\nColumnWrap=5\r\n", APP_FILE);
    Desktop.Files.Lock(APP_FILE);
    objSetting.Init(SETTING_FILE, APP_FILE);
    EXPECT_EQ(objSetting.ColumnWrap(), 3);
}

TEST_F(Setting, ApplicationFileAlone_IsEnough) {
    Put("[Info]\r\nColumnWrap=5\r\n", APP_FILE);
    objSetting.Init(SETTING_FILE, APP_FILE);
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
        // Quotes of the file's, within those that reading takes away, for what is no command
        // without them; other quotes are the command's own.
        {"\"\"7zFM.exe\"\"", 3, 5, L"7zFM.exe"},
        {"\"\"*mode\"\"", 3, 5, L"*mode"},
        {"\"\"\"\"", 3, 5, L""},
        {"\"\"C:\\a.exe\"\"", 3, 5, L"\"C:\\a.exe\""},
        {"\"\"", 4, 5, L"old"},
        {"\"77", 3, 5, L"\"77"},  // one quote alone is the command's own too
        {"x77\"", 3, 5, L"x77\""},
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

}  // namespace
}  // namespace taviro
