// SPDX-License-Identifier: MIT
// The cell that was last highlighted in each application's map, for the length of a run.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace taviro {

struct AppPosition {
    std::wstring strAppName;  ///< empty: this entry and all after it are free
    int32_t nColumn = 0;
    int32_t nRow = 0;
};

inline std::array<AppPosition, 100> AppPosTable;

/// Records the cell of an application; names are compared exactly. A full table records nothing
/// new, an empty name nothing that is found again.
void SaveAppPosition(const std::wstring& strAppName, int32_t nColumn, int32_t nRow);

/// Fetches it; leaves column and row alone when the application has no entry.
void GetAppPosition(const std::wstring& strAppName, int32_t& nColumn, int32_t& nRow);

}  // namespace taviro
