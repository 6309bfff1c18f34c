// SPDX-License-Identifier: MIT
#include "actions/foreground_watch.h"

#include <algorithm>

#include "maps/shown_map.h"
#include "platform/text.h"
#include "platform/unneeded.h"
#include "state/program_state.h"

namespace taviro {

namespace {

std::wstring FileNameOf(const std::wstring& strPath) {
    const auto nSlash = strPath.rfind(L'\\');
    return nSlash == std::wstring::npos ? strPath : strPath.substr(nSlash + 1);
}

// Stores the window and process in front. Returns whether another application came there; a new
// window of the same one does not count. The two comparisons keep the check cheap on every tick.
bool NoticeChange(bool bForce) {
    const platform::WindowHandle hWindow = GetActiveWindowHandle();
    if (bForce) Foreground.hWindow = 0;
    if (hWindow == Foreground.hWindow) return false;
    Foreground.hWindow = hWindow;
    const uint32_t nProcess = platform::WindowProcess(hWindow);
    if (bForce) Foreground.nProcess = 0;
    if (nProcess == Foreground.nProcess) return false;
    Foreground.nProcess = nProcess;
    return true;
}

}  // namespace

platform::WindowHandle GetActiveWindowHandle() {
    return platform::ForegroundActiveWindow();
}

std::wstring GetProcessName(uint32_t nProcess) {
    const auto Processes = platform::SnapshotProcesses();
    const auto it = std::find_if(Processes.begin(), Processes.end(),
                                 [&](const auto& Entry) { return Entry.nProcessId == nProcess; });
    return it == Processes.end() ? std::wstring{}
                                 : platform::ToUpper(FileNameOf(it->strExecutable));
}

void CheckForegroundApp(bool bForce) {
    if (!NoticeChange(bForce)) return;
    FollowApplication(GetProcessName(Foreground.nProcess));
}

void ForgetForegroundApp() {
    Foreground.hWindow = 0;
    Foreground.nProcess = 0;
}

void ForceForeground(platform::WindowHandle hWindow) {
    const uint32_t nThread = platform::WindowThread(hWindow);
    const uint32_t nFrontThread = platform::WindowThread(GetActiveWindowHandle());
    // The system hands the foreground over only to a thread that shares its input queue.
    if (!platform::AttachInput(nThread, nFrontThread, true)) return;
    Unneeded(platform::SetForeground(hWindow));  // refused: the queues are parted all the same
    Unneeded(platform::AttachInput(nThread, nFrontThread, false));
}

}  // namespace taviro
