// SPDX-License-Identifier: MIT
// The object that clients create by the name "Presager.Dict". Late-bound calls only; its one method
// is GetPrediction(prefix), which gives the list of words. Calls may come on any thread.
#pragma once

#include <windows.h>

#include <atomic>
#include <oleauto.h>

#include "predictor/service.h"
#include "predictor/win32/lifetime.h"

// The system's interfaces have no virtual destructor; the object ends in its own Release.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace taviro::predictor {

class DictionaryObject final : public IDispatch {
  public:
    /// Has one reference, the caller's.
    DictionaryObject(Service& Shared, Lifetime& Server);
    DictionaryObject(const DictionaryObject&) = delete;
    DictionaryObject& operator=(const DictionaryObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID Wanted, void** ppFound) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pCount) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT nIndex, LCID nLocale,
                                          ITypeInfo** ppInfo) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID Reserved, LPOLESTR* pNames, UINT nCount,
                                            LCID nLocale, DISPID* pIds) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID nMember, REFIID Reserved, LCID nLocale, WORD nKind,
                                     DISPPARAMS* pParameters, VARIANT* pResult,
                                     EXCEPINFO* pException, UINT* pFaulty) noexcept override;

  private:
    ~DictionaryObject();
    HRESULT GetPrediction(DISPPARAMS& Parameters, VARIANT* pResult, UINT& nFaulty);

    std::atomic<ULONG> m_nReferences = 1;
    Service& m_Shared;
    Lifetime& m_Server;
    Session m_Session;
};

}  // namespace taviro::predictor
