// SPDX-License-Identifier: MIT
// The entry point: opens the main window, starts the program, runs its messages.
#include <windows.h>

#include <cstdlib>
#include <objbase.h>

#include "core/startup.h"
#include "forms/main_form.h"
#include "platform/main_window.h"
#include "platform/messages.h"

namespace {

int RunProgram() noexcept {
    try {
        if (!taviro::platform::OpenMainWindow(*taviro::forms::FrmMain)) return EXIT_FAILURE;
        taviro::BindMainForm();
        taviro::Main();
        const int nExitCode = taviro::platform::RunMessageLoop();
        taviro::platform::CloseMainWindow();
        return nExitCode;
    } catch (...) {
        return EXIT_FAILURE;
    }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevious*/, PWSTR /*pCommandLine*/,
                    int /*nShowCommand*/) {
    // Without COM there are no automation objects, and the program goes without them. It is never
    // closed again: objects that global state holds are released after the end of this procedure.
    static_cast<void>(CoInitialize(nullptr));
    return RunProgram();
}
