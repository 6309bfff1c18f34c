// SPDX-License-Identifier: MIT
// The menu bar of a window, made from the form's tree of menu entries and kept in step with it.
#pragma once

#include <windows.h>

#include <span>
#include <vector>

#include "forms/control.h"

namespace taviro::platform::win32 {

class MenuView {
  public:
    /// Builds the bar. Returns the menu, which the caller gives to a window that then owns it; null
    /// when the system refuses.
    HMENU Build(std::span<forms::MenuEntry* const> Bar);

    /// Shows the entry as it is now: caption, grey, check mark.
    void Push(const forms::MenuEntry& Changed) const;

    /// The entry of a menu command, nullptr for a command of another origin.
    forms::MenuEntry* EntryOf(WORD nCommand) const;

  private:
    struct Place {
        forms::MenuEntry* pEntry;
        HMENU hMenu;  ///< the menu that holds it; owned by the window
        UINT nPosition;
        UINT nCommand;
    };

    bool Add(HMENU hMenu, std::span<forms::MenuEntry* const> Entries);
    static void PushPlace(const Place& Where);

    std::vector<Place> m_Places;
};

}  // namespace taviro::platform::win32
