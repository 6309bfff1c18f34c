// SPDX-License-Identifier: MIT
// The COM face of the automation object: an interface for typed clients and late-bound calls for
// scripts, both on the user-interface thread. It has no state, so all clients share the one object;
// it lives as long as the program.
#pragma once

#include <windows.h>

#include <gui_interface.h>

#include "automation/gui.h"
#include "win32/com/object.h"
#include "win32/com/owners.h"

namespace taviro::automation {

class GuiObject final : public com::Object<IGUI, IDispatch> {
  public:
    GuiObject() : Object(0) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pCount) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT nIndex, LCID nLocale,
                                          ITypeInfo** ppInfo) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID Reserved, LPOLESTR* pNames, UINT nCount,
                                            LCID nLocale, DISPID* pIds) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID nMember, REFIID Reserved, LCID nLocale, WORD nKind,
                                     DISPPARAMS* pParameters, VARIANT* pResult,
                                     EXCEPINFO* pException, UINT* pFaulty) noexcept override;

    HRESULT STDMETHODCALLTYPE ShowDebugWin() noexcept override;
    HRESULT STDMETHODCALLTYPE MinDebugWin() noexcept override;
    HRESULT STDMETHODCALLTYPE HideDebugWin() noexcept override;
    HRESULT STDMETHODCALLTYPE SetCaption(BSTR strText) noexcept override;
    HRESULT STDMETHODCALLTYPE LogDebugWin(BSTR strText) noexcept override;
    HRESULT STDMETHODCALLTYPE ClickOnWindow(BSTR strTitle, BSTR strChildName,
                                            LONG* pResult) noexcept override;
    HRESULT STDMETHODCALLTYPE VBS_FindWindow(BSTR strTitle, BSTR strClass,
                                             LONG* pResult) noexcept override;
    HRESULT STDMETHODCALLTYPE VBS_GetTitle(LONG hWindow, BSTR* pResult) noexcept override;
    HRESULT STDMETHODCALLTYPE VBS_UpdateWindow(LONG hWindow) noexcept override;
    HRESULT STDMETHODCALLTYPE VBS_UpdateFrame(LONG nLeft, LONG nTop, LONG nRight,
                                              LONG nBottom) noexcept override;
    HRESULT STDMETHODCALLTYPE VBS_GetChildNum(LONG hWindow, LONG* pResult) noexcept override;
    HRESULT STDMETHODCALLTYPE VBS_GetChild(LONG hWindow, BSTR strName,
                                           LONG* pResult) noexcept override;
    HRESULT STDMETHODCALLTYPE KeyPress(LONG nScanCode, LONG nModifier) noexcept override;
    HRESULT STDMETHODCALLTYPE Quit() noexcept override;

  private:
    /// The members' descriptions, read from the program's type library when first asked for.
    HRESULT LoadInfo();

    com::UniqueObject<ITypeInfo> m_Info;
    GUI m_Gui;
};

}  // namespace taviro::automation
