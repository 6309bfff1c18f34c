// SPDX-License-Identifier: MIT
// Which cells of a map type a character, found from the cells' captions.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "tools/effort/routes.h"

namespace taviro::effort {

/// The cells to be chosen one after the other; none when the map cannot type the character. A
/// capital without a cell of its own is typed between two uses of the cell "Caps".
[[nodiscard]] std::vector<CellPlace> CellsFor(wchar_t nCharacter);
/// Cells up to the last one with a caption in a row, and cells that a scan passes before this one.
[[nodiscard]] int32_t ColumnsOf(int32_t nRow);
[[nodiscard]] int32_t CellsBefore(CellPlace Place);
/// The cell with this caption; column 0 when there is none.
[[nodiscard]] CellPlace CellOf(std::wstring_view strCaption);

}  // namespace taviro::effort
