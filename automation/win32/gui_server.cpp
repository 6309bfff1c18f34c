// SPDX-License-Identifier: MIT
#include "automation/win32/gui_server.h"

#include <windows.h>

#include <objbase.h>

#include "automation/win32/gui_object.h"
#include "platform/failure.h"
#include "platform/messages.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "win32/com/access.h"
#include "win32/com/class_factory.h"

namespace taviro::automation {

namespace {

// How long the program stays for clients that hold the object. The answer to the call that ended it
// is sent by a thread of the system after the call has returned, and must not be overtaken.
constexpr DWORD FAREWELL_MS = 250;

/// What is offered to clients, for the whole run.
struct ServerState {
    GuiObject Object;
    // All clients get the one object. The program is the user's: none of them keeps it running.
    com::ClassFactory Factory{
        [this](REFIID Wanted, void** ppMade) { return Object.QueryInterface(Wanted, ppMade); }};
};
ServerState Server;

/// Runs messages, which bring the clients' last words, until all have let go or the time is over.
void AwaitClients() {
    const DWORD nStart = GetTickCount();
    for (DWORD nPassed = 0; Server.Object.IsHeld() && nPassed < FAREWELL_MS;
         nPassed = GetTickCount() - nStart) {
        // A message, or the end of the time: the loop sees which.
        Unneeded(MsgWaitForMultipleObjects(0, nullptr, FALSE, FAREWELL_MS - nPassed, QS_ALLINPUT));
        platform::RunPendingMessages();
    }
}

}  // namespace

bool OpenGuiServer() {
    com::OnException = [](HRESULT nResult) noexcept {
        platform::ReportFailure("a call of Taviro.GUI", static_cast<uint32_t>(nResult));
    };
    if (!com::RestrictAccess()) return false;
    return platform::win32::SucceededOrReport(Server.Factory.Offer(__uuidof(::GUI)),
                                              "CoRegisterClassObject");
}

void CloseGuiServer() {
    if (!Server.Factory.IsOffered()) return;
    Server.Factory.Withdraw();
    AwaitClients();
    // Its result is always success.
    Unneeded(CoDisconnectObject(&Server.Object, 0));
}

}  // namespace taviro::automation
