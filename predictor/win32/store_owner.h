// SPDX-License-Identifier: MIT
// The learned words have one owner at a time: a running server, or the order to forget them. The
// order asks a running server to do it; the server hears of it through a pair of events.
#pragma once

#include <filesystem>
#include <string>

#include "win32/com/handles.h"

namespace taviro::predictor {

/// Takes hold of the folder of learned words, which is made if need be: a file in it that no other
/// process can open and that goes when its holder ends or dies. A holder that is just ending is
/// waited for. Null when somebody else keeps it, or when the folder cannot be made.
[[nodiscard]] com::UniqueHandle HoldStore(const std::filesystem::path& Folder);

/// What a running server listens to. All null when the system refuses.
struct ForgetSignals {
    com::UniqueHandle hWanted;  ///< set by the order
    com::UniqueHandle hDone;    ///< set by the server when it has forgotten
};
[[nodiscard]] ForgetSignals OfferForgetting();

/// Carries out the order to forget. Returns false with a Czech reason when it failed.
[[nodiscard]] bool ForgetLearned(std::wstring& strReason);

}  // namespace taviro::predictor
