// SPDX-License-Identifier: MIT
// Measures captions with a font, independently of the window: one context a layout, not one a cell.
#pragma once

#include <string>

#include "forms/control.h"
#include "platform/text_extent.h"

namespace taviro {

/// Makes the measuring context from a label's font, unless one exists.
void PrepareMeasureFont(const forms::Font& Font);

/// Width and height in pixels; 0 x 0 while no font is prepared.
platform::TextSize MeasureText(const std::wstring& strText);

/// Deletes the context.
void ReleaseMeasureFont();

}  // namespace taviro
