// SPDX-License-Identifier: MIT
// How long the keyboard hook's own work takes: what every key of the desktop waits for. The
// question to the joystick and the actions, which the hook only posts, are left out. Prints a line
// for each kind of key: its name, median and 99th percentile in microseconds.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "input/keyboard_hook.h"
#include "platform/messages.h"

namespace {

constexpr int CALLS = 20000;
constexpr double MICROSECONDS = 1e6;

double Now() {
    LARGE_INTEGER Ticks{};
    LARGE_INTEGER PerSecond{};
    static_cast<void>(QueryPerformanceCounter(&Ticks));  // never fails since Windows XP
    static_cast<void>(QueryPerformanceFrequency(&PerSecond));
    return static_cast<double>(Ticks.QuadPart) / static_cast<double>(PerSecond.QuadPart);
}

void Measure(const char* szName, uint32_t nVk) {
    std::vector<double> Times;
    for (int i = 0; i < CALLS; ++i) {
        taviro::platform::KeyHookRecord Record;
        Record.vkCode = nVk;
        Record.flags = i % 2 == 0 ? 0 : taviro::platform::HOOK_FLAG_UP;
        const double nBegin = Now();
        static_cast<void>(taviro::KeyboardProc(0, WM_KEYDOWN, Record));  // swallowed or not
        Times.push_back((Now() - nBegin) * MICROSECONDS);
        taviro::platform::RunPendingMessages();  // what the key posted, on the program's account
    }
    std::sort(Times.begin(), Times.end());
    std::printf("%s %.1f %.1f\n", szName, Times[CALLS / 2], Times[CALLS * 99 / 100]);
}

}  // namespace

int main() {
    taviro::KeyboardHook.Enter = [] {};
    taviro::KeyboardHook.Arrow = [](int32_t) {};
    Measure("pass", 'A');
    Measure("arrow", VK_RIGHT);
    Measure("enter", VK_RETURN);
    return 0;
}
