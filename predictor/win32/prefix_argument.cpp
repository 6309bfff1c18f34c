// SPDX-License-Identifier: MIT
#include "predictor/win32/prefix_argument.h"

namespace taviro::predictor {

namespace {

constexpr VARTYPE REFERENCE_TO_VARIANT = VT_BYREF | VT_VARIANT;
constexpr VARTYPE REFERENCE_TO_TEXT = VT_BYREF | VT_BSTR;
constexpr int DEEPEST_REFERENCE = 4;  // nobody nests deeper; a variant may not refer to itself

/// Follows references from variant to variant to the one that holds, or takes, the value. Null when
/// they lead nowhere.
VARIANT* Innermost(VARIANT& Given) {
    VARIANT* pFound = &Given;
    for (int n = 0; n < DEEPEST_REFERENCE && pFound != nullptr; ++n) {
        if (pFound->vt != REFERENCE_TO_VARIANT) return pFound;
        pFound = pFound->pvarVal;
    }
    return nullptr;
}

std::wstring TextOf(BSTR strText) {
    return {strText, SysStringLen(strText)};  // a null text is an empty one
}

bool IsNumber(VARTYPE nKind) {
    switch (nKind & ~VT_BYREF) {
        case VT_I1:
        case VT_UI1:
        case VT_I2:
        case VT_UI2:
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_I8:
        case VT_UI8:
        case VT_R4:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
        case VT_DECIMAL:
        case VT_BOOL:
            return true;
        default:
            return false;
    }
}

HRESULT ReadNumber(VARIANT& Given, std::wstring& strPrefix) {
    VARIANT Text;
    VariantInit(&Text);
    const HRESULT nRead =
        VariantChangeTypeEx(&Text, &Given, LOCALE_USER_DEFAULT, VARIANT_ALPHABOOL, VT_BSTR);
    if (FAILED(nRead)) return nRead;
    try {
        strPrefix = TextOf(Text.bstrVal);
    } catch (...) {
        SysFreeString(Text.bstrVal);
        throw;
    }
    SysFreeString(Text.bstrVal);
    return S_OK;
}

}  // namespace

HRESULT ReadPrefix(VARIANT& Given, std::wstring& strPrefix) {
    strPrefix.clear();
    VARIANT* pFound = Innermost(Given);
    if (pFound == nullptr) return DISP_E_TYPEMISMATCH;
    switch (pFound->vt) {
        case VT_BSTR:
            strPrefix = TextOf(pFound->bstrVal);
            return S_OK;
        case REFERENCE_TO_TEXT:
            if (pFound->pbstrVal == nullptr) return DISP_E_TYPEMISMATCH;
            strPrefix = TextOf(*pFound->pbstrVal);
            return S_OK;
        case VT_EMPTY:
        case VT_NULL:
            return S_OK;
        default:
            if (!IsNumber(pFound->vt)) return DISP_E_TYPEMISMATCH;
            if ((pFound->vt & VT_BYREF) != 0 && pFound->byref == nullptr) {
                return DISP_E_TYPEMISMATCH;
            }
            return ReadNumber(*pFound, strPrefix);
    }
}

HRESULT WritePrefix(VARIANT& Given, const std::wstring& strPrefix) {
    VARIANT* pFound = Innermost(Given);
    if (pFound == nullptr) return S_OK;
    const bool bText = pFound->vt == REFERENCE_TO_TEXT && pFound->pbstrVal != nullptr;
    const bool bVariant = Given.vt == REFERENCE_TO_VARIANT && (pFound->vt & VT_BYREF) == 0;
    if (!bText && !bVariant) return S_OK;
    BSTR strNew = SysAllocStringLen(strPrefix.data(), static_cast<UINT>(strPrefix.size()));
    if (strNew == nullptr) return E_OUTOFMEMORY;
    if (bText) {
        SysFreeString(*pFound->pbstrVal);
        *pFound->pbstrVal = strNew;
        return S_OK;
    }
    static_cast<void>(VariantClear(pFound));  // it holds a plain value, which can always go
    pFound->vt = VT_BSTR;
    pFound->bstrVal = strNew;
    return S_OK;
}

}  // namespace taviro::predictor
