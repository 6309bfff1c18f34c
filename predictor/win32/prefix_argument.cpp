// SPDX-License-Identifier: MIT
#include "predictor/win32/prefix_argument.h"

#include "win32/com/owners.h"

namespace taviro::predictor {

namespace {

using com::REFERENCE_TO_TEXT;
using com::REFERENCE_TO_VARIANT;
using com::TextOf;

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
    com::Variant Text;
    const HRESULT nRead =
        VariantChangeTypeEx(Text.Get(), &Given, LOCALE_USER_DEFAULT, VARIANT_ALPHABOOL, VT_BSTR);
    if (SUCCEEDED(nRead)) strPrefix = TextOf(Text->bstrVal);
    return nRead;
}

}  // namespace

HRESULT ReadPrefix(VARIANT& Given, std::wstring& strPrefix) {
    strPrefix.clear();
    VARIANT& Found = com::Innermost(Given);
    switch (Found.vt) {
        case VT_BSTR:
            strPrefix = TextOf(Found.bstrVal);
            return S_OK;
        case REFERENCE_TO_TEXT:
            if (Found.pbstrVal == nullptr) return DISP_E_TYPEMISMATCH;
            strPrefix = TextOf(*Found.pbstrVal);
            return S_OK;
        case VT_EMPTY:
        case VT_NULL:
            return S_OK;
        default:
            if (!IsNumber(Found.vt)) return DISP_E_TYPEMISMATCH;
            if ((Found.vt & VT_BYREF) != 0 && Found.byref == nullptr) {
                return DISP_E_TYPEMISMATCH;
            }
            return ReadNumber(Found, strPrefix);
    }
}

HRESULT WritePrefix(VARIANT& Given, const std::wstring& strPrefix) {
    VARIANT& Found = com::Innermost(Given);
    const bool bText = Found.vt == REFERENCE_TO_TEXT && Found.pbstrVal != nullptr;
    const bool bVariant = Given.vt == REFERENCE_TO_VARIANT && (Found.vt & VT_BYREF) == 0;
    if (!bText && !bVariant) return S_OK;
    com::UniqueText New = com::NewText(strPrefix);
    if (New == nullptr) return E_OUTOFMEMORY;
    if (bText) {
        SysFreeString(*Found.pbstrVal);
        *Found.pbstrVal = New.release();
        return S_OK;
    }
    static_cast<void>(VariantClear(&Found));  // it holds a plain value, which can always go
    Found.vt = VT_BSTR;
    Found.bstrVal = New.release();
    return S_OK;
}

}  // namespace taviro::predictor
