// SPDX-License-Identifier: MIT
#include "win32/com/owners.h"

namespace taviro::com {

namespace {

constexpr int DEEPEST_REFERENCE = 4;  // nobody nests deeper; a variant may not refer to itself

}  // namespace

bool Variant::Take(UniqueText Text) {
    if (Text == nullptr) return false;
    static_cast<void>(VariantClear(&m_Value));
    m_Value.vt = VT_BSTR;
    m_Value.bstrVal = Text.release();
    return true;
}

VARIANT& Innermost(VARIANT& Given) {
    VARIANT* pFound = &Given;
    for (int n = 0; n < DEEPEST_REFERENCE && pFound->vt == REFERENCE_TO_VARIANT; ++n) {
        if (pFound->pvarVal == nullptr) break;
        pFound = pFound->pvarVal;
    }
    return *pFound;
}

}  // namespace taviro::com
