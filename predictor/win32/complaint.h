// SPDX-License-Identifier: MIT
// What the server says while it serves.
#pragma once

#include <string>

namespace taviro::predictor {

/// To whoever looks for the reason why there are no offers: to the server's own error output where
/// there is one, else to the system's debug output. One line, with the server's name before it.
void Complain(const std::wstring& strSentence);

}  // namespace taviro::predictor
