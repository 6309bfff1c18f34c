// SPDX-License-Identifier: MIT
// What objects for clients have in common: they tell which interfaces they have, count references
// and let no exception out. Calls may come on any thread.
#pragma once

#include <windows.h>

#include <atomic>
#include <new>
#include <oleauto.h>

// The system's interfaces have no virtual destructor; an object ends in its own Release or never.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace taviro::com {

/// Told the result of each call that an exception ended, on the call's thread. The program sets it
/// before it offers objects.
inline void (*OnException)(HRESULT nResult) noexcept = nullptr;

/// Makes the call; memory that runs out and other exceptions become its result.
template <class Call>
HRESULT Guarded(const Call& Made) noexcept {
    HRESULT nResult = E_FAIL;
    try {
        return Made();
    } catch (const std::bad_alloc&) {
        nResult = E_OUTOFMEMORY;
    } catch (...) {
        nResult = E_FAIL;
    }
    if (OnException != nullptr) OnException(nResult);
    return nResult;
}

/// An object that has Interface and the Further ones, which it derives from. With no reference at
/// its start it lives as long as the program; with one, its maker's, OnLastRelease deletes it.
template <class Interface, class... Further>
class Object : public Interface {
  public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    /// Whether any client holds the object.
    [[nodiscard]] bool IsHeld() const { return m_nReferences > 0; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID Wanted, void** ppFound) noexcept override {
        if (ppFound == nullptr) return E_POINTER;
        const bool bKnown = IsEqualIID(Wanted, __uuidof(IUnknown)) ||
                            IsEqualIID(Wanted, __uuidof(Interface)) ||
                            (IsEqualIID(Wanted, __uuidof(Further)) || ...);
        *ppFound = bKnown ? this : nullptr;
        if (!bKnown) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++m_nReferences; }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const ULONG nLeft = --m_nReferences;
        if (nLeft == 0) OnLastRelease();
        return nLeft;
    }

  protected:
    explicit Object(ULONG nReferences) : m_nReferences(nReferences) {}
    ~Object() = default;

    virtual void OnLastRelease() noexcept {}

  private:
    std::atomic<ULONG> m_nReferences;
};

/// An object that is called by its members' names only and tells no types.
template <class Interface = IDispatch, class... Further>
class LateBoundObject : public Object<Interface, Further...> {
  public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pCount) noexcept override {
        if (pCount == nullptr) return E_POINTER;
        *pCount = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*nIndex*/, LCID /*nLocale*/,
                                          ITypeInfo** ppInfo) noexcept override {
        if (ppInfo != nullptr) *ppInfo = nullptr;
        return E_NOTIMPL;
    }

  protected:
    using Object<Interface, Further...>::Object;
    ~LateBoundObject() = default;
};

}  // namespace taviro::com
