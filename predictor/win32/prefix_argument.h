// SPDX-License-Identifier: MIT
// The one argument of the dictionary's method. Clients pass what they have: a text or a number, by
// value, by reference, in a variant by reference, and those in each other. A text may hold any
// character, NUL too. A changed prefix goes back the way it came.
#pragma once

#include <windows.h>

#include <oleauto.h>
#include <string>

namespace taviro::predictor {

/// Reads the prefix: an empty or null value is an empty text, a number is written as the system
/// writes it for scripts. Returns DISP_E_TYPEMISMATCH for what is no text (an object, an array).
[[nodiscard]] HRESULT ReadPrefix(VARIANT& Given, std::wstring& strPrefix);

/// Stores a prefix in an argument that was passed by reference and takes texts; any other has no
/// place for it and stays as it is. Fails only for lack of memory.
[[nodiscard]] HRESULT WritePrefix(VARIANT& Given, const std::wstring& strPrefix);

}  // namespace taviro::predictor
