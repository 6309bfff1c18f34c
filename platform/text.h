// SPDX-License-Identifier: MIT
// Text conversion. In memory text is std::wstring, one element per character, or the two of a
// surrogate pair; 8-bit files (maps,
// settings, log) are Windows-1250 on every system, so that Czech text survives wherever the
// program runs. UTF-8 is for people's terminals and the simulator's files.
#pragma once

#include <string>
#include <string_view>

namespace taviro::platform {

/// Windows-1250 bytes to text. The five bytes that the code page leaves undefined (81, 83, 88, 90
/// and 98 hex) become the control characters of the same number, so every byte has a character.
[[nodiscard]] std::wstring FromAnsi(std::string_view strBytes);

/// Text to Windows-1250 bytes; a character that the code page lacks becomes "?". The inverse of
/// FromAnsi for every byte string.
[[nodiscard]] std::string ToAnsi(std::wstring_view strText);

/// Whether Windows-1250 has every character of the text.
[[nodiscard]] bool IsInCodePage(std::wstring_view strText);

/// UTF-8 to text; a malformed sequence becomes U+FFFD, a character beyond 16 bits a surrogate pair.
[[nodiscard]] std::wstring FromUtf8(std::string_view strBytes);

/// Text to UTF-8.
[[nodiscard]] std::string ToUtf8(std::wstring_view strText);

/// Text without leading and trailing blanks (character 32 only).
[[nodiscard]] std::wstring_view TrimBlanks(std::wstring_view strText);

/// Lower and upper case of the Latin letters that Windows-1250 holds; other characters unchanged.
[[nodiscard]] std::wstring ToLower(std::wstring_view strText);
[[nodiscard]] std::wstring ToUpper(std::wstring_view strText);

}  // namespace taviro::platform
