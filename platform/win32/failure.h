// SPDX-License-Identifier: MIT
// The results of the system's calls: passed on, and reported where they are failures. The system's
// error number is asked for at once, before another call changes it.
#pragma once

#include <windows.h>

namespace taviro::platform::win32 {

/// Returns whether the call szCall succeeded. A window that has gone meanwhile is no failure: it is
/// not ours to keep.
bool OrReport(BOOL bDone, const char* szCall);
bool OrReport(HRESULT nResult, const char* szCall) = delete;  // 0 is its success

/// The same for calls that give a handle or a pointer, null on failure.
template <class Object>
Object* OrReport(Object* pResult, const char* szCall) {
    OrReport(pResult != nullptr, szCall);
    return pResult;
}

/// The same for calls whose result is itself the error number.
bool SucceededOrReport(HRESULT nResult, const char* szCall);

}  // namespace taviro::platform::win32
