// SPDX-License-Identifier: MIT
// The cell editor as a user meets it: a common map on screen, the editor opened for one cell.
#pragma once

#include <string>

#include "dialogs/cell_editor_form.h"
#include "maps/map_file.h"
#include "maps/map_window.h"
#include "maps/shown_map.h"
#include "state/cursor_state.h"
#include "tests/unit/program_fixture.h"

namespace taviro {

class CellEditorTest : public ProgramTest {
  protected:
    CellEditorTest() { Start(); }

    /// Replaces the common map, its file and what is on screen.
    static void ShowCommon(const std::wstring& strLines) {
        PutData(L"data.ini", strLines);
        CommonMap.Clear();
        ASSERT_TRUE(LoadMap(L""));
        ShowMap(true);
    }
    static void ShowApplication(const std::wstring& strName, const std::wstring& strLines) {
        PutData(L"data_" + strName + L".ini", strLines);
        ASSERT_TRUE(LoadMap(strName));
        ShowAppMap();
        Foreground.AppMapName = strName;
    }
    static void OpenAt(int32_t nColumn, int32_t nRow) {
        Cursor.nColumn = nColumn;
        Cursor.nRow = nRow;
        frmConfig->Show();
    }
    /// A map of one cell, opened.
    static void OpenCell(const std::wstring& strAfterKey) {
        ShowCommon(L"[1,1]" + strAfterKey + L"\r\n");
        OpenAt(1, 1);
    }
    static void Ok() { frmConfig->cmdOK.Click(); }
    static std::wstring CommonFile() { return DataText(L"data.ini"); }
    /// The one cell of OpenCell as it is in the file after OK.
    static std::string SavedCell() {
        Ok();
        const std::wstring strFile = CommonFile();
        const std::wstring strKey = L"[1,1]";
        if (!strFile.starts_with(strKey) || !strFile.ends_with(L"\r\n")) {
            return "no cell: " + platform::ToUtf8(strFile);
        }
        const auto nLength = strFile.size() - strKey.size() - 2;
        return platform::ToUtf8(strFile.substr(strKey.size(), nLength));
    }
    /// Which modifiers are ticked, as "SCAW".
    static std::string Ticked() {
        std::string strTicked;
        if (frmConfig->chkSHIFT.Value) strTicked += 'S';
        if (frmConfig->chkCTRL.Value) strTicked += 'C';
        if (frmConfig->chkALT.Value) strTicked += 'A';
        if (frmConfig->chkWin.Value) strTicked += 'W';
        return strTicked;
    }
    static std::string Text(const forms::TextBox& Box) { return platform::ToUtf8(Box.Text.Get()); }
    static std::string SelectedKey() {
        return platform::ToUtf8(frmConfig->ComboKey.SelectedText());
    }
};

}  // namespace taviro
