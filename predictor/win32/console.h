// SPDX-License-Identifier: MIT
// What the server has to say, and to whom.
#pragma once

#include <string>

namespace taviro::predictor {

/// To the user who gave an order: to his console, or the file in its place. Returns false when
/// there is neither.
bool TellUser(const std::wstring& strText);

/// To whoever looks for the reason why there are no offers: to the server's own error output where
/// there is one, else to the system's debug output. One line, with the server's name before it.
void Complain(const std::wstring& strSentence);

/// What the system says about one of its error codes.
[[nodiscard]] std::wstring ReasonOf(long nError);

}  // namespace taviro::predictor
