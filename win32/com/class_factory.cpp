// SPDX-License-Identifier: MIT
#include "win32/com/class_factory.h"

#include <utility>

#include "win32/com/object.h"

namespace taviro::com {

ClassFactory::ClassFactory(Maker Make, Locker Lock)
    : m_Make(std::move(Make)), m_Lock(std::move(Lock)) {}

HRESULT ClassFactory::Offer(REFCLSID Class) {
    const HRESULT nOffered =
        CoRegisterClassObject(Class, this, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &m_nOffer);
    m_bOffered = SUCCEEDED(nOffered);
    return nOffered;
}

void ClassFactory::Withdraw() {
    if (!m_bOffered) return;
    m_bOffered = false;
    static_cast<void>(CoRevokeClassObject(m_nOffer));  // the number is ours
}

HRESULT ClassFactory::QueryInterface(REFIID Wanted, void** ppFound) noexcept {
    if (ppFound == nullptr) return E_POINTER;
    const bool bKnown =
        IsEqualIID(Wanted, __uuidof(IUnknown)) || IsEqualIID(Wanted, __uuidof(IClassFactory));
    *ppFound = bKnown ? this : nullptr;
    return bKnown ? S_OK : E_NOINTERFACE;
}

HRESULT ClassFactory::CreateInstance(IUnknown* pOuter, REFIID Wanted, void** ppMade) noexcept {
    if (ppMade == nullptr) return E_POINTER;
    *ppMade = nullptr;
    if (pOuter != nullptr) return CLASS_E_NOAGGREGATION;
    return Guarded([&] { return m_Make(Wanted, ppMade); });
}

HRESULT ClassFactory::LockServer(BOOL bLock) noexcept {
    return Guarded([&] {
        if (m_Lock) m_Lock(bLock != FALSE);
        return S_OK;
    });
}

}  // namespace taviro::com
