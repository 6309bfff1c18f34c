// SPDX-License-Identifier: MIT
// The map chooser: the map files of the user's data folder, of which one can be shown whatever
// application is in front.
#pragma once

#include <memory>

#include "dialogs/control_ids.h"
#include "forms/dialog_controls.h"
#include "forms/form.h"

namespace taviro {

class MapChooserForm : public forms::Form {
  public:
    MapChooserForm();

    forms::ListBox File1{*this, L"File1", IDC_File1};  ///< file names without the folder
    /// Shows the selected map; disabled while there is none.
    forms::Button Command1{*this, L"Command1", IDC_Command1};

  private:
    void Place();
    void FillFiles();
    void ShowSelected();
};

/// One for the whole run, made anew only by tests.
inline std::unique_ptr<MapChooserForm> frmMap = std::make_unique<MapChooserForm>();

}  // namespace taviro
