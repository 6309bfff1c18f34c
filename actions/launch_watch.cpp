// SPDX-License-Identifier: MIT
#include "actions/launch_watch.h"

#include <algorithm>

#include "actions/foreground_watch.h"
#include "platform/clock.h"
#include "settings/comfort.h"

namespace taviro {

namespace {

constexpr uint32_t LAUNCH_TAKES_MS = 10000;  // what comes later was forgotten by the user as well
constexpr uint32_t COMES_BY_ITSELF_MS = 300;
constexpr uint32_t LETTING_GO_MS = 500;  // of the key that launched it

// None in front is a moment of a change that is not over.
bool HasUserGoneOn() {
    const platform::WindowHandle hInFront = GetActiveWindowHandle();
    return (hInFront != 0 && hInFront != LaunchWatch.hInFront) ||
           platform::LastInputTick() != LaunchWatch.nLastInput;
}

platform::WindowHandle NewWindow() {
    for (const platform::WindowHandle hWindow : platform::TaskWindows()) {
        const auto& Known = LaunchWatch.Known;
        if (std::find(Known.begin(), Known.end(), hWindow) == Known.end()) return hWindow;
    }
    return 0;
}

}  // namespace

void NoteLaunch() {
    if (!Comfort.bLaunchedInFront) return;
    LaunchWatch = {.bWaits = true,
                   .nSince = platform::TickCount(),
                   .nLastInput = platform::LastInputTick(),
                   .hInFront = GetActiveWindowHandle(),
                   .Known = platform::TaskWindows()};
}

void CheckLaunch() {
    if (!LaunchWatch.bWaits) return;
    const uint32_t nNow = platform::TickCount();
    const uint32_t nPassed = nNow - LaunchWatch.nSince;
    if (nPassed < LETTING_GO_MS) LaunchWatch.nLastInput = platform::LastInputTick();
    if (HasUserGoneOn() || nPassed > LAUNCH_TAKES_MS) return ForgetLaunch();
    const platform::WindowHandle hNew = NewWindow();
    if (hNew != LaunchWatch.hBehind) {
        LaunchWatch.hBehind = hNew;
        LaunchWatch.nBehindSince = nNow;
    }
    if (hNew == 0 || nNow - LaunchWatch.nBehindSince < COMES_BY_ITSELF_MS) return;
    ForgetLaunch();
    ForceForeground(hNew);
}

void ForgetLaunch() {
    LaunchWatch = {};
}

}  // namespace taviro
