// SPDX-License-Identifier: MIT
// Calls by member number, as scripts make them.
#pragma once

#include "automation/gui.h"
#include "automation/win32/call_arguments.h"

namespace taviro::automation {

/// The result that clients get of an outcome.
HRESULT ToResult(CallOutcome nOutcome);

/// What a script's user reads about a failed call; empty for failures that the system explains.
const wchar_t* Explanation(HRESULT nResult);

/// Carries out a call of the member of this number (see gui.idl). Fills Faulty when an argument is
/// wrong. Memory that runs out is thrown.
HRESULT CallMember(const GUI& Object, DISPID nMember, DISPPARAMS& Parameters, UINT& nFaulty);

}  // namespace taviro::automation
