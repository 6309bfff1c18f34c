// SPDX-License-Identifier: MIT
// Start-up and shutdown, in their exact orders, driven by the main window's load and unload.
#pragma once

namespace taviro {

/// Registers what the main window's events do: load, unload, timers, menu.
void BindMainForm();

/// Shows the main window; loading it runs the start-up. When another instance runs already nothing
/// is created or shown, and the message loop is told to end.
void Main();

/// The start-up sequence (the main window's load handler) and the shutdown sequence (its unload
/// handler). Every step goes on past the failure of the one before it.
void Form_Load();
void Form_Unload();

}  // namespace taviro
