// SPDX-License-Identifier: MIT
// What the main window's own events do: a click on the map, a word in the external-control box, a
// new size.
#pragma once

#include "forms/control.h"

namespace taviro {

/// Highlights the cell under the mouse pointer. The place comes from the screen, not from the
/// event. A click selects, it never runs; the right button opens the cell editor as well.
void Label2_MouseUp(forms::MouseButton nButton);

/// Carries out the words "up", "down", "left", "right" and "enter" wherever they stand in the box,
/// each once and in this order, then empties it: other programs drive the map this way.
void txtCmd_Change();

/// Stretches the click surface over the whole inner window.
void Form_Resize();

}  // namespace taviro
