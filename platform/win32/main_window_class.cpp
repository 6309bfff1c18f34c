// SPDX-License-Identifier: MIT
#include "platform/win32/main_window_class.h"

#include "platform/win32/failure.h"
#include "platform/win32/resource_ids.h"

namespace taviro::platform::win32 {

bool RegisterMainClass(WNDPROC pProcedure) {
    WNDCLASSEXW Class{};
    Class.cbSize = sizeof(Class);
    Class.lpfnWndProc = pProcedure;
    Class.hInstance = GetModuleHandleW(nullptr);
    // A test program has no icon of its own; then the system's stands in.
    Class.hIcon = LoadIconW(Class.hInstance, MAKEINTRESOURCEW(ICON_PROGRAM));
    if (Class.hIcon == nullptr) Class.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    Class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    Class.lpszClassName = MAIN_CLASS_NAME;
    if (RegisterClassExW(&Class) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS) return true;
    return OrReport(false, "RegisterClassEx");
}

}  // namespace taviro::platform::win32
