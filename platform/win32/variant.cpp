// SPDX-License-Identifier: MIT
#include "platform/win32/variant.h"

namespace taviro::platform::win32 {

namespace {

struct ToVariantVisitor {
    VARIANT& Target;

    bool operator()(std::monostate /*Empty*/) const { return true; }
    bool operator()(NullString /*Null*/) const {
        Target.vt = VT_BSTR;
        Target.bstrVal = nullptr;
        return true;
    }
    bool operator()(int16_t nValue) const {
        Target.vt = VT_I2;
        Target.iVal = nValue;
        return true;
    }
    bool operator()(int32_t nValue) const {
        Target.vt = VT_I4;
        Target.lVal = nValue;
        return true;
    }
    bool operator()(const std::wstring& strValue) const {
        com::UniqueText Copy = com::NewText(strValue);
        if (Copy == nullptr) return false;
        Target.vt = VT_BSTR;
        Target.bstrVal = Copy.release();
        return true;
    }
    bool operator()(const AutomationObject& Object) const {
        Target.vt = VT_DISPATCH;
        Target.pdispVal = Object ? Object->Dispatch.get() : nullptr;
        if (Target.pdispVal != nullptr) Target.pdispVal->AddRef();
        return true;
    }
};

AutomationValue FromObject(IUnknown* pUnknown) {
    if (pUnknown == nullptr) return AutomationObject{};
    void* pFound = nullptr;
    if (FAILED(pUnknown->QueryInterface(IID_IDispatch, &pFound)) || pFound == nullptr) return {};
    return std::make_shared<AutomationServer>(static_cast<IDispatch*>(pFound));
}

/// Other kinds of number, through the system's own conversion.
AutomationValue FromNumber(const VARIANT& Source) {
    VARIANT Borrowed = Source;  // the call takes no pointer to constants
    Variant Number;
    if (FAILED(VariantChangeType(Number.Get(), &Borrowed, 0, VT_I4))) return {};
    return int32_t{Number.Get()->lVal};
}

}  // namespace

bool ToVariant(const AutomationValue& Value, VARIANT& Variant) {
    return std::visit(ToVariantVisitor{Variant}, Value);
}

void ReferTo(VARIANT& Held, VARIANT& Reference) {
    if (Held.vt == VT_EMPTY) {  // an empty value can only be referred to as a whole variant
        Reference.vt = VT_BYREF | VT_VARIANT;
        Reference.pvarVal = &Held;
        return;
    }
    Reference.vt = static_cast<VARTYPE>(VT_BYREF | Held.vt);
    Reference.byref = &Held.byref;  // every kind of value starts at the same place
}

AutomationValue FromVariant(const VARIANT& Variant) {
    switch (Variant.vt) {
        case VT_EMPTY:
        case VT_NULL:
        case VT_ERROR:
            return {};
        case VT_I2:
            return int16_t{Variant.iVal};
        case VT_I4:
            return int32_t{Variant.lVal};
        case VT_BSTR:
            return com::TextOf(Variant.bstrVal);
        case VT_DISPATCH:
            return FromObject(Variant.pdispVal);
        case VT_UNKNOWN:
            return FromObject(Variant.punkVal);
        default:
            return FromNumber(Variant);
    }
}

}  // namespace taviro::platform::win32
