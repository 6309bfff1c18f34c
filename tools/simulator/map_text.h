// SPDX-License-Identifier: MIT
// The main window as text: what its labels show, not what the map's grid holds.
#pragma once

#include <string>
#include <vector>

#include "forms/main_form.h"

namespace taviro::simulator {

/// One line a row of cells after "|", the highlighted cell in square brackets; then the status line
/// after
/// "= ", and, while the choice list is open, its entries after "? ", the selected one after "?>".
/// No line ends in a blank. UTF-8.
std::vector<std::string> MapText(forms::MainForm& Form);

}  // namespace taviro::simulator
