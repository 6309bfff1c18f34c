// SPDX-License-Identifier: MIT
// An owner of a kernel object. A close can only fail for a handle that is not ours, so its result
// says nothing.
#pragma once

#include <windows.h>

#include <memory>

namespace taviro::com {

struct HandleCloser {
    void operator()(HANDLE h) const { static_cast<void>(CloseHandle(h)); }
};
/// Null when the object could not be made.
using UniqueHandle = std::unique_ptr<void, HandleCloser>;

/// For calls that give INVALID_HANDLE_VALUE on failure: null then.
inline UniqueHandle OwnUnlessInvalid(HANDLE h) {
    return UniqueHandle(h == INVALID_HANDLE_VALUE ? nullptr : h);
}

}  // namespace taviro::com
