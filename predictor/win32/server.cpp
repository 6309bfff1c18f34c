// SPDX-License-Identifier: MIT
#include "predictor/win32/server.h"

#include <windows.h>

#include <array>
#include <cstdlib>
#include <objbase.h>

#include "predictor/service.h"
#include "predictor/typeable.h"
#include "predictor/utf8.h"
#include "predictor/win32/complaint.h"
#include "predictor/win32/dictionary_object.h"
#include "predictor/win32/places.h"
#include "predictor/win32/store_owner.h"
#include "win32/com/access.h"
#include "win32/com/class_factory.h"
#include "win32/com/console.h"
#include "win32/com/object.h"
#include "win32/com/owners.h"

namespace taviro::predictor {

namespace {

// {8D9C41B6-2E57-4F0A-9B63-C1A4F2D7E850}, the one that is registered
constexpr CLSID CLASS_ID = {
    0x8d9c41b6, 0x2e57, 0x4f0a, {0x9b, 0x63, 0xc1, 0xa4, 0xf2, 0xd7, 0xe8, 0x50}};

// How long the server waits for another client: a program that ends and is started again finds it
// ready. The first one is on its way when the server starts, and may be slow.
constexpr DWORD LINGER_MS = 5000;
constexpr DWORD FIRST_CLIENT_MS = 30000;

/// The first client comes while the files are still being read, and waits for its object here.
HRESULT MakeObject(Service& Shared, Lifetime& Server, HANDLE hLoaded, REFIID Wanted,
                   void** ppMade) {
    if (WaitForSingleObject(hLoaded, INFINITE) != WAIT_OBJECT_0) return E_UNEXPECTED;
    const com::UniqueObject<DictionaryObject> Made(new DictionaryObject(Shared, Server));
    return Made->QueryInterface(Wanted, ppMade);
}

void ComplainIfNew(const std::string& strError, std::string& strLast) {
    if (strError == strLast) return;
    strLast = strError;
    Complain(FromUtf8(strError));
}

/// The server's work beside the calls.
class MainLoop {
  public:
    MainLoop(Service& Shared, Lifetime& Server, const ForgetSignals& Forgetting)
        : m_Shared(Shared), m_Server(Server), m_Forgetting(Forgetting) {}

    void Run();

  private:
    void Save();
    void ForgetNow();
    [[nodiscard]] bool IsOver() const;

    Service& m_Shared;
    Lifetime& m_Server;
    const ForgetSignals& m_Forgetting;
    std::string m_strLastError;  // of saving: it is told once, not with every word
};

void MainLoop::Save() {
    std::string strError;
    if (m_Shared.Save(strError)) {
        m_strLastError.clear();
    } else {
        ComplainIfNew(strError, m_strLastError);
    }
}

// The order's answer is sent only when it is true.
void MainLoop::ForgetNow() {
    std::string strError;
    if (m_Shared.Forget(strError)) {
        static_cast<void>(SetEvent(m_Forgetting.hDone.get()));
    } else {
        Complain(FromUtf8(strError));
    }
}

// Whether nobody came in the last moment; from here on the system starts a new server instead.
bool MainLoop::IsOver() const {
    static_cast<void>(CoSuspendClassObjects());
    if (!m_Server.IsHeld()) return true;
    static_cast<void>(CoResumeClassObjects());
    return false;
}

void MainLoop::Run() {
    const std::array<HANDLE, 3> Events{m_Server.SaveWanted(), m_Server.Idle(),
                                       m_Forgetting.hWanted.get()};
    const DWORD nEvents = m_Forgetting.hWanted == nullptr ? 2 : 3;
    DWORD nIdleSince = GetTickCount();
    DWORD nPatience = FIRST_CLIENT_MS;
    for (;;) {
        const DWORD nIdle = GetTickCount() - nIdleSince;
        DWORD nWait = INFINITE;
        if (!m_Server.IsHeld()) nWait = nIdle < nPatience ? nPatience - nIdle : 0;
        switch (WaitForMultipleObjects(nEvents, Events.data(), FALSE, nWait)) {
            case WAIT_OBJECT_0:
                Save();
                break;
            case WAIT_OBJECT_0 + 1:
                nIdleSince = GetTickCount();
                nPatience = LINGER_MS;
                break;
            case WAIT_OBJECT_0 + 2:
                ForgetNow();
                break;
            default:
                if (IsOver()) return;
                break;
        }
    }
}

/// Returns what keeps the learned words this server's, nullptr when they are another's.
com::UniqueHandle Load(Service& Shared) {
    const ServiceFiles Files = FilesOfUser();
    com::UniqueHandle hStore = HoldStore(Files.Learned.parent_path());
    if (hStore == nullptr) {
        Complain(L"learned.txt: Another server keeps the file; new words are not saved.");
    }
    for (const std::string& strComplaint :
         Shared.Open(Files, UntypeableLetters(), hStore != nullptr)) {
        Complain(FromUtf8(strComplaint));
    }
    return hStore;
}

int Run(Service& Shared, Lifetime& Server, const ForgetSignals& Forgetting) {
    const com::UniqueHandle hLoaded(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    com::ClassFactory Factory(
        [&](REFIID Wanted, void** ppMade) {
            return MakeObject(Shared, Server, hLoaded.get(), Wanted, ppMade);
        },
        [&](bool bLock) { bLock ? Server.Hold() : Server.LetGo(); });
    const HRESULT nOffered = Factory.Offer(CLASS_ID);
    if (FAILED(nOffered)) {
        Complain(L"The dictionary cannot be offered: " + com::ReasonOf(nOffered));
        return EXIT_FAILURE;
    }
    const com::UniqueHandle hStore = Load(Shared);
    if (SetEvent(hLoaded.get()) == FALSE) return EXIT_FAILURE;
    MainLoop Loop(Shared, Server, Forgetting);
    Loop.Run();
    Factory.Withdraw();
    std::string strError;
    if (!Shared.Save(strError)) Complain(FromUtf8(strError));
    if (Forgetting.hWanted != nullptr &&
        WaitForSingleObject(Forgetting.hWanted.get(), 0) == WAIT_OBJECT_0 &&
        Shared.Forget(strError)) {
        static_cast<void>(SetEvent(Forgetting.hDone.get()));
    }
    return EXIT_SUCCESS;
}

void ComplainOfException(HRESULT nResult) noexcept {
    try {
        Complain(L"An exception ended a call: " + com::ReasonOf(nResult));
    } catch (...) {
        return;  // no memory even to say so
    }
}

}  // namespace

// What calls use is never deleted: the last of them may come while the process ends.
int Serve() {
    com::OnException = ComplainOfException;
    Lifetime& Server = *new Lifetime;
    if (!Server.IsReady() || FAILED(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) ||
        !com::RestrictAccess()) {
        Complain(L"The dictionary cannot be offered.");
        return EXIT_FAILURE;
    }
    // First the signals: an order to forget that finds none deletes the file before it is read.
    const ForgetSignals Forgetting = OfferForgetting();
    Service& Shared = *new Service;
    return Run(Shared, Server, Forgetting);
}

}  // namespace taviro::predictor
