// SPDX-License-Identifier: MIT
// The arguments of a late-bound call. Scripts pass what they have: variants by value, by reference
// or within variants; the call wants texts and 32-bit numbers, and gives results back into whatever
// the script passed.
#pragma once

#include <windows.h>

#include <cstdint>
#include <oleauto.h>
#include <string>

namespace taviro::automation {

/// Reads arguments by their position, counted from 0. After the first fault everything fails.
class CallArguments {
  public:
    /// A call with another number of arguments than nCount is faulty.
    CallArguments(DISPPARAMS& Parameters, UINT nCount);

    /// Empty, or 0, when the argument cannot be read as such.
    std::wstring Text(UINT nPosition);
    int32_t Number(UINT nPosition);

    /// Stores a result in an argument that was passed by reference. Passed by value it has no place
    /// to go to; the caller did not want it.
    void Return(UINT nPosition, int32_t nResult);
    void Return(UINT nPosition, const std::wstring& strResult);

    bool IsFaulty() const { return FAILED(m_nFault); }
    /// S_OK, or what is wrong.
    HRESULT Fault() const { return m_nFault; }
    /// Which argument is wrong, as the call's record counts them.
    UINT FaultyIndex() const { return m_nFaultyIndex; }

  private:
    VARIANT* At(UINT nPosition) const;
    void Fail(HRESULT nFault, UINT nPosition);
    void Store(UINT nPosition, VARIANT& Result);

    DISPPARAMS& m_Parameters;
    HRESULT m_nFault = S_OK;
    UINT m_nFaultyIndex = 0;
};

}  // namespace taviro::automation
