// SPDX-License-Identifier: MIT
// The entry point: opens the main window, starts the program, runs its messages.
#include <windows.h>

#include <cstdlib>
#include <objbase.h>

#include "automation/command_line.h"
#include "automation/win32/gui_server.h"
#include "automation/win32/registry.h"
#include "core/startup.h"
#include "forms/main_form.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/messages.h"
#include "platform/shell.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"

namespace {

int RunProgram() noexcept {
    try {
        if (!taviro::platform::OpenMainWindow(*taviro::forms::FrmMain)) return EXIT_FAILURE;
        taviro::BindMainForm();
        // Refused, the program goes without scripts.
        if (taviro::platform::ClaimSingleInstance()) {
            taviro::Unneeded(taviro::automation::OpenGuiServer());
        }
        taviro::Main();
        const int nExitCode = taviro::platform::RunMessageLoop();
        taviro::automation::CloseGuiServer();
        taviro::platform::DetachDialogs();
        taviro::platform::CloseMainWindow();
        return nExitCode;
    } catch (...) {
        taviro::platform::ReportException("the program's start or end");
        return EXIT_FAILURE;
    }
}

bool IsRegistering(const taviro::StartOrder& Order) {
    return Order.nKind == taviro::StartKind::Register ||
           Order.nKind == taviro::StartKind::Unregister;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevious*/, PWSTR pCommandLine,
                    int /*nShowCommand*/) {
    const taviro::StartOrder Order = taviro::ParseCommandLine(pCommandLine);
    if (IsRegistering(Order)) return taviro::automation::CarryOut(Order);
    // Without COM there are no automation objects, and the program goes without them. It is never
    // closed again: objects that global state holds are released after the end of this procedure.
    taviro::platform::win32::SucceededOrReport(CoInitialize(nullptr), "CoInitialize");
    return RunProgram();
}
