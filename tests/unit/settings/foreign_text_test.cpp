// SPDX-License-Identifier: MIT
// Texts that the code page of the files lacks, as the paths of a person with such a name are: what
// was entered comes back after the next start.
#include <string>

#include "maps/map_file.h"
#include "maps/map_grid.h"
#include "maps/shown_map.h"
#include "platform/byte_order_mark.h"
#include "platform/files.h"
#include "settings/button_table.h"
#include "settings/ini_file.h"
#include "settings/setting.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

const std::wstring FOREIGN_PATH = L"C:\\Users\\Жанна 日本\\kniha.docx";
const std::string MARK(platform::UTF8_MARK);

std::string WithForeignText(const std::string& strFile) {
    IniFile objFile(strFile);
    objFile.Write({L"s", L"first", L"žluť"});
    objFile.Write({L"s", L"k", FOREIGN_PATH});
    return objFile.Bytes();
}

TEST(ForeignTextInIni, File_BecomesUtf8_AndKeepsAllElse) {
    EXPECT_EQ(WithForeignText("[s]\r\nk=v\r\n; \x9E\r\nx=\xFF\r\n"),
              MARK + "[s]\r\nk=C:\\Users\\Жанна 日本\\kniha.docx\r\n; ž\r\nx=˙\r\nfirst=žluť\r\n");
    EXPECT_EQ(WithForeignText(""),
              MARK + "[s]\r\nfirst=žluť\r\nk=C:\\Users\\Жанна 日本\\kniha.docx\r\n");
}

TEST(ForeignTextInIni, File_StaysInTheCodePage_WhenItHasTheText) {
    IniFile objFile("[s]\r\nk=v\r\n");
    objFile.Write({L"s", L"k", L"žluť"});
    EXPECT_EQ(objFile.Bytes(), "[s]\r\nk=\x9Elu\x9D\r\n");
}

TEST(ForeignTextInIni, Text_IsReadByTheMark) {
    const IniFile objFile(WithForeignText("[s]\r\nnumber=12\r\n"));
    EXPECT_EQ(objFile.ReadString(L"s", L"k", L""), FOREIGN_PATH);
    EXPECT_EQ(objFile.ReadString(L"s", L"first", L""), L"žluť");
    EXPECT_EQ(objFile.ReadInt(L"s", L"number", 0), 12);
    EXPECT_EQ(IniFile("[s]\r\nk=\xC5\xBE\r\n").ReadString(L"s", L"k", L""), L"Ĺľ")
        << "without it the bytes are the code page's";
    EXPECT_EQ(IniFile(MARK + "[s]\r\nk=\x9Elu\x9D\r\n").ReadString(L"s", L"k", L""), L"žluť")
        << "what earlier versions wrote behind a mark";
}

TEST(ForeignTextInIni, Text_IsCutByItsCharacters) {
    IniFile objFile;
    objFile.Write({L"s", L"k", std::wstring(2000, L'Ж')});
    EXPECT_EQ(IniFile(objFile.Bytes()).ReadString(L"s", L"k", L""), std::wstring(1023, L'Ж'));
}

TEST(ForeignTextInIni, Text_IsNotCutWithinACharacter) {
    const std::wstring strLetters(1022, L'Ж');
    IniFile objFile;
    objFile.Write({L"s", L"k", strLetters + platform::FromUtf8("\xF0\x9F\x98\x80")});
    EXPECT_EQ(IniFile(objFile.Bytes()).ReadString(L"s", L"k", L""), strLetters);
}

TEST(ForeignTextInIni, CharacterBeyond16Bits_ComesBack) {
    const std::wstring strText = platform::FromUtf8("\xF0\x9F\x98\x80");
    IniFile objFile;
    objFile.Write({L"s", L"k", strText});
    EXPECT_EQ(objFile.Bytes(), MARK + "[s]\r\nk=\xF0\x9F\x98\x80\r\n");
    EXPECT_EQ(IniFile(objFile.Bytes()).ReadString(L"s", L"k", L""), strText);
}

class ForeignText : public ProgramTest {
  protected:
    ForeignText() { PrepareBare(); }
    static void InitAnew() {
        objSetting = cSetting{};
        ButtonTable = {};
        objSetting.Init(DATA_PATH + L"\\setting.ini", L"");
    }
};

TEST_F(ForeignText, ButtonsCommandAndVoice_ComeBackAsTheyWere) {
    ButtonTable[3] = {ButtonKind::Command, L"\"" + FOREIGN_PATH + L"\"", 0};
    objSetting.VoiceName(L"Голос");
    for (int nStart = 0; nStart < 2; ++nStart) {
        objSetting.SaveSetting();
        InitAnew();
        EXPECT_EQ(ButtonTable[3].Command, L"\"" + FOREIGN_PATH + L"\"");
        EXPECT_EQ(objSetting.VoiceName(), L"Голос");
        EXPECT_EQ(objSetting.Volume(), 50);
    }
}

TEST_F(ForeignText, CellsCommand_ComesBackAsItWas_AndTheOthersToo) {
    PutData(L"data.ini", L"[1,1]žluť,65\r\n[2,1]kniha,0\r\n");
    ASSERT_TRUE(LoadMap(L""));
    SaveCell(2, 1, {.Caption = L"книга", .Code = 0, .Command = FOREIGN_PATH});
    CommonMap.Clear();
    ASSERT_TRUE(LoadMap(L""));
    EXPECT_EQ(CommonMap.Cell(1, 1)->Caption, L"žluť");
    EXPECT_EQ(CommonMap.Cell(2, 1)->Caption, L"книга");
    EXPECT_EQ(CommonMap.Cell(2, 1)->Command, FOREIGN_PATH);
    EXPECT_FALSE(platform::FileExists(DATA_PATH + L"\\data.ini.bak"));
}

// A letter that a code page lacks is "?" in it, and no file has that in its name.
TEST(ForeignFile, IsNotFound_ByWhatTheCodePageMakesOfItsName) {
    Desktop = platform::headless::DesktopState{};
    EXPECT_FALSE(platform::CreateFolder(L"C:\\????? ??"));
    ASSERT_TRUE(platform::CreateFolder(L"C:\\Жанна 日本"));
    EXPECT_TRUE(platform::ReplaceFileBytes(L"C:\\Жанна 日本\\a", "1"));
    EXPECT_FALSE(platform::FileExists(L"C:\\????? ??\\a"));
    EXPECT_FALSE(platform::ReplaceFileBytes(L"C:\\Жанна 日本\\?", "1"));
}

}  // namespace
}  // namespace taviro
