// SPDX-License-Identifier: MIT
#include "platform/automation.h"

#include <windows.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "platform/win32/failure.h"
#include "platform/win32/variant.h"

namespace taviro::platform {

namespace {

using win32::Variant;

/// What the callee tells of its failure; read by nobody here, but its texts are ours to free.
struct ExceptionInfo {
    EXCEPINFO System{};
    ExceptionInfo() = default;
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
    ~ExceptionInfo() {
        SysFreeString(System.bstrSource);
        SysFreeString(System.bstrDescription);
        SysFreeString(System.bstrHelpFile);
    }
};

bool FindMember(IDispatch& Dispatch, const std::wstring& strMember, DISPID& nMember) {
    std::wstring strName = strMember;  // the call takes no pointer to constants
    LPOLESTR pName = strName.data();
    const HRESULT nFound =
        Dispatch.GetIDsOfNames(IID_NULL, &pName, 1, LOCALE_USER_DEFAULT, &nMember);
    // That an object has no such member, or none to be called by name, is an answer.
    if (nFound == DISP_E_UNKNOWNNAME || nFound == E_NOTIMPL) return false;
    return win32::SucceededOrReport(nFound, "IDispatch::GetIDsOfNames");
}

/// The arguments of one call, in the reverse order that the system wants.
class ArgumentList {
  public:
    explicit ArgumentList(size_t nCount) : m_Held(nCount), m_Passed(nCount) {}

    bool Fill(std::span<const AutomationArgument> Arguments) {
        for (size_t i = 0; i < Arguments.size(); ++i) {
            VARIANT& Held = *HeldOf(i).Get();
            VARIANT& Passed = m_Passed[m_Passed.size() - 1 - i];
            if (!win32::ToVariant(Arguments[i].Value, Held)) return false;
            if (Arguments[i].bByReference) {
                win32::ReferTo(Held, Passed);
            } else {
                Passed = Held;  // borrowed: the callee does not free its arguments
            }
        }
        return true;
    }

    void StoreBack(std::span<AutomationArgument> Arguments) {
        for (size_t i = 0; i < Arguments.size(); ++i) {
            if (!Arguments[i].bByReference) continue;
            const VARIANT& Held = *HeldOf(i).Get();
            const bool bStillNull = Held.vt == VT_BSTR && Held.bstrVal == nullptr &&
                                    std::holds_alternative<NullString>(Arguments[i].Value);
            if (!bStillNull) Arguments[i].Value = win32::FromVariant(Held);
        }
    }

    DISPPARAMS Parameters() {
        DISPPARAMS System{};
        System.rgvarg = m_Passed.data();
        System.cArgs = static_cast<UINT>(m_Passed.size());
        return System;
    }

  private:
    Variant& HeldOf(size_t nArgument) { return m_Held[nArgument]; }

    std::vector<Variant> m_Held;
    std::vector<VARIANT> m_Passed;
};

bool Invoke(const AutomationObject& Object, const std::wstring& strMember, WORD nKind,
            std::span<AutomationArgument> Arguments, AutomationValue& Result) {
    // A call may let messages run that release it.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const AutomationObject Alive = Object;
    DISPID nMember = DISPID_UNKNOWN;
    if (!Alive || !FindMember(*Alive->Dispatch, strMember, nMember)) return false;
    ArgumentList List(Arguments.size());
    if (!List.Fill(Arguments)) {
        ReportFailure("SysAllocString", CODE_OUT_OF_MEMORY);
        return false;
    }
    DISPPARAMS Parameters = List.Parameters();
    Variant Returned;
    ExceptionInfo Exception;
    UINT nWrongArgument = 0;
    if (!win32::SucceededOrReport(
            Alive->Dispatch->Invoke(nMember, IID_NULL, LOCALE_USER_DEFAULT, nKind, &Parameters,
                                    Returned.Get(), &Exception.System, &nWrongArgument),
            "IDispatch::Invoke")) {
        return false;
    }
    List.StoreBack(Arguments);
    Result = win32::FromVariant(*Returned.Get());
    return true;
}

}  // namespace

bool CreateAutomationObject(const std::wstring& strProgId, AutomationObject& Object) {
    Object.reset();
    CLSID ClassId{};
    if (FAILED(CLSIDFromProgID(strProgId.c_str(), &ClassId))) return false;  // not installed
    void* pCreated = nullptr;
    if (!win32::SucceededOrReport(
            CoCreateInstance(ClassId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                             IID_IDispatch, &pCreated),
            "CoCreateInstance") ||
        pCreated == nullptr) {
        return false;
    }
    Object = std::make_shared<AutomationServer>(static_cast<IDispatch*>(pCreated));
    return true;
}

bool CallMethod(const AutomationObject& Object, const std::wstring& strMethod,
                std::span<AutomationArgument> Arguments, AutomationValue& Result) {
    return Invoke(Object, strMethod, DISPATCH_METHOD, Arguments, Result);
}

bool GetProperty(const AutomationObject& Object, const std::wstring& strProperty,
                 std::span<AutomationArgument> Arguments, AutomationValue& Result) {
    return Invoke(Object, strProperty, DISPATCH_PROPERTYGET, Arguments, Result);
}

bool PutProperty(const AutomationObject& Object, const std::wstring& strProperty,
                 const AutomationValue& Value) {
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): as above
    const AutomationObject Alive = Object;
    DISPID nMember = DISPID_UNKNOWN;
    Variant Put;
    if (!Alive || !FindMember(*Alive->Dispatch, strProperty, nMember) ||
        !win32::ToVariant(Value, *Put.Get())) {
        return false;
    }
    DISPID nNamed = DISPID_PROPERTYPUT;
    DISPPARAMS Parameters{};
    Parameters.rgvarg = Put.Get();
    Parameters.rgdispidNamedArgs = &nNamed;
    Parameters.cArgs = 1;
    Parameters.cNamedArgs = 1;
    const bool bObject = std::holds_alternative<AutomationObject>(Value);
    ExceptionInfo Exception;
    UINT nWrongArgument = 0;
    return win32::SucceededOrReport(
        Alive->Dispatch->Invoke(nMember, IID_NULL, LOCALE_USER_DEFAULT,
                                bObject ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT,
                                &Parameters, nullptr, &Exception.System, &nWrongArgument),
        "IDispatch::Invoke(put)");
}

}  // namespace taviro::platform
