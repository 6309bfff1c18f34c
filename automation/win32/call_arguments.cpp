// SPDX-License-Identifier: MIT
#include "automation/win32/call_arguments.h"

#include "win32/com/owners.h"

namespace taviro::automation {

namespace {

using com::Variant;

/// Where a value of this kind lies, and its size; 0 for kinds that take no result.
size_t SizeOf(VARTYPE nKind) {
    switch (nKind) {
        case VT_I1:
        case VT_UI1:
            return sizeof(BYTE);
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return sizeof(SHORT);
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
            return sizeof(LONG);
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return sizeof(LONGLONG);
        default:
            return 0;
    }
}

/// Moves Result, which changes hands, to where a typed reference points.
HRESULT StoreTyped(const VARIANT& Reference, VARIANT& Result) {
    const auto nKind = static_cast<VARTYPE>(Reference.vt & ~VT_BYREF);
    if (Reference.byref == nullptr) return E_POINTER;
    const HRESULT nChanged = VariantChangeType(&Result, &Result, 0, nKind);
    if (FAILED(nChanged)) return nChanged;
    if (nKind == VT_BSTR) {
        SysFreeString(*Reference.pbstrVal);
        *Reference.pbstrVal = Result.bstrVal;
        Result.vt = VT_EMPTY;
        return S_OK;
    }
    const size_t nSize = SizeOf(nKind);
    if (nSize == 0) return DISP_E_TYPEMISMATCH;
    CopyMemory(Reference.byref, &Result.byref, nSize);  // every kind of value starts there
    return S_OK;
}

}  // namespace

CallArguments::CallArguments(DISPPARAMS& Parameters, UINT nCount) : m_Parameters(Parameters) {
    if (Parameters.cArgs != nCount) m_nFault = DISP_E_BADPARAMCOUNT;
}

// Named arguments come first, each with its position; the others follow, the last one first.
VARIANT* CallArguments::At(UINT nPosition) const {
    for (UINT i = 0; i < m_Parameters.cNamedArgs; ++i) {
        if (m_Parameters.rgdispidNamedArgs[i] == static_cast<DISPID>(nPosition)) {
            return &m_Parameters.rgvarg[i];
        }
    }
    const UINT nPlain = m_Parameters.cArgs - m_Parameters.cNamedArgs;
    if (nPosition >= nPlain) return nullptr;
    return &m_Parameters.rgvarg[m_Parameters.cArgs - 1 - nPosition];
}

void CallArguments::Fail(HRESULT nFault, UINT nPosition) {
    m_nFault = nFault;
    const VARIANT* pGiven = At(nPosition);
    m_nFaultyIndex = pGiven == nullptr ? 0 : static_cast<UINT>(pGiven - m_Parameters.rgvarg);
}

std::wstring CallArguments::Text(UINT nPosition) {
    if (IsFaulty()) return {};
    VARIANT* pGiven = At(nPosition);
    Variant Read;
    const HRESULT nRead = pGiven == nullptr
                              ? DISP_E_PARAMNOTFOUND
                              : VariantChangeType(Read.Get(), &com::Innermost(*pGiven), 0, VT_BSTR);
    if (FAILED(nRead)) {
        Fail(nRead, nPosition);
        return {};
    }
    return com::TextOf(Read->bstrVal);
}

int32_t CallArguments::Number(UINT nPosition) {
    if (IsFaulty()) return 0;
    VARIANT* pGiven = At(nPosition);
    Variant Read;
    const HRESULT nRead = pGiven == nullptr
                              ? DISP_E_PARAMNOTFOUND
                              : VariantChangeType(Read.Get(), &com::Innermost(*pGiven), 0, VT_I4);
    if (FAILED(nRead)) {
        Fail(nRead, nPosition);
        return 0;
    }
    return Read->lVal;
}

void CallArguments::Store(UINT nPosition, VARIANT& Result) {
    VARIANT* pGiven = At(nPosition);
    if (pGiven == nullptr) return Fail(DISP_E_PARAMNOTFOUND, nPosition);
    const bool bIntoVariant = pGiven->vt == com::REFERENCE_TO_VARIANT;
    VARIANT* pTarget = &com::Innermost(*pGiven);
    HRESULT nStored = S_OK;
    if ((pTarget->vt & VT_BYREF) != 0) {
        nStored = StoreTyped(*pTarget, Result);
    } else if (bIntoVariant) {
        nStored = VariantClear(pTarget);
        if (SUCCEEDED(nStored)) {
            *pTarget = Result;
            Result.vt = VT_EMPTY;  // it has changed hands
        }
    }
    if (FAILED(nStored)) Fail(nStored, nPosition);
}

void CallArguments::Return(UINT nPosition, int32_t nResult) {
    if (IsFaulty()) return;
    Variant Result;
    Result->vt = VT_I4;
    Result->lVal = nResult;
    Store(nPosition, *Result.Get());
}

void CallArguments::Return(UINT nPosition, const std::wstring& strResult) {
    if (IsFaulty()) return;
    Variant Result;
    if (!Result.Take(com::NewText(strResult))) return Fail(E_OUTOFMEMORY, nPosition);
    Store(nPosition, *Result.Get());
}

}  // namespace taviro::automation
