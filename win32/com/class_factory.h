// SPDX-License-Identifier: MIT
// What the system asks for an object of a class when a client wants one.
#pragma once

#include <windows.h>

#include <functional>
#include <objbase.h>

// The system's interfaces have no virtual destructor; the factory is never deleted through one.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace taviro::com {

/// It lives as long as the program and counts no references.
class ClassFactory final : public IClassFactory {
  public:
    /// Gives an object's interface with a reference for the client. May throw.
    using Maker = std::function<HRESULT(REFIID Wanted, void** ppMade)>;
    /// Hears that a client wants the program to stay (true) or no longer (false).
    using Locker = std::function<void(bool bLock)>;

    explicit ClassFactory(Maker Make, Locker Lock = nullptr);
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    /// Offers the class to all programs of the user, for as many objects as they want. Returns the
    /// system's code of a failure.
    [[nodiscard]] HRESULT Offer(REFCLSID Class);
    /// From here on the system sends no client. Nothing happens when nothing is offered.
    void Withdraw();
    [[nodiscard]] bool IsOffered() const { return m_bOffered; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID Wanted, void** ppFound) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 1; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* pOuter, REFIID Wanted,
                                             void** ppMade) noexcept override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL bLock) noexcept override;

  private:
    Maker m_Make;
    Locker m_Lock;
    DWORD m_nOffer = 0;  // the system's number of the offer
    bool m_bOffered = false;
};

}  // namespace taviro::com
