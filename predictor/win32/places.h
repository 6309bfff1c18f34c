// SPDX-License-Identifier: MIT
// Where the files of the server are.
#pragma once

#include <filesystem>

#include "predictor/service.h"

namespace taviro::predictor {

/// The user's folder of the server, in his roaming application data. It is not made. Empty when
/// the system does not tell.
[[nodiscard]] std::filesystem::path UserFolder();

/// All files: the dictionary beside the server, the others in the user's folder.
[[nodiscard]] ServiceFiles FilesOfUser();

}  // namespace taviro::predictor
