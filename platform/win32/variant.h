// SPDX-License-Identifier: MIT
// Values of automation calls as the system's variants and back. Null BSTR stays a null string on
// the way out; on the way in it is an empty text, as every automation client reads it.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include "platform/automation.h"
#include "win32/com/owners.h"

namespace taviro::platform {

/// A live object: one reference, released with the last copy of the AutomationObject.
struct AutomationServer {
    explicit AutomationServer(IDispatch* pOwned) : Dispatch(pOwned) {}

    const com::UniqueObject<IDispatch> Dispatch;  ///< never null
};

}  // namespace taviro::platform

namespace taviro::platform::win32 {

using com::Variant;

/// Fills an empty variant. Returns false when memory runs out.
bool ToVariant(const AutomationValue& Value, VARIANT& Variant);

/// Makes Reference point at the content of Held: what a callee gets of a by-reference argument.
void ReferTo(VARIANT& Held, VARIANT& Reference);

/// The variant's value; what the contract's types cannot hold becomes empty.
AutomationValue FromVariant(const VARIANT& Variant);

}  // namespace taviro::platform::win32
