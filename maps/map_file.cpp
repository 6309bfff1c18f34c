// SPDX-License-Identifier: MIT
#include "maps/map_file.h"

#include <charconv>
#include <system_error>

#include "maps/shown_map.h"
#include "platform/byte_order_mark.h"
#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/text.h"
#include "platform/unneeded.h"
#include "state/program_state.h"

namespace taviro {

namespace {

constexpr std::string_view LINE_END = "\r\n";

// Takes the next line off the text. CR and LF each end one: between the two of a pair stands an
// empty line, which stores nothing.
std::string_view TakeLine(std::string_view& strRest) {
    const auto nEnd = strRest.find_first_of(LINE_END);
    if (nEnd == std::string_view::npos) {
        const std::string_view strLast = strRest;
        strRest = {};
        return strLast;
    }
    const std::string_view strLine = strRest.substr(0, nEnd);
    strRest.remove_prefix(nEnd + 1);
    return strLine;
}

// The number at the start of the text, rounded. Leaves nValue alone when it does not fit.
void ReadNumber(std::string_view strText, int32_t& nValue) {
    // Plain whole numbers, which are all but a few, need no conversion.
    int32_t nPlain{};
    const char* pEnd = strText.data() + strText.size();
    const auto [pStop, nError] = std::from_chars(strText.data(), pEnd, nPlain);
    if (nError == std::errc{} && pStop == pEnd) {
        nValue = nPlain;
    } else {
        const double fNumber = platform::LeadingNumber(platform::FromAnsi(strText));
        Unneeded(platform::RoundToInt32(fNumber, nValue));
    }
}

// Reads one map file into a grid; the cell of the last key carries over to the next line.
class MapReader {
  public:
    explicit MapReader(MapGrid& Grid) : m_Grid(Grid) {}

    bool bLostCharacters = false;  // some could not be read

    void ReadLine(std::string_view strLine) {
        if (strLine.starts_with('_')) return ContinueCommand(strLine.substr(1));
        const auto nBracket = strLine.find(']');
        if (nBracket != std::string_view::npos) {
            ReadKey(strLine.substr(0, nBracket));
            strLine.remove_prefix(nBracket + 1);
        }
        const auto nComma = strLine.find(',');
        if (nComma == std::string_view::npos) return;
        if (StoreCell(strLine.substr(0, nComma), strLine.substr(nComma + 1))) ++nStored;
    }

    int32_t nStored = 0;  // cell lines that stored a cell

  private:
    std::wstring Text(std::string_view strPart) {
        if (!m_Grid.bUnicodeFile) return platform::FromAnsi(strPart);
        std::wstring strText = platform::FromUtf8(strPart);
        constexpr wchar_t LOST = 0xFFFD;
        if (strText.find(LOST) != std::wstring::npos) bLostCharacters = true;
        return strText;
    }

    void ContinueCommand(std::string_view strMore) {
        if (MapCell* pCell = m_Grid.Cell(m_nColumn, m_nRow)) {
            pCell->Command += Text(strMore);
        }
    }

    // The key is "[column,row" here. Without a comma, or with nothing before it, the column stays
    // and the whole key is read as the row.
    void ReadKey(std::string_view strKey) {
        const auto nComma = strKey.find(',');
        if (nComma != std::string_view::npos) {
            if (nComma > 0) ReadNumber(strKey.substr(1, nComma - 1), m_nColumn);
            strKey.remove_prefix(nComma + 1);
        }
        ReadNumber(strKey, m_nRow);
    }

    // Returns false when the cell is outside the grid.
    bool StoreCell(std::string_view strCaption, std::string_view strRest) {
        MapCell* pCell = m_Grid.Cell(m_nColumn, m_nRow);
        if (pCell == nullptr) return false;
        const auto nComma = strRest.find(',');
        int32_t nCode = pCell->Code;
        ReadNumber(strRest.substr(0, nComma), nCode);
        *pCell = {.Caption = Text(strCaption),
                  .Code = nCode,
                  .Command = nComma == std::string_view::npos ? std::wstring{}
                                                              : Text(strRest.substr(nComma + 1))};
        return true;
    }

    MapGrid& m_Grid;
    int32_t m_nColumn = 0;
    int32_t m_nRow = 0;
};

// Whether cells stand where no row of the map is: they were read, and are not written again.
bool HasCellsBehindItsEnd(const MapGrid& Grid) {
    bool bEnded = false;
    for (int32_t nRow = 0; nRow <= MAP_ROWS; ++nRow) {
        bEnded = bEnded || (nRow > 0 && Grid.Cell(1, nRow)->Caption.empty());
        for (int32_t nColumn = 0; nColumn <= MAP_COLUMNS; ++nColumn) {
            const bool bWritten = !bEnded && nRow > 0 && nColumn > 0;
            if (!bWritten && !Grid.Cell(nColumn, nRow)->Caption.empty()) return true;
        }
    }
    return false;
}

// Whether the code page lacks a character of a cell, of a person's name in a path for one.
bool NeedsUnicode(const MapGrid& Grid) {
    for (int32_t nRow = 1; nRow <= MAP_ROWS; ++nRow) {
        for (int32_t nColumn = 1; nColumn <= MAP_COLUMNS; ++nColumn) {
            const MapCell& Cell = *Grid.Cell(nColumn, nRow);
            if (!platform::IsInCodePage(Cell.Caption) || !platform::IsInCodePage(Cell.Command)) {
                return true;
            }
        }
    }
    return false;
}

// Moves a file that holds more than the map out of the way, so that a save does not destroy it.
bool KeepAside(const std::wstring& strPath) {
    std::wstring strKept = strPath + L".bak";
    for (int n = 2; platform::FileExists(strKept); ++n) {
        strKept = strPath + L".bak" + std::to_wstring(n);
    }
    return platform::MoveFileTo(strPath, strKept);
}

std::wstring AppMapPath(const std::wstring& strAppName) {
    return Program.strDataPath + L"\\data_" + strAppName + L".ini";
}

}  // namespace

std::wstring MapPath(const std::wstring& strAppName) {
    return strAppName.empty() ? Program.strDataPath + L"\\data.ini" : AppMapPath(strAppName);
}

int32_t ReadMapText(std::string_view strBytes, MapGrid& Grid) {
    std::string strMarked;
    Grid.bUnicodeFile = platform::HasByteOrderMark(strBytes);
    if (Grid.bUnicodeFile) strBytes = strMarked = platform::MarkedTextAsUtf8(strBytes);
    MapReader Reader(Grid);
    while (!strBytes.empty())
        Reader.ReadLine(TakeLine(strBytes));
    Grid.bFileHoldsMore = Reader.bLostCharacters || HasCellsBehindItsEnd(Grid);
    return Reader.nStored;
}

bool LoadMap(const std::wstring& strAppName) {
    MapGrid& Grid = strAppName.empty() ? CommonMap : AppMap;
    if (!strAppName.empty()) AppMap.Clear();
    const std::wstring strPath = MapPath(strAppName);
    if (!platform::FileExists(strPath)) return false;
    std::string strBytes;
    const bool bRead = platform::ReadFileBytes(strPath, strBytes);
    const int32_t nStored = ReadMapText(strBytes, Grid);
    if (!bRead || (nStored == 0 && !strBytes.empty())) Grid.bFileHoldsMore = true;
    return bRead;
}

std::string WriteMapText(const MapGrid& Grid) {
    std::string strText(Grid.bUnicodeFile ? platform::UTF8_MARK : std::string_view{});
    const auto Bytes = [&](std::wstring_view strPart) {
        return Grid.bUnicodeFile ? platform::ToUtf8(strPart) : platform::ToAnsi(strPart);
    };
    // The walk is wider than the grid. A read outside it fails and leaves the last cell read, so a
    // cell in the last column repeats itself to column 50; readers ignore those lines.
    const MapCell* pLast = nullptr;
    const auto Read = [&](int32_t nColumn, int32_t nRow) {
        if (const MapCell* pCell = Grid.Cell(nColumn, nRow)) pLast = pCell;
        return pLast;
    };
    for (int32_t nRow = 1; nRow <= MAP_SEARCH_END; ++nRow) {
        if (Read(1, nRow)->Caption.empty()) break;
        for (int32_t nColumn = 1; nColumn <= MAP_SEARCH_END; ++nColumn) {
            const MapCell& Cell = *Read(nColumn, nRow);
            const auto strCaption = platform::TrimBlanks(Cell.Caption);
            if (strCaption.empty()) continue;
            strText += '[' + std::to_string(nColumn) + ',' + std::to_string(nRow) + ']';
            strText += Bytes(strCaption) + ',' + std::to_string(Cell.Code);
            const auto strCommand = platform::TrimBlanks(Cell.Command);
            if (!strCommand.empty()) strText += ',' + Bytes(strCommand);
            strText += LINE_END;
        }
    }
    return strText;
}

void SaveCell(int32_t nColumn, int32_t nRow, const MapCell& Cell) {
    MapGrid& Grid = ShownMap();
    if (MapCell* pCell = Grid.Cell(nColumn, nRow)) *pCell = Cell;
    std::wstring strPath;
    if (Foreground.bAppMapShown) {
        ShowAppMap();
        strPath = AppMapPath(Foreground.AppMapName);
    } else {
        ShowMap(false);
        strPath = MapPath(L"");
    }
    if (Grid.bFileHoldsMore && !KeepAside(strPath)) return;
    Grid.bUnicodeFile = Grid.bUnicodeFile || NeedsUnicode(Grid);
    if (platform::ReplaceFileBytes(strPath, WriteMapText(Grid))) Grid.bFileHoldsMore = false;
}

}  // namespace taviro
