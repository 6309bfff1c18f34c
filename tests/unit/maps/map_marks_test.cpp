// SPDX-License-Identifier: MIT
// Maps that an editor saved with a byte order mark, and what a save keeps of a file that holds more
// than the map.
#include <string>

#include "maps/map_file.h"
#include "maps/map_grid.h"
#include "maps/shown_map.h"
#include "platform/files.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

const std::wstring MAP_FILE = DATA_PATH + L"\\data.ini";

class MarkedMaps : public ProgramTest {
  protected:
    MarkedMaps() { PrepareBare(); }

    static void Load(const std::string& strBytes) {
        Desktop.Files.Put(MAP_FILE, strBytes);
        CommonMap.Clear();
        ASSERT_TRUE(LoadMap(L""));
    }
    static std::string FileBytes(const std::wstring& strPath = MAP_FILE) {
        std::string strBytes = "(none)";
        Desktop.Files.Read(strPath, strBytes);
        return strBytes;
    }
    static void SaveFirstCell() { SaveCell(1, 1, *CommonMap.Cell(1, 1)); }
    /// The text as UTF-16, mark included.
    static std::string Utf16(const std::wstring& strText, bool bLittleEndFirst) {
        std::string strBytes;
        for (const wchar_t nUnit : L'\xFEFF' + strText) {
            const auto nHigh = static_cast<char>(nUnit >> 8 & 0xFF);
            const auto nLow = static_cast<char>(nUnit & 0xFF);
            strBytes += bLittleEndFirst ? nLow : nHigh;
            strBytes += bLittleEndFirst ? nHigh : nLow;
        }
        return strBytes;
    }
};

const std::wstring TEXT = L"[1,1]žluť,65\r\n[2,1]\u2192 dál,39,^příkaz\r\n_ \u03B1\r\n";
const std::string SAVED = "\xEF\xBB\xBF[1,1]žluť,65\r\n[2,1]\u2192 dál,39,^příkaz \u03B1\r\n";

TEST_F(MarkedMaps, Map_IsReadWhole_AndNothingIsLostByTheNextSave) {
    const std::pair<const char*, std::string> FILES[] = {
        {"UTF-8", "\xEF\xBB\xBF" + platform::ToUtf8(TEXT)},
        {"UTF-16", Utf16(TEXT, true)},
        {"UTF-16, other order", Utf16(TEXT, false)},
    };
    for (const auto& [szName, strBytes] : FILES) {
        SCOPED_TRACE(szName);
        Load(strBytes);
        EXPECT_EQ(CommonMap.Cell(1, 1)->Caption, L"žluť");
        EXPECT_EQ(CommonMap.Cell(1, 1)->Code, 65);
        EXPECT_EQ(CommonMap.Cell(2, 1)->Caption, L"\u2192 dál");
        EXPECT_EQ(CommonMap.Cell(2, 1)->Command, L"^příkaz \u03B1");
        SaveFirstCell();
        EXPECT_EQ(FileBytes(), SAVED);
        EXPECT_FALSE(platform::FileExists(MAP_FILE + L".bak"));
        CommonMap.Clear();
        ASSERT_TRUE(LoadMap(L""));
        EXPECT_EQ(CommonMap.Cell(2, 1)->Caption, L"\u2192 dál");
    }
}

TEST_F(MarkedMaps, MapWithoutAMark_StaysInTheCodePage) {
    Load("[1,1]\x9Elu\x9D,65\r\n");
    SaveFirstCell();
    EXPECT_EQ(FileBytes(), "[1,1]\x9Elu\x9D,65\r\n");
    Load("\xEF\xBB\xBF[1,1]a,65\r\n");
    Load("[1,1]\x9Elu\x9D,65\r\n");
    EXPECT_EQ(CommonMap.Cell(1, 1)->Caption, L"žluť") << "the mark was the other file's";
}

TEST_F(MarkedMaps, File_IsKeptAside_WhenASaveWouldLoseWhatItHolds) {
    const std::pair<const char*, std::string> FILES[] = {
        {"rows behind a missing first cell", "[1,1]a,65\r\n[2,2]b,66\r\n[1,3]c,67\r\n"},
        {"no first cell at all", "[2,1]A,0\r\n"},
        {"a column that is never shown", "[1,1]a,65\r\n[0,1]b,66\r\n"},
        {"a row that is never shown", "[1,1]a,65\r\n[1,0]b,66\r\n"},
        {"no character", "\xEF\xBB\xBF[1,1]a,65\r\n[2,1]\xFF,66\r\n"},
    };
    for (const auto& [szName, strBytes] : FILES) {
        SCOPED_TRACE(szName);
        Desktop.Files.Remove(MAP_FILE + L".bak");
        Load(strBytes);
        SaveFirstCell();
        EXPECT_EQ(FileBytes(MAP_FILE + L".bak"), strBytes);
        SaveFirstCell();
        EXPECT_FALSE(platform::FileExists(MAP_FILE + L".bak2")) << "once is enough";
    }
}

TEST_F(MarkedMaps, NothingIsKeptAside_WhenTheSaveWritesAllThatWasRead) {
    Load("[1,1]a,65\r\n[3,1]b,66\r\n[1,2]c,67\r\n[41,1]x,1\r\n");
    SaveFirstCell();
    EXPECT_FALSE(platform::FileExists(MAP_FILE + L".bak")) << "a gap in a row is written";
}

}  // namespace
}  // namespace taviro
