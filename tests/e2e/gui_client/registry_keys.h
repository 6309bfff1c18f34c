// SPDX-License-Identifier: MIT
// The classes in the registry, as the tests of registering look at them.
#pragma once

#include <windows.h>

#include <string>

namespace taviro::probe {

/// Answers with what has changed in the registered classes since the first time that it was asked:
/// each key, and each value of a key, as "+" or "-", path, and for a value its name and text. Root
/// is "user" or "machine" (whose classes are told apart by their names alone), view "64" or "32".
void AnswerChanges(const std::wstring& strRoot, const std::wstring& strView);

/// Makes a key of the user's classes below which no lasting key can be made.
LSTATUS MakeVolatileKey(const std::wstring& strKey);

}  // namespace taviro::probe
