// SPDX-License-Identifier: MIT
#include "dialogs/cell_editor_form.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/entered_text.h"
#include "dialogs/key_choice.h"
#include "maps/map_file.h"
#include "maps/map_window.h"
#include "state/cursor_state.h"
#include "state/program_state.h"

namespace taviro {

namespace {

constexpr wchar_t COLUMN_MARK = L'^';
constexpr std::wstring_view MODE_MARKS = L"<|>";  // of the options 1 to 3
constexpr int32_t NO_MODE_MARK = 0;
constexpr int32_t NO_KEY = 0;

// A caption as the map file can hold it: the comma ends it there, and blanks before it are lost.
std::wstring StorableCaption(const std::wstring& strEntered) {
    std::wstring strLine = OneLine(strEntered);
    std::erase(strLine, L',');
    strLine.erase(0, std::min(strLine.find_first_not_of(L' '), strLine.size()));
    return strLine;
}

KeyChoice KeyOfForm(CellEditorForm& Form) {
    return {Form.ComboKey, Form.chkSHIFT, Form.chkCTRL, Form.chkALT, Form.chkWin};
}

void FillNumbers(forms::ComboBox& Combo, int32_t nSelected) {
    std::vector<std::wstring> Numbers;
    for (int32_t n = 1; n <= MAP_SEARCH_END; ++n)
        Numbers.push_back(std::to_wstring(n));
    Combo.Clear();
    Combo.Items = Numbers;
    Combo.Select(nSelected - 1);
}

}  // namespace

CellEditorForm::CellEditorForm() : Form(L"frmConfig") {
    AdmitAs(Text4, StorableCaption);
    AdmitAs(Text3, OneLine);
    const auto Touch = [this] { bChanged = true; };
    ComboX.OnClick = Touch;
    ComboY.OnClick = Touch;
    Text3.OnChange = Touch;
    Text4.OnChange = Touch;
    OptSetMode.OnClick = [Touch](int32_t) { Touch(); };
    OptionType.OnClick = [this](int32_t nKind) { EnableFor(nKind); };
    OnLoad = [this] { Open(); };
    OnActivate = [] { Program.bDialogActive = true; };
    OnUnload = [] {
        Program.bDialogActive = false;
        Program.bConfigOpen = false;
    };
    cmdOK.OnClick = [this] {
        Save();
        Unload();
    };
    cmdCancel.OnClick = [this] { Unload(); };
}

void CellEditorForm::Open() {
    Program.bConfigOpen = true;
    m_nColumn = Cursor.nColumn;
    m_nRow = Cursor.nRow;
    m_bAppMap = Foreground.bAppMapShown;
    m_strAppMap = Foreground.AppMapName;
    FillNumbers(ComboX, m_nColumn);
    FillNumbers(ComboY, m_nRow);
    const MapCell* pCell = ShownMap().Cell(m_nColumn, m_nRow);
    const MapCell Cell = pCell == nullptr ? MapCell{} : *pCell;
    Caption = L"Nastavení položky - " + Cell.Caption;
    Text4.Text = Cell.Caption;
    lblCode.Caption = L"kód " + std::to_wstring(Cell.Code);
    FillCommand(Cell.Command);
    OptionType.Choose(Cell.Code != 0 ? CELL_KIND_KEY : CELL_KIND_NO_KEY);
    KeyOfForm(*this).Show(Cell.Code);
    bChanged = false;
}

void CellEditorForm::FillCommand(std::wstring strCommand) {
    ChkResetColumnOnAction.Value = std::erase(strCommand, COLUMN_MARK) > 0;
    const auto nMark =
        strCommand.empty() ? std::wstring_view::npos : MODE_MARKS.find(strCommand[0]);
    const bool bMarked = nMark != std::wstring_view::npos;
    OptSetMode.Selected = bMarked ? static_cast<int32_t>(nMark) + 1 : NO_MODE_MARK;
    Text3.Text = bMarked ? strCommand.substr(1) : strCommand;
}

// A command that cannot be edited now stays with the cell all the same: its marks work for keys
// too.
void CellEditorForm::EnableFor(int32_t nKind) {
    Text3.Enabled = nKind == CELL_KIND_NO_KEY;
    KeyOfForm(*this).Enable(nKind == CELL_KIND_KEY);
}

MapCell CellEditorForm::EnteredCell() {
    MapCell Cell;
    Cell.Caption = Text4.Text;
    if (Cell.Caption.empty()) return Cell;  // no caption, no cell
    Cell.Command = Text3.Text;
    if (OptSetMode.Selected > NO_MODE_MARK) {
        Cell.Command.insert(0, 1, MODE_MARKS[static_cast<size_t>(OptSetMode.Selected) - 1]);
    }
    if (ChkResetColumnOnAction.Value) Cell.Command.insert(0, 1, COLUMN_MARK);
    if (OptionType.Selected != CELL_KIND_NO_KEY) Cell.Code = KeyOfForm(*this).Code(NO_KEY);
    return Cell;
}

// The map may have changed while the editor was open: with the editor in front, an application's
// map can give way to the common one, whose cell at the same place must not be overwritten.
bool CellEditorForm::ReturnToOpenedMap() const {
    if (!m_bAppMap) {
        Foreground.bAppMapShown = false;
        return true;
    }
    if (Foreground.bAppMapShown && Foreground.AppMapName == m_strAppMap) return true;
    if (!LoadMap(m_strAppMap)) {
        ShowMap(true);
        return false;
    }
    Foreground.bAppMapShown = true;
    Foreground.AppMapName = m_strAppMap;
    return true;
}

void CellEditorForm::Save() {
    if (ReturnToOpenedMap()) {
        SaveCell(ComboX.ListIndex + 1, ComboY.ListIndex + 1, EnteredCell());
    }
    Cursor.nColumn = m_nColumn;
    Cursor.nRow = m_nRow;
    SetHi(Cursor.nColumn, Cursor.nRow);
}

}  // namespace taviro
