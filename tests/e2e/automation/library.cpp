// SPDX-License-Identifier: MIT
// The door of the library through which the system makes the stand-in objects.
#include <windows.h>

#include "tests/e2e/automation/servers.h"

namespace {

using taviro::standin::ServerClass;
using taviro::standin::ServerClasses;

/// One for each class; they live as long as the library and count nothing.
class Factory final : public IClassFactory {
  public:
    explicit Factory(const ServerClass& Made) : m_Made(Made) {}
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;
    virtual ~Factory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID Wanted, void** ppFound) override {
        const bool bKnown =
            IsEqualIID(Wanted, IID_IUnknown) || IsEqualIID(Wanted, IID_IClassFactory);
        *ppFound = bKnown ? this : nullptr;
        return bKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* pOuter, REFIID Wanted,
                                             void** ppMade) override {
        *ppMade = nullptr;
        if (pOuter != nullptr) return CLASS_E_NOAGGREGATION;
        IDispatch* pObject = m_Made.pCreate();
        const HRESULT nResult = pObject->QueryInterface(Wanted, ppMade);
        pObject->Release();
        return nResult;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  private:
    const ServerClass& m_Made;
};

}  // namespace

STDAPI DllGetClassObject(REFCLSID Wanted, REFIID Interface, void** ppFound) {
    static Factory Factories[] = {Factory(ServerClasses()[0]), Factory(ServerClasses()[1]),
                                  Factory(ServerClasses()[2])};
    *ppFound = nullptr;
    for (size_t i = 0; i < ServerClasses().size(); ++i) {
        if (IsEqualCLSID(Wanted, ServerClasses()[i].Id)) {
            return Factories[i].QueryInterface(Interface, ppFound);
        }
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return taviro::standin::ObjectCount() == 0 ? S_OK : S_FALSE;
}
