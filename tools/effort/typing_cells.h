// SPDX-License-Identifier: MIT
// Which cell types which character, found out by pressing every cell's key on the virtual desktop.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "maps/map_grid.h"
#include "tools/effort/routes.h"

namespace taviro::effort {

class TypingCells {
  public:
    explicit TypingCells(const MapGrid& Grid);

    /// The cells to be chosen one after the other; none when the map cannot type the character. A
    /// capital without a cell of its own is typed between two uses of the Caps Lock cell.
    [[nodiscard]] std::vector<CellPlace> For(wchar_t nCharacter) const;
    /// The text as the map can type it: typographic signs become plain ones, and what cannot be
    /// typed is left out.
    [[nodiscard]] std::wstring Typeable(const std::wstring& strText) const;

  private:
    std::map<wchar_t, CellPlace> m_Typed;
    CellPlace m_CapsLock;
};

}  // namespace taviro::effort
