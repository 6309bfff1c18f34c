// SPDX-License-Identifier: MIT
// The system's accessibility library is loaded when the first window is asked: nobody who starts
// the program should wait for it.
#include <windows.h>

#include <oleacc.h>

#include "platform/win32/failure.h"
#include "platform/win32/numbers.h"
#include "platform/window_handling.h"
#include "win32/com/owners.h"

namespace taviro::platform {

namespace {

using ObjectOfWindow = decltype(&AccessibleObjectFromWindow);

ObjectOfWindow FindObjectOfWindow() {
    const HMODULE hLibrary =
        win32::OrReport(LoadLibraryExW(L"oleacc.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32),
                        "LoadLibrary(oleacc)");  // stays loaded
    if (hLibrary == nullptr) return nullptr;
    return reinterpret_cast<ObjectOfWindow>(
        reinterpret_cast<void*>(GetProcAddress(hLibrary, "AccessibleObjectFromWindow")));
}

/// The library's entry, looked for once.
struct AccessState {
    bool bLooked = false;
    ObjectOfWindow pObjectOfWindow = nullptr;
};
AccessState Access;

}  // namespace

bool AccessibleChildCount(WindowHandle hWindow, int32_t& nCount) {
    if (!Access.bLooked) Access = {.bLooked = true, .pObjectOfWindow = FindObjectOfWindow()};
    if (Access.pObjectOfWindow == nullptr) return false;
    void* pFound = nullptr;
    const HRESULT nResult = Access.pObjectOfWindow(
        win32::ToHwnd(hWindow), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &pFound);
    if (FAILED(nResult) || pFound == nullptr) return false;
    const com::UniqueObject<IAccessible> Object(static_cast<IAccessible*>(pFound));
    LONG nChildren = 0;
    if (FAILED(Object->get_accChildCount(&nChildren))) return false;
    nCount = nChildren;
    return true;
}

}  // namespace taviro::platform
