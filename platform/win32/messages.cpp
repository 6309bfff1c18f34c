// SPDX-License-Identifier: MIT
#include "platform/messages.h"

#include <windows.h>

#include <cstdlib>

namespace taviro::platform {

namespace {

constexpr ULONG_PTR DIALOG_CLASS_ATOM = 32770;  // the system's class of all dialogs

/// A key or mouse message of a modeless dialog goes to the dialog manager (Tab, mnemonics, Escape).
bool IsForDialog(MSG& Message) {
    const HWND hRoot = Message.hwnd == nullptr ? nullptr : GetAncestor(Message.hwnd, GA_ROOT);
    if (hRoot == nullptr || GetClassLongPtrW(hRoot, GCW_ATOM) != DIALOG_CLASS_ATOM) return false;
    return IsDialogMessageW(hRoot, &Message) != FALSE;
}

void Dispatch(MSG& Message) {
    if (IsForDialog(Message)) return;
    static_cast<void>(TranslateMessage(&Message));  // tells only whether it was a key
    static_cast<void>(DispatchMessageW(&Message));  // the receiver's result has no taker
}

}  // namespace

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

int RunMessageLoop() {
    MSG Message{};
    while (true) {
        const BOOL nResult = GetMessageW(&Message, nullptr, 0, 0);
        if (nResult == 0) return static_cast<int>(Message.wParam);
        if (nResult < 0) return EXIT_FAILURE;
        Dispatch(Message);
    }
}

void QuitMessageLoop(int nExitCode) {
    PostQuitMessage(nExitCode);
}

}  // namespace taviro::platform
