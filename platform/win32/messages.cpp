// SPDX-License-Identifier: MIT
#include "platform/messages.h"

#include <windows.h>

#include <cstdlib>

#include "platform/main_window.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/numbers.h"
#include "platform/win32/posted_work.h"

namespace taviro::platform {

namespace {

constexpr ULONG_PTR DIALOG_CLASS_ATOM = 32770;  // the system's class of all dialogs

/// What is being dispatched: how many messages within each other, and the window of the outermost.
struct DispatchState {
    int nDepth = 0;
    HWND hOutermost = nullptr;
};
DispatchState Dispatching;

/// Counts a message while it runs. A handler of the form may throw; the next message finds the
/// count right all the same.
class DispatchMark {
  public:
    explicit DispatchMark(HWND hWindow) {
        if (Dispatching.nDepth++ == 0) Dispatching.hOutermost = hWindow;
    }
    DispatchMark(const DispatchMark&) = delete;
    DispatchMark& operator=(const DispatchMark&) = delete;
    ~DispatchMark() { --Dispatching.nDepth; }
};

HWND RootOf(HWND hWindow) {
    return hWindow == nullptr ? nullptr : GetAncestor(hWindow, GA_ROOT);
}

bool IsDialog(HWND hRoot) {
    return hRoot != nullptr && GetClassLongPtrW(hRoot, GCW_ATOM) == DIALOG_CLASS_ATOM;
}

/// A key or mouse message of a modeless dialog goes to the dialog manager (Tab, mnemonics, Escape).
bool IsForDialog(MSG& Message) {
    const HWND hRoot = RootOf(Message.hwnd);
    return IsDialog(hRoot) && IsDialogMessageW(hRoot, &Message) != FALSE;
}

void Dispatch(MSG& Message) {
    const DispatchMark Mark(Message.hwnd);
    if (IsForDialog(Message)) return;
    Unneeded(TranslateMessage(&Message));  // tells only whether it was a key
    Unneeded(DispatchMessageW(&Message));  // the receiver's result has no taker
}

}  // namespace

/// Calls of other programs come through a window of the system's own. When one arrives while
/// another message of ours runs, the count is above one, the outermost window is ours or that of
/// posted work, or nothing is being dispatched at all (a message that was sent).
bool IsOutermostLoop() {
    if (Dispatching.nDepth != 1) return false;
    if (Dispatching.hOutermost == win32::PostWindow()) return false;
    const HWND hRoot = RootOf(Dispatching.hOutermost);
    return hRoot != win32::ToHwnd(MainWindowHandle()) && !IsDialog(hRoot);
}

void RunPendingMessages() {
    MSG Message{};
    while (PeekMessageW(&Message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (Message.message == WM_QUIT) {
            // Meant for the outermost loop: put it back and let the caller finish.
            PostQuitMessage(static_cast<int>(Message.wParam));
            return;
        }
        Dispatch(Message);
    }
}

void win32::RunMessagesWhile(const std::function<bool()>& Condition) {
    MSG Message{};
    while (Condition()) {
        const BOOL nResult = GetMessageW(&Message, nullptr, 0, 0);
        if (nResult == 0) PostQuitMessage(static_cast<int>(Message.wParam));  // the outer loop's
        win32::OrReport(nResult >= 0, "GetMessage");
        if (nResult <= 0) return;
        Dispatch(Message);
    }
}

int RunMessageLoop() {
    MSG Message{};
    while (true) {
        const BOOL nResult = GetMessageW(&Message, nullptr, 0, 0);
        if (nResult == 0) return static_cast<int>(Message.wParam);
        if (!win32::OrReport(nResult > 0, "GetMessage")) return EXIT_FAILURE;
        Dispatch(Message);
    }
}

void QuitMessageLoop(int nExitCode) {
    PostQuitMessage(nExitCode);
}

}  // namespace taviro::platform
