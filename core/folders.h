// SPDX-License-Identifier: MIT
// The user's data folder: where it is, made level by level, seeded on the first start.
#pragma once

#include <cstdint>
#include <string>

namespace taviro {

/// File-system path of a shell special folder; empty on any failure.
std::wstring GetSpecialFolderPath(int32_t nFolderId);

/// Sets strDataPath, creates each of its levels that is missing, and copies the program's own data
/// files into it when it holds no "data.ini" yet. A step that fails is skipped.
void PrepareDataFolder();

}  // namespace taviro
