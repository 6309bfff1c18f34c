// SPDX-License-Identifier: MIT
#include "automation/win32/gui_object.h"

#include "automation/win32/late_call.h"
#include "win32/com/program_path.h"

namespace taviro::automation {

namespace {

using com::Guarded;
using com::TextOf;

/// A call with a 32-bit result, which Made fills.
template <class Call>
HRESULT GuardedNumber(LONG* pResult, const Call& Made) noexcept {
    if (pResult == nullptr) return E_POINTER;
    return Guarded([&] {
        int32_t nResult = 0;
        const HRESULT nOutcome = ToResult(Made(nResult));
        *pResult = nResult;
        return nOutcome;
    });
}

void Explain(HRESULT nResult, EXCEPINFO& Exception) {
    Exception = {};
    Exception.scode = nResult;
    Exception.bstrSource = SysAllocString(L"Taviro.GUI");
    Exception.bstrDescription = SysAllocString(Explanation(nResult));
}

}  // namespace

HRESULT GuiObject::LoadInfo() {
    if (m_Info != nullptr) return S_OK;
    ITypeLib* pLoaded = nullptr;
    const HRESULT nLoaded = LoadTypeLibEx(com::ProgramPath().c_str(), REGKIND_NONE, &pLoaded);
    if (FAILED(nLoaded)) return nLoaded;
    const com::UniqueObject<ITypeLib> Library(pLoaded);
    ITypeInfo* pFound = nullptr;
    const HRESULT nFound = Library->GetTypeInfoOfGuid(__uuidof(IGUI), &pFound);
    m_Info.reset(pFound);
    return nFound;
}

HRESULT GuiObject::GetTypeInfoCount(UINT* pCount) noexcept {
    if (pCount == nullptr) return E_POINTER;
    *pCount = 1;
    return S_OK;
}

HRESULT GuiObject::GetTypeInfo(UINT nIndex, LCID /*nLocale*/, ITypeInfo** ppInfo) noexcept {
    if (ppInfo == nullptr) return E_POINTER;
    *ppInfo = nullptr;
    if (nIndex != 0) return DISP_E_BADINDEX;
    return Guarded([&] {
        const HRESULT nLoaded = LoadInfo();
        if (FAILED(nLoaded)) return nLoaded;
        m_Info->AddRef();
        *ppInfo = m_Info.get();
        return S_OK;
    });
}

HRESULT GuiObject::GetIDsOfNames(REFIID /*Reserved*/, LPOLESTR* pNames, UINT nCount,
                                 LCID /*nLocale*/, DISPID* pIds) noexcept {
    return Guarded([&] {
        const HRESULT nLoaded = LoadInfo();
        return FAILED(nLoaded) ? nLoaded : DispGetIDsOfNames(m_Info.get(), pNames, nCount, pIds);
    });
}

HRESULT GuiObject::Invoke(DISPID nMember, REFIID /*Reserved*/, LCID /*nLocale*/, WORD nKind,
                          DISPPARAMS* pParameters, VARIANT* /*pResult*/, EXCEPINFO* pException,
                          UINT* pFaulty) noexcept {
    if (pParameters == nullptr) return E_POINTER;
    if ((nKind & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;
    UINT nFaulty = 0;
    const HRESULT nResult =
        Guarded([&] { return CallMember(m_Gui, nMember, *pParameters, nFaulty); });
    if (pFaulty != nullptr) *pFaulty = nFaulty;
    if (*Explanation(nResult) == L'\0' || pException == nullptr) return nResult;
    Explain(nResult, *pException);
    return DISP_E_EXCEPTION;
}

HRESULT GuiObject::ShowDebugWin() noexcept {
    return Guarded([&] { return ToResult(m_Gui.ShowDebugWin()); });
}

HRESULT GuiObject::MinDebugWin() noexcept {
    return Guarded([&] { return ToResult(m_Gui.MinDebugWin()); });
}

HRESULT GuiObject::HideDebugWin() noexcept {
    return Guarded([&] { return ToResult(m_Gui.HideDebugWin()); });
}

HRESULT GuiObject::SetCaption(BSTR strText) noexcept {
    return Guarded([&] { return ToResult(m_Gui.SetCaption(TextOf(strText))); });
}

HRESULT GuiObject::LogDebugWin(BSTR strText) noexcept {
    return Guarded([&] { return ToResult(m_Gui.LogDebugWin(TextOf(strText))); });
}

HRESULT GuiObject::ClickOnWindow(BSTR strTitle, BSTR strChildName, LONG* pResult) noexcept {
    return GuardedNumber(pResult, [&](int32_t& nResult) {
        return m_Gui.ClickOnWindow(TextOf(strTitle), TextOf(strChildName), nResult);
    });
}

HRESULT GuiObject::VBS_FindWindow(BSTR strTitle, BSTR strClass, LONG* pResult) noexcept {
    return GuardedNumber(pResult, [&](int32_t& hResult) {
        return m_Gui.VBS_FindWindow(TextOf(strTitle), TextOf(strClass), hResult);
    });
}

HRESULT GuiObject::VBS_GetTitle(LONG hWindow, BSTR* pResult) noexcept {
    if (pResult == nullptr) return E_POINTER;
    return Guarded([&] {
        std::wstring strTitle;
        const HRESULT nOutcome = ToResult(m_Gui.VBS_GetTitle(hWindow, strTitle));
        com::UniqueText New = com::NewText(strTitle);
        if (New == nullptr) return E_OUTOFMEMORY;
        SysFreeString(*pResult);
        *pResult = New.release();
        return nOutcome;
    });
}

HRESULT GuiObject::VBS_UpdateWindow(LONG hWindow) noexcept {
    return Guarded([&] { return ToResult(m_Gui.VBS_UpdateWindow(hWindow)); });
}

HRESULT GuiObject::VBS_UpdateFrame(LONG nLeft, LONG nTop, LONG nRight, LONG nBottom) noexcept {
    return Guarded([&] { return ToResult(m_Gui.VBS_UpdateFrame(nLeft, nTop, nRight, nBottom)); });
}

HRESULT GuiObject::VBS_GetChildNum(LONG hWindow, LONG* pResult) noexcept {
    return GuardedNumber(pResult,
                         [&](int32_t& nResult) { return m_Gui.VBS_GetChildNum(hWindow, nResult); });
}

HRESULT GuiObject::VBS_GetChild(LONG hWindow, BSTR strName, LONG* pResult) noexcept {
    return GuardedNumber(pResult, [&](int32_t& hResult) {
        return m_Gui.VBS_GetChild(hWindow, TextOf(strName), hResult);
    });
}

HRESULT GuiObject::KeyPress(LONG nScanCode, LONG nModifier) noexcept {
    return Guarded([&] { return ToResult(m_Gui.KeyPress(nScanCode, nModifier)); });
}

HRESULT GuiObject::Quit() noexcept {
    return Guarded([&] { return ToResult(m_Gui.Quit()); });
}

}  // namespace taviro::automation
