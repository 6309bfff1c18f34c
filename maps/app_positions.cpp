// SPDX-License-Identifier: MIT
#include "maps/app_positions.h"

namespace taviro {

void SaveAppPosition(const std::wstring& strAppName, int32_t nColumn, int32_t nRow) {
    for (AppPosition& Entry : AppPosTable) {
        if (Entry.strAppName == strAppName || Entry.strAppName.empty()) {
            Entry = {strAppName, nColumn, nRow};
            return;
        }
    }
}

void GetAppPosition(const std::wstring& strAppName, int32_t& nColumn, int32_t& nRow) {
    for (const AppPosition& Entry : AppPosTable) {
        if (Entry.strAppName.empty()) return;
        if (Entry.strAppName == strAppName) {
            nColumn = Entry.nColumn;
            nRow = Entry.nRow;
            return;
        }
    }
}

}  // namespace taviro
