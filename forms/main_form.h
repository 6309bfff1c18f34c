// SPDX-License-Identifier: MIT
// The controls of the main window: the map's cell labels, the status line, the choice list, the
// external-control box, both timers and the menu. What they do is registered by the floors above.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "forms/form.h"

namespace taviro::forms {

inline constexpr int32_t CELL_LABEL_COUNT = 1001;  ///< labels 0 to 1000; 0 is never used
inline constexpr int32_t POLL_INTERVAL_MS = 100;
inline constexpr int32_t SCAN_DESIGN_INTERVAL_MS = 50;

class MainForm : public Form {
  public:
    MainForm();

    /// The cell label of an index, nullptr when the index is outside 1 to 1000 or the label was not
    /// created.
    Label* CellLabel(int32_t nIndex);
    /// The same, creating the label "lblControl" + index when it does not exist yet; nullptr only
    /// outside 1 to 1000.
    Label* CreateCellLabel(int32_t nIndex);

    int32_t HiIndex = 0;  ///< index of the highlighted label, 0 at first

    Label Label1{*this, L"Label1"};  ///< status line below the grid
    Label Label2{*this, L"Label2"};  ///< transparent surface that receives mouse clicks
    ListBox List1{*this, L"List1"};  ///< the choice list
    TextBox txtCmd{*this, L"txtCmd"};
    Timer Timer1{*this, L"Timer1", POLL_INTERVAL_MS};
    Timer ScanTimer{*this, L"ScanTimer", SCAN_DESIGN_INTERVAL_MS};

    MenuEntry mnuApplication{*this, L"mnuApplication", L"&Aplikace"};
    MenuEntry mnuOpenMap{*this, L"mnuOpenMap", L"&Aplikační nabídky"};
    MenuEntry mnuExit{*this, L"mnuExit", L"&Ukončit"};
    MenuEntry mnuSettingGroup{*this, L"mnuSettingGroup", L"&Nastavení"};
    MenuEntry mnuSettings{*this, L"mnuSettings", L"Nastavení &položky"};
    MenuEntry mnuSettingApp{*this, L"mnuSettingApp", L"&Nastavení programu"};
    MenuEntry mnuVoice{*this, L"mnuVoice", L"&Hlas"};
    MenuEntry mnuLog{*this, L"mnuLog", L"P&rotokol"};
    MenuEntry mnuHelp{*this, L"mnuHelp", L"Nápo&věda"};
    MenuEntry mnuAbout{*this, L"mnuAbout", L"&O programu..."};
    MenuEntry mnuHelpOpen{*this, L"mnuHelpOpen", L"O&tevřít"};
    std::array<MenuEntry*, 3> MenuBar{&mnuApplication, &mnuSettingGroup, &mnuHelp};

  private:
    std::array<std::unique_ptr<Label>, CELL_LABEL_COUNT> m_lblControl;
};

/// The program's main window; one for the whole run, made anew only by tests.
inline std::unique_ptr<MainForm> FrmMain = std::make_unique<MainForm>();

}  // namespace taviro::forms
