// SPDX-License-Identifier: MIT
#include "automation/win32/gui_server.h"

#include <windows.h>

#include <objbase.h>

#include "automation/win32/gui_object.h"
#include "platform/messages.h"
#include "win32/com/access.h"

namespace taviro::automation {

namespace {

// How long the program stays for clients that hold the object. The answer to the call that ended it
// is sent by a thread of the system after the call has returned, and must not be overtaken.
constexpr DWORD FAREWELL_MS = 250;

/// Gives the one object to whoever asks.
class Factory final : public IClassFactory {
  public:
    explicit Factory(GuiObject& Offered) : m_Offered(Offered) {}
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID Wanted, void** ppFound) noexcept override {
        if (ppFound == nullptr) return E_POINTER;
        const bool bKnown =
            IsEqualIID(Wanted, __uuidof(IUnknown)) || IsEqualIID(Wanted, __uuidof(IClassFactory));
        *ppFound = bKnown ? this : nullptr;
        return bKnown ? S_OK : E_NOINTERFACE;
    }
    // It lives as long as the program and counts nothing.
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 1; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* pOuter, REFIID Wanted,
                                             void** ppMade) noexcept override {
        if (ppMade == nullptr) return E_POINTER;
        *ppMade = nullptr;
        if (pOuter != nullptr) return CLASS_E_NOAGGREGATION;
        return m_Offered.QueryInterface(Wanted, ppMade);
    }
    // The program is the user's: no client keeps it running.
    HRESULT STDMETHODCALLTYPE LockServer(BOOL /*bLock*/) noexcept override { return S_OK; }

  private:
    GuiObject& m_Offered;
};

/// What is offered to clients, for the whole run.
struct ServerState {
    GuiObject Object;
    Factory Maker{Object};
    DWORD nOffer = 0;  ///< the system's number of the offer
    bool bOffered = false;
};
ServerState Server;

/// Runs messages, which bring the clients' last words, until all have let go or the time is over.
void AwaitClients() {
    const DWORD nStart = GetTickCount();
    for (DWORD nPassed = 0; Server.Object.IsHeld() && nPassed < FAREWELL_MS;
         nPassed = GetTickCount() - nStart) {
        // A message, or the end of the time: the loop sees which.
        static_cast<void>(
            MsgWaitForMultipleObjects(0, nullptr, FALSE, FAREWELL_MS - nPassed, QS_ALLINPUT));
        platform::RunPendingMessages();
    }
}

}  // namespace

bool OpenGuiServer() {
    if (!com::RestrictAccess()) return false;
    Server.bOffered = SUCCEEDED(CoRegisterClassObject(
        __uuidof(::GUI), &Server.Maker, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &Server.nOffer));
    return Server.bOffered;
}

void CloseGuiServer() {
    if (!Server.bOffered) return;
    Server.bOffered = false;
    static_cast<void>(CoRevokeClassObject(Server.nOffer));  // the number is ours
    AwaitClients();
    // Its result is always success.
    static_cast<void>(CoDisconnectObject(&Server.Object, 0));
}

}  // namespace taviro::automation
