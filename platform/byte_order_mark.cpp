// SPDX-License-Identifier: MIT
#include "platform/byte_order_mark.h"

#include "platform/text.h"

namespace taviro::platform {

namespace {

constexpr std::string_view LITTLE_END_FIRST = "\xFF\xFE";
constexpr std::string_view BIG_END_FIRST = "\xFE\xFF";

// An odd last byte is no character.
std::wstring FromUtf16(std::string_view strBytes, bool bLittleEndFirst) {
    std::wstring strText;
    strText.reserve(strBytes.size() / 2);
    for (size_t i = 0; i + 1 < strBytes.size(); i += 2) {
        const auto nFirst = static_cast<unsigned char>(strBytes[i]);
        const auto nSecond = static_cast<unsigned char>(strBytes[i + 1]);
        const int nUnit = bLittleEndFirst ? nSecond << 8 | nFirst : nFirst << 8 | nSecond;
        strText += static_cast<wchar_t>(nUnit);
    }
    return strText;
}

}  // namespace

bool HasByteOrderMark(std::string_view strBytes) {
    return strBytes.starts_with(UTF8_MARK) || strBytes.starts_with(LITTLE_END_FIRST) ||
           strBytes.starts_with(BIG_END_FIRST);
}

std::string MarkedTextAsUtf8(std::string_view strBytes) {
    if (strBytes.starts_with(UTF8_MARK)) return std::string(strBytes.substr(UTF8_MARK.size()));
    const bool bLittleEndFirst = strBytes.starts_with(LITTLE_END_FIRST);
    return ToUtf8(FromUtf16(strBytes.substr(LITTLE_END_FIRST.size()), bLittleEndFirst));
}

}  // namespace taviro::platform
