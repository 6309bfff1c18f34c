// SPDX-License-Identifier: MIT
#include "platform/win32/posted_work.h"

#include <deque>
#include <functional>
#include <mutex>
#include <utility>

#include "platform/failure.h"
#include "platform/messages.h"
#include "platform/win32/failure.h"

namespace taviro::platform {

namespace {

constexpr const wchar_t* POST_CLASS_NAME = L"TaviroPosted";
constexpr UINT MESSAGE_WORK = WM_APP + 1;

using Work = std::function<void()>;

struct PostedWork {
    HWND hWindow = nullptr;  ///< set before another thread posts
    std::mutex Lock;         ///< of what follows
    std::deque<Work> Waiting;
    int nPauses = 0;  ///< of the program's own thread, which alone works
};
PostedWork Posted;

bool TakeFirst(Work& First) {
    const std::lock_guard Guard(Posted.Lock);
    if (Posted.Waiting.empty()) return false;
    First = std::move(Posted.Waiting.front());
    Posted.Waiting.pop_front();
    return true;
}

/// Does all that waits: one message may stand for several pieces of work, when others were refused.
/// What the work itself posts comes with a message of its own.
void DoWork() {
    if (win32::IsOwnWorkPaused()) return;  // the end of the pause asks again
    size_t nCount = 0;
    {
        const std::lock_guard Guard(Posted.Lock);
        nCount = Posted.Waiting.size();
    }
    for (Work First; nCount > 0 && TakeFirst(First); --nCount) {
        try {
            First();
        } catch (...) {
            ReportException("posted work");  // one step failed; the next one runs
        }
    }
}

LRESULT CALLBACK OnPostMessage(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) noexcept {
    if (nMessage != MESSAGE_WORK) return DefWindowProcW(hWindow, nMessage, wParam, lParam);
    DoWork();
    return 0;
}

void Append(Work New) {
    const std::lock_guard Guard(Posted.Lock);
    Posted.Waiting.push_back(std::move(New));
}

}  // namespace

HWND win32::PostWindow() {
    if (Posted.hWindow != nullptr) return Posted.hWindow;
    WNDCLASSW Class{};
    Class.lpfnWndProc = OnPostMessage;
    Class.hInstance = GetModuleHandleW(nullptr);
    Class.lpszClassName = POST_CLASS_NAME;
    if (RegisterClassW(&Class) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
        OrReport(FALSE, "RegisterClass(posted work)");
        return nullptr;
    }
    Posted.hWindow = OrReport(CreateWindowExW(0, POST_CLASS_NAME, L"", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                              nullptr, Class.hInstance, nullptr),
                              "CreateWindowEx(posted work)");
    return Posted.hWindow;
}

void win32::ReportLater(const char* szWhere, uint32_t nCode) noexcept {
    try {
        Append([szWhere, nCode] { ReportFailure(szWhere, nCode); });
    } catch (...) {
        return;  // no memory even to say so
    }
    // Refused, it is said with what is posted next.
    static_cast<void>(PostMessageW(Posted.hWindow, MESSAGE_WORK, 0, 0));
}

namespace {

void AskForWork() {
    if (PostMessageW(win32::PostWindow(), MESSAGE_WORK, 0, 0) == FALSE) {
        win32::ReportLater("PostMessage(work)", GetLastError());
    }
}

bool IsWorkWaiting() {
    const std::lock_guard Guard(Posted.Lock);
    return !Posted.Waiting.empty();
}

}  // namespace

void Post(Work New) {
    Append(std::move(New));
    AskForWork();
}

bool win32::IsOwnWorkPaused() {
    return Posted.nPauses > 0;
}

OwnWorkPause::OwnWorkPause() {
    ++Posted.nPauses;
}

OwnWorkPause::~OwnWorkPause() {
    if (--Posted.nPauses == 0 && IsWorkWaiting()) AskForWork();
}

}  // namespace taviro::platform
