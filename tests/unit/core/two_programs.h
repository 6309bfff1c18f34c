// SPDX-License-Identifier: MIT
// A desktop with two programs that come to the front in turn, the editor and another one. The tests
// give the editor's program a map of its own where they want one.
#pragma once

#include "platform/headless/desktop.h"
#include "platform/windows_and_processes.h"

namespace taviro {

inline constexpr int ACTION_BUTTON = 0;  // by the settings that a new user gets
inline constexpr int MODE_BUTTON = 1;
inline constexpr platform::WindowHandle EDITOR_WINDOW = 50;
inline constexpr platform::WindowHandle OTHER_WINDOW = 51;

inline void OpenTwoPrograms(platform::WindowHandle hInFront) {
    auto& Shown = platform::headless::Desktop;
    Shown.Windows = {{EDITOR_WINDOW, L"Text", L"Editor", 500, 600},
                     {OTHER_WINDOW, L"Jiné", L"Other", 501, 601}};
    Shown.Processes = {{500, L"C:\\Apps\\Editor.exe"}, {501, L"C:\\Apps\\other.exe"}};
    Shown.hForeground = hInFront;
}

}  // namespace taviro
