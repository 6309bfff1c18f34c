// SPDX-License-Identifier: MIT
// The highlighted cell and what is remembered of it.
#pragma once

#include <cstdint>

namespace taviro {

struct CursorState {
    int32_t nColumn = 1;      ///< horizontal index, 1-based
    int32_t nRow = 1;         ///< vertical index, 1-based
    int32_t nLastColumn = 1;  ///< position remembered across mode and map switches
    int32_t nLastRow = 1;
    int32_t nPrevRow = 0;    ///< nRow after the previous move, to notice a change of row
    int32_t nAnnColumn = 0;  ///< cell at which "autorepeat" was last announced
    int32_t nAnnRow = 0;

    /// Stores the position for the return from another mode or map.
    void Remember() {
        nLastColumn = nColumn;
        nLastRow = nRow;
    }
    void Restore() {
        nColumn = nLastColumn;
        nRow = nLastRow;
    }
};
inline CursorState Cursor;

}  // namespace taviro
