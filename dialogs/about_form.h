// SPDX-License-Identifier: MIT
// The about box: the program's title, description, version and copyright.
#pragma once

#include <memory>

#include "dialogs/control_ids.h"
#include "forms/dialog_controls.h"
#include "forms/form.h"

namespace taviro {

class AboutForm : public forms::Form {
  public:
    AboutForm();

    forms::Label lblTitle{*this, L"lblTitle", IDC_lblTitle};
    forms::Label lblCommets{*this, L"lblCommets", IDC_lblCommets};
    forms::Label lblVersion{*this, L"lblVersion", IDC_lblVersion};
    forms::TextBox txtCopyright{*this, L"txtCopyright", IDC_txtCopyright};
    forms::Button cmdOK{*this, L"cmdOK", IDC_cmdOK};

    /// Fills the form from the product's data.
    void PrepereForm();
};

/// One for the whole run, made anew only by tests.
inline std::unique_ptr<AboutForm> frmAbout = std::make_unique<AboutForm>();

}  // namespace taviro
