// SPDX-License-Identifier: MIT
// Owners of what automation calls carry: texts, values and references to objects. Each frees what
// it owns exactly once.
#pragma once

#include <windows.h>

#include <memory>
#include <oleauto.h>
#include <string>
#include <type_traits>

namespace taviro::com {

struct Releaser {
    void operator()(IUnknown* pObject) const { pObject->Release(); }
};
/// One reference to an object.
template <class Interface>
using UniqueObject = std::unique_ptr<Interface, Releaser>;

struct TextFreer {
    void operator()(BSTR strText) const { SysFreeString(strText); }
};
/// A text as calls carry it; release() hands it over.
using UniqueText = std::unique_ptr<std::remove_pointer_t<BSTR>, TextFreer>;

/// Null when memory runs out.
[[nodiscard]] inline UniqueText NewText(const std::wstring& strText) {
    return UniqueText(SysAllocStringLen(strText.data(), static_cast<UINT>(strText.size())));
}

/// A null text is an empty one. It may hold any character, NUL too.
[[nodiscard]] inline std::wstring TextOf(BSTR strText) {
    return {strText, SysStringLen(strText)};
}

/// A value that is cleared at its end.
class Variant {
  public:
    Variant() { VariantInit(&m_Value); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { static_cast<void>(VariantClear(&m_Value)); }  // frees whatever it holds

    VARIANT* Get() { return &m_Value; }
    VARIANT* operator->() { return &m_Value; }

    /// Takes over a text. Returns false for a null one: memory has run out.
    [[nodiscard]] bool Take(UniqueText Text);

  private:
    VARIANT m_Value{};
};

inline constexpr VARTYPE REFERENCE_TO_VARIANT = VT_BYREF | VT_VARIANT;
inline constexpr VARTYPE REFERENCE_TO_TEXT = VT_BYREF | VT_BSTR;

/// Follows references from variant to variant to the one that holds, or takes, the value. What is
/// found is itself a reference to a variant when they lead nowhere.
[[nodiscard]] VARIANT& Innermost(VARIANT& Given);

}  // namespace taviro::com
