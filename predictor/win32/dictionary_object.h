// SPDX-License-Identifier: MIT
// The object that clients create by the name "Presager.Dict". Late-bound calls only; its one method
// is GetPrediction(prefix), which gives the list of words. Calls may come on any thread.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include "predictor/service.h"
#include "predictor/win32/lifetime.h"
#include "win32/com/object.h"

namespace taviro::predictor {

class DictionaryObject final : public com::LateBoundObject<> {
  public:
    /// Has one reference, the caller's.
    DictionaryObject(Service& Shared, Lifetime& Server);

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID Reserved, LPOLESTR* pNames, UINT nCount,
                                            LCID nLocale, DISPID* pIds) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID nMember, REFIID Reserved, LCID nLocale, WORD nKind,
                                     DISPPARAMS* pParameters, VARIANT* pResult,
                                     EXCEPINFO* pException, UINT* pFaulty) noexcept override;

  private:
    ~DictionaryObject();
    void OnLastRelease() noexcept override { delete this; }
    HRESULT GetPrediction(DISPPARAMS& Parameters, VARIANT* pResult, UINT& nFaulty);

    Service& m_Shared;
    Lifetime& m_Server;
    Session m_Session;
};

}  // namespace taviro::predictor
