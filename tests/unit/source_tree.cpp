// SPDX-License-Identifier: MIT
#include "tests/unit/source_tree.h"

namespace taviro {

// The build says it: what the compiler knows of its files may be relative to its own folder.
std::filesystem::path SourceTree() {
    return TAVIRO_SOURCE_TREE;
}

}  // namespace taviro
