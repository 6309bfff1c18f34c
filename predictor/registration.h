// SPDX-License-Identifier: MIT
// What the registry must hold so that clients find the dictionary's server. They call late-bound
// only, so there is no interface and no type library.
#pragma once

#include <string>

#include "win32/com/registration.h"

namespace taviro::predictor {

/// For a server at this path; for unregistering the path does not matter.
[[nodiscard]] com::Registration DictionaryRegistration(const std::wstring& strServerPath);

}  // namespace taviro::predictor
