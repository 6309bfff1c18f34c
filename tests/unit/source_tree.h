// SPDX-License-Identifier: MIT
// Where the source tree lies, for tests of what is delivered out of it.
#pragma once

#include <filesystem>

namespace taviro {

std::filesystem::path SourceTree();

}  // namespace taviro
