// SPDX-License-Identifier: MIT
#include "automation/win32/registry.h"

#include <windows.h>

#include <cstdlib>
#include <string>

#include "automation/registration.h"
#include "win32/com/console.h"
#include "win32/com/program_path.h"
#include "win32/com/registry.h"

namespace taviro::automation {

namespace {

void TellUser(const std::wstring& strText) {
    if (com::WriteToUser(strText + L"\n")) return;
    static_cast<void>(MessageBoxW(nullptr, strText.c_str(), L"Taviro",
                                  MB_OK | MB_ICONERROR | MB_SETFOREGROUND));  // can only be OK
}

}  // namespace

int CarryOut(const StartOrder& Order) {
    const com::Registration Entries = GuiRegistration(com::ProgramPath());
    const long nResult = Order.nKind == StartKind::Register
                             ? com::Register(Order.nScope, Entries)
                             : com::Unregister(Order.nScope, Entries);
    if (nResult == 0) return EXIT_SUCCESS;
    TellUser(RegistrationFailure(Order, com::ReasonOf(nResult)));
    return EXIT_FAILURE;
}

}  // namespace taviro::automation
