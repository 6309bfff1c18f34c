// SPDX-License-Identifier: MIT
// Owners of system handles: each closes what it owns exactly once. A close can only fail for a
// handle that is not ours, so the deleters have no result to report.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

#include "win32/com/handles.h"

namespace taviro::platform::win32 {

using com::OwnUnlessInvalid;
using com::UniqueHandle;

struct FindCloser {
    void operator()(HANDLE h) const { static_cast<void>(FindClose(h)); }
};
/// A directory search; INVALID_HANDLE_VALUE is turned into null by whoever opens it.
using UniqueFind = std::unique_ptr<void, FindCloser>;

struct GdiDeleter {
    void operator()(void* h) const { static_cast<void>(DeleteObject(h)); }
};
using UniqueFont = std::unique_ptr<std::remove_pointer_t<HFONT>, GdiDeleter>;
using UniqueBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiDeleter>;
using UniqueBrush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, GdiDeleter>;

struct DcDeleter {
    void operator()(HDC h) const { static_cast<void>(DeleteDC(h)); }
};
/// A memory or device context that was created, not borrowed from a window.
using UniqueDc = std::unique_ptr<std::remove_pointer_t<HDC>, DcDeleter>;

}  // namespace taviro::platform::win32
