// SPDX-License-Identifier: MIT
// Numbers in the texts of maps and settings: how a text becomes a number and how a number is
// rounded to 32 bits. Every reader of a user's file uses these, so that all agree.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace taviro::platform {

/// The decimal number at the start of the text: blanks and tabs are skipped wherever they stand,
/// then an optional sign, digits and a decimal point; reading stops at the first character that
/// cannot continue the number. An empty text, or one that starts with anything else, is 0.
[[nodiscard]] double LeadingNumber(std::wstring_view strText);

/// Rounds to the nearest whole number, halves to even. Returns false, and leaves nValue alone, when
/// the result does not fit 32 bits.
[[nodiscard]] bool RoundToInt32(double fNumber, int32_t& nValue);

/// The whole text as a number, however large: blanks around it, a sign, digits and a decimal point
/// are allowed, anything else is not a number.
[[nodiscard]] std::optional<double> WholeTextToNumber(std::wstring_view strText);

/// The same, rounded as above. Returns false, and leaves nValue alone, when the text is not a
/// number or does not fit.
[[nodiscard]] bool WholeTextToInt32(std::wstring_view strText, int32_t& nValue);

}  // namespace taviro::platform
