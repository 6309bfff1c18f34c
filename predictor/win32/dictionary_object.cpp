// SPDX-License-Identifier: MIT
#include "predictor/win32/dictionary_object.h"

#include "predictor/win32/prefix_argument.h"
#include "win32/com/owners.h"

namespace taviro::predictor {

namespace {

constexpr DISPID GET_PREDICTION = 1;
constexpr DISPID PREFIX = 0;  // an argument's number is its position

bool IsName(const wchar_t* strGiven, const wchar_t* strName) {
    return strGiven != nullptr &&
           CompareStringOrdinal(strGiven, -1, strName, -1, TRUE) == CSTR_EQUAL;
}

// Names are those of the method first, then of its arguments.
HRESULT FindNames(LPOLESTR* pNames, UINT nCount, DISPID* pIds) {
    for (UINT i = 0; i < nCount; ++i)
        pIds[i] = DISPID_UNKNOWN;
    if (nCount == 0) return S_OK;
    if (!IsName(pNames[0], L"GetPrediction")) return DISP_E_UNKNOWNNAME;
    pIds[0] = GET_PREDICTION;
    HRESULT nResult = S_OK;
    for (UINT i = 1; i < nCount; ++i) {
        if (IsName(pNames[i], L"prefix")) {
            pIds[i] = PREFIX;
        } else {
            nResult = DISP_E_UNKNOWNNAME;
        }
    }
    return nResult;
}

// Stands for an argument that the caller left out.
bool IsMissing(const VARIANT& Given) {
    return Given.vt == VT_ERROR && Given.scode == DISP_E_PARAMNOTFOUND;
}

}  // namespace

DictionaryObject::DictionaryObject(Service& Shared, Lifetime& Server)
    : LateBoundObject(1), m_Shared(Shared), m_Server(Server), m_Session(Shared) {
    m_Server.Hold();
}

DictionaryObject::~DictionaryObject() {
    m_Server.LetGo();
}

HRESULT DictionaryObject::GetIDsOfNames(REFIID /*Reserved*/, LPOLESTR* pNames, UINT nCount,
                                        LCID /*nLocale*/, DISPID* pIds) noexcept {
    if (nCount > 0 && (pNames == nullptr || pIds == nullptr)) return E_POINTER;
    return FindNames(pNames, nCount, pIds);
}

HRESULT DictionaryObject::Invoke(DISPID nMember, REFIID /*Reserved*/, LCID /*nLocale*/, WORD nKind,
                                 DISPPARAMS* pParameters, VARIANT* pResult,
                                 EXCEPINFO* /*pException*/, UINT* pFaulty) noexcept {
    // Scripts that want the result do not know a method from a property.
    if (nMember != GET_PREDICTION || (nKind & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) == 0) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (pParameters == nullptr) return E_POINTER;
    if (pParameters->cArgs != 1) return DISP_E_BADPARAMCOUNT;
    UINT nFaulty = 0;
    HRESULT nResult = DISP_E_PARAMNOTFOUND;
    if (pParameters->cNamedArgs == 0 || pParameters->rgdispidNamedArgs[0] == PREFIX) {
        nResult = com::Guarded([&] { return GetPrediction(*pParameters, pResult, nFaulty); });
    }
    if (pFaulty != nullptr && FAILED(nResult)) *pFaulty = nFaulty;
    return nResult;
}

HRESULT DictionaryObject::GetPrediction(DISPPARAMS& Parameters, VARIANT* pResult, UINT& nFaulty) {
    nFaulty = 0;  // the only one
    VARIANT& Given = Parameters.rgvarg[0];
    if (IsMissing(Given)) return DISP_E_PARAMNOTOPTIONAL;
    std::wstring strPrefix;
    const HRESULT nRead = ReadPrefix(Given, strPrefix);
    if (FAILED(nRead)) return nRead;
    const Answer Found = m_Session.Ask(strPrefix);
    if (m_Shared.IsUnsaved()) m_Server.RequestSave();
    com::UniqueText List = com::NewText(Found.strList);
    if (List == nullptr) return E_OUTOFMEMORY;
    const HRESULT nWritten =
        Found.strPrefix == strPrefix ? S_OK : WritePrefix(Given, Found.strPrefix);
    if (FAILED(nWritten) || pResult == nullptr) return nWritten;
    pResult->vt = VT_BSTR;
    pResult->bstrVal = List.release();
    return S_OK;
}

}  // namespace taviro::predictor
