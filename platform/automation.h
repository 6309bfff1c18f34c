// SPDX-License-Identifier: MIT
// Late-bound automation objects (speech engine, reader, relay, dictionary): created by ProgID,
// their members called by name. Nothing here throws; a member that is missing or fails gives false.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <variant>

namespace taviro::platform {

struct AutomationServer;  // defined by each platform

/// A reference to a live object; empty when there is none. The last copy releases the object.
using AutomationObject = std::shared_ptr<AutomationServer>;

/// A string that is absent, where the callee tells it from an empty one.
struct NullString {
    bool operator==(const NullString&) const = default;
};

/// A value passed to or returned from a member. monostate is "empty".
using AutomationValue =
    std::variant<std::monostate, NullString, int16_t, int32_t, std::wstring, AutomationObject>;

/// An argument; by reference, the callee may change it and the new value is stored back.
struct AutomationArgument {
    AutomationValue Value;
    bool bByReference = false;
};

/// Creates an object of the class. Returns false, Object empty, when the class is not registered or
/// its server does not start.
[[nodiscard]] bool CreateAutomationObject(const std::wstring& strProgId, AutomationObject& Object);

/// Calls a method. Returns false, and leaves Result alone, on failure.
[[nodiscard]] bool CallMethod(const AutomationObject& Object, const std::wstring& strMethod,
                              std::span<AutomationArgument> Arguments, AutomationValue& Result);

/// Reads and writes a property; an object value is put by reference.
[[nodiscard]] bool GetProperty(const AutomationObject& Object, const std::wstring& strProperty,
                               std::span<AutomationArgument> Arguments, AutomationValue& Result);
[[nodiscard]] bool PutProperty(const AutomationObject& Object, const std::wstring& strProperty,
                               const AutomationValue& Value);

}  // namespace taviro::platform
