// SPDX-License-Identifier: MIT
#include "dialogs/cell_editor_form.h"

#include <algorithm>
#include <string>
#include <vector>

#include "dialogs/entered_text.h"
#include "dialogs/key_choice.h"
#include "dialogs/keyboard_dialog.h"
#include "maps/map_file.h"
#include "maps/map_window.h"
#include "state/cursor_state.h"
#include "state/program_state.h"
#include "vocabulary/action_code.h"
#include "vocabulary/command.h"

namespace taviro {

namespace {

constexpr int32_t NO_MODE_MARK = 0;

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

// Whether a cell there belongs to the map: what stands behind a row without a first cell is neither
// shown nor stored.
bool IsReached(int32_t nColumn, int32_t nRow) {
    const int32_t nFirstCells = nColumn > 1 ? nRow : nRow - 1;
    for (int32_t n = 1; n <= nFirstCells; ++n) {
        if (IsEmptyCell(1, n)) return false;
    }
    return true;
}

void FillNumbers(forms::ComboBox& Combo, int32_t nSelected) {
    std::vector<std::wstring> Numbers;
    for (int32_t n = 1; n <= MAP_SEARCH_END; ++n)
        Numbers.push_back(std::to_wstring(n));
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
    TakeKeyboard(*this);
    OnUnload = [] {
        Program.bConfigOpen = false;
        HighlightCursor();  // it may stand on a place that was offered and got no cell
    };
    cmdOK.OnClick = [this] {
        if (Save()) Unload();
    };
    cmdCancel.OnClick = [this] { Unload(); };
}

void CellEditorForm::ShowCursorCell() {
    const bool bOther =
        m_nColumn != Cursor.nColumn || m_nRow != Cursor.nRow || m_Map != CurrentMap();
    if (IsLoaded() && bOther) {
        const std::wstring strLeft = m_Opened.Caption;
        const bool bLost = IsEdited();
        Open();
        if (bLost) TellUser(*this, L"Úpravy položky „" + strLeft + L"“ se neuložily.");
    }
    Show();
}

void CellEditorForm::Open() {
    Program.bConfigOpen = true;
    m_nColumn = Cursor.nColumn;
    m_nRow = Cursor.nRow;
    m_Map = CurrentMap();
    const MapCell* pCell = ShownMap().Cell(m_nColumn, m_nRow);
    const MapCell Cell = pCell == nullptr ? MapCell{} : *pCell;
    m_nCode = Cell.Code;
    FillNumbers(ComboX, m_nColumn);
    FillNumbers(ComboY, m_nRow);
    Caption = L"Nastavení položky - " + Cell.Caption;
    Text4.Text = Cell.Caption;
    lblCode.Caption = L"kód " + std::to_wstring(Cell.Code);
    FillCommand(Cell.Command);
    OptionType.Choose(Cell.Code != 0 ? CELL_KIND_KEY : CELL_KIND_NO_KEY);
    KeyOfForm(*this).Show(Cell.Code);
    bChanged = false;
    m_Opened = EnteredCell();
}

bool CellEditorForm::IsEdited() {
    return ComboX.ListIndex + 1 != m_nColumn || ComboY.ListIndex + 1 != m_nRow ||
           EnteredCell() != m_Opened;
}

void CellEditorForm::FillCommand(const std::wstring& strCommand) {
    const Command Shown = ParseCommand(strCommand);
    ChkResetColumnOnAction.Value = Shown.bResetsColumn;
    OptSetMode.Selected = static_cast<int32_t>(Shown.nMode);
    Text3.Text = WithoutColumnMarks(Shown.strText);
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
    Command Entered;
    Entered.nMode = static_cast<ModeMark>(std::max(OptSetMode.Selected.Get(), NO_MODE_MARK));
    Entered.bResetsColumn = ChkResetColumnOnAction.Value;
    Entered.strText = Text3.Text;
    Cell.Command = ComposeCommand(Entered);
    if (OptionType.Selected != CELL_KIND_NO_KEY) Cell.Code = KeyOfForm(*this).Code(m_nCode);
    return Cell;
}

bool CellEditorForm::LacksItsKey(const MapCell& Cell) const {
    const bool bKey = !Cell.Caption.empty() && OptionType.Selected == CELL_KIND_KEY;
    const bool bHadNone = m_nCode != 0 && Cell.Code == m_nCode;  // as a map file may hold it
    return bKey && UnmodifiedCode(Cell.Code) == NO_KEY && !bHadNone;
}

bool CellEditorForm::Refuse(const wchar_t* szWhy) {
    TellUser(*this, szWhy);
    return false;
}

bool CellEditorForm::Save() {
    const MapCell Cell = EnteredCell();
    const int32_t nColumn = ComboX.ListIndex + 1;
    const int32_t nRow = ComboY.ListIndex + 1;
    if (LacksItsKey(Cell)) return Refuse(L"Vyberte klávesu, kterou má buňka stisknout.");
    const bool bInGrid = nColumn >= 1 && nColumn <= MAP_COLUMNS && nRow >= 1 && nRow <= MAP_ROWS;
    if (!bInGrid) return Refuse(L"Mapa má nejvýše 40 sloupců a 20 řádků. Vyberte jiné místo.");
    // The map may have changed while the editor was open: with the editor in front, an
    // application's map can give way to the common one, whose cell at the same place must not be
    // overwritten.
    if (!ReturnToMap(m_Map)) {
        TellUser(*this, L"Mapa, do které položka patří, už není. Úpravy se neuložily.");
    } else if (!Cell.Caption.empty() && !IsReached(nColumn, nRow)) {
        LayOutMap();
        HighlightCursor();
        return Refuse(
            L"Řádky mapy následují za sebou a každý začíná v prvním sloupci. Vyberte jiné místo.");
    } else {
        SaveCell(nColumn, nRow, Cell);
    }
    Cursor.nColumn = m_nColumn;  // highlighted when the form has gone
    Cursor.nRow = m_nRow;
    return true;
}

}  // namespace taviro
