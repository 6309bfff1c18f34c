// SPDX-License-Identifier: MIT
// The cell editor: caption, key or command, and marks of the highlighted cell. OK stores the cell
// into the map on screen, at the same or another position, and rewrites that map's file.
#pragma once

#include <memory>
#include <string>

#include "dialogs/control_ids.h"
#include "forms/dialog_controls.h"
#include "forms/form.h"
#include "maps/map_grid.h"
#include "maps/shown_map.h"

namespace taviro {

inline constexpr int32_t MODE_MARK_COUNT = 4;   ///< none, selection, arrow, application
inline constexpr int32_t CELL_KIND_COUNT = 2;   ///< a key, no key
inline constexpr int32_t CELL_KIND_KEY = 0;     ///< the cell sends a key
inline constexpr int32_t CELL_KIND_NO_KEY = 1;  ///< the cell carries out its command alone

class CellEditorForm : public forms::Form {
  public:
    CellEditorForm();

    forms::ComboBox ComboX{*this, L"ComboX", IDC_ComboX};  ///< target column
    forms::ComboBox ComboY{*this, L"ComboY", IDC_ComboY};  ///< target row
    forms::TextBox Text4{*this, L"Text4", IDC_Text4};      ///< caption
    forms::OptionGroup OptionType{*this, L"OptionType", IDC_OptionType, CELL_KIND_COUNT};
    forms::ListBox ComboKey{*this, L"ComboKey", IDC_ComboKey};  ///< the key names, in their order
    forms::CheckBox chkSHIFT{*this, L"chkSHIFT", IDC_chkSHIFT};
    forms::CheckBox chkCTRL{*this, L"chkCTRL", IDC_chkCTRL};
    forms::CheckBox chkALT{*this, L"chkALT", IDC_chkALT};
    forms::CheckBox chkWin{*this, L"chkWin", IDC_chkWin};
    forms::Label lblCode{*this, L"lblCode", IDC_lblCode};  ///< the stored code, in decimal
    forms::TextBox Text3{*this, L"Text3", IDC_Text3};      ///< the command without its marks
    /// The mode that the command switches to, in the order of its marks.
    forms::OptionGroup OptSetMode{*this, L"OptSetMode", IDC_OptSetMode, MODE_MARK_COUNT};
    /// Whether the command resets the column.
    forms::CheckBox ChkResetColumnOnAction{*this, L"ChkResetColumnOnAction",
                                           IDC_ChkResetColumnOnAction};
    forms::Button cmdOK{*this, L"cmdOK", IDC_cmdOK};
    forms::Button cmdCancel{*this, L"cmdCancel", IDC_cmdCancel};

    bool bChanged = false;  ///< position, caption, command or mode mark was touched since opening

    /// Shows the form for the cell under the cursor; open for another one, it changes over to that,
    /// and says so when edits are lost with it.
    void ShowCursorCell();

  private:
    void Open();
    void FillCommand(const std::wstring& strCommand);
    void EnableFor(int32_t nKind);
    MapCell EnteredCell();
    bool IsEdited();
    [[nodiscard]] bool LacksItsKey(const MapCell& Cell) const;
    bool Refuse(const wchar_t* szWhy);
    // Returns false when nothing was stored and the user, who was told why, can still mend it.
    bool Save();

    // The highlight, the map and the cell at opening; the cell as the controls showed it.
    int32_t m_nColumn{};
    int32_t m_nRow{};
    MapOnScreen m_Map;
    int32_t m_nCode{};
    MapCell m_Opened;
};

/// One for the whole run, made anew only by tests.
inline std::unique_ptr<CellEditorForm> frmConfig = std::make_unique<CellEditorForm>();

}  // namespace taviro
