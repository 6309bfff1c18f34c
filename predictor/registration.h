// SPDX-License-Identifier: MIT
// What the registry must hold so that clients find the dictionary's server. All keys lie below
// "Software\Classes", and all of them are the server's own, so that unregistering can remove them
// whole. Clients call late-bound only, so there is no interface and no type library.
#pragma once

#include <string>
#include <vector>

namespace taviro::predictor {

struct RegistryValue {
    std::wstring strKey;
    std::wstring strText;  ///< of the key's default value
};

/// All values for a server at this path.
[[nodiscard]] std::vector<RegistryValue> RegistrationValues(const std::wstring& strServerPath);

/// Keys that go with everything below them.
struct RegistryTree {
    std::wstring strParent;  ///< empty for "Software\Classes" itself
    std::wstring strKey;
};
[[nodiscard]] std::vector<RegistryTree> RegistrationTrees();

/// Common keys that registering may have made and that go when nothing else is in them, in this
/// order; the empty one is "Software\Classes" itself.
[[nodiscard]] std::vector<std::wstring> RegistrationParents();

}  // namespace taviro::predictor
