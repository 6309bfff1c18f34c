// SPDX-License-Identifier: MIT
// What the registry must hold so that clients find a server program and the class that it offers.
// All keys lie below "Software\Classes", and all of them are the program's own, so that
// unregistering can remove them whole. Plain values: what is written is tested on every system.
#pragma once

#include <string>
#include <vector>

namespace taviro::com {

/// For whom a class is registered. The machine's registry takes an administrator.
enum class RegistrationScope { User, Machine };

struct RegistryValue {
    std::wstring strKey;
    std::wstring strName;  ///< empty for the key's default value
    std::wstring strText;
};

/// A key that goes with everything below it.
struct RegistryTree {
    std::wstring strParent;  ///< empty for "Software\Classes" itself
    std::wstring strKey;
};

struct Registration {
    std::vector<RegistryValue> Values;
    std::vector<RegistryTree> Trees;  ///< what unregistering removes
    /// Common keys that registering may have made and that go when nothing else is in them, in this
    /// order; the empty one is "Software\Classes" itself.
    std::vector<std::wstring> Parents;
};

/// A class whose objects live in a program of their own.
struct ServerClass {
    std::wstring strId;    ///< in braces
    std::wstring strName;  ///< by which scripts ask for it; its first version has ".1" behind it
    std::wstring strDescription;
};

/// What leads from the name to the class and from the class to the program at this path. Clients
/// that call late-bound need no more.
[[nodiscard]] Registration RegistrationOf(const ServerClass& Class,
                                          const std::wstring& strServerPath);

/// "CLSID\{…}", for the values that a program adds to its class.
[[nodiscard]] std::wstring KeyOf(const ServerClass& Class);

}  // namespace taviro::com
