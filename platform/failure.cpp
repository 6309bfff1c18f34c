// SPDX-License-Identifier: MIT
#include "platform/failure.h"

#include <new>

#include "platform/text.h"

namespace taviro::platform {

namespace {

constexpr uint32_t FIRST_RESULT_CODE = 0x80000000;  // from here on codes are known in hexadecimal

std::string CodeText(uint32_t nCode) {
    if (nCode < FIRST_RESULT_CODE) return std::to_string(nCode);
    constexpr std::string_view DIGITS = "0123456789ABCDEF";
    std::string strText = "0x";
    for (int nShift = 28; nShift >= 0; nShift -= 4)
        strText += DIGITS[(nCode >> static_cast<uint32_t>(nShift)) & 0xFU];
    return strText;
}

bool IsPowerOfTen(uint32_t nCount) {
    while (nCount > 1 && nCount % 10 == 0)
        nCount /= 10;
    return nCount == 1;
}

void Report(const char* szWhere, uint32_t nCode) {
    const uint32_t nCount = ++Reports.Counts[{szWhere, nCode}];
    if (!IsPowerOfTen(nCount)) return;
    std::string strLine = std::string("Failed: ") + szWhere + ", error " + CodeText(nCode);
    if (nCount > 1) strLine += " (" + std::to_string(nCount) + " times)";
    const std::wstring strShown = FromUtf8(strLine);
    WriteToDebugger(strShown);
    if (Reports.Tell) Reports.Tell(strShown);
}

}  // namespace

void ReportFailure(const char* szWhere, uint32_t nCode) noexcept {
    try {
        Report(szWhere, nCode);
    } catch (...) {
        return;  // no memory even to say so: the program's next step is worth more
    }
}

uint32_t ReportException(const char* szWhere) noexcept {
    uint32_t nCode = CODE_FAILED;
    try {
        throw;
    } catch (const std::bad_alloc&) {
        nCode = CODE_OUT_OF_MEMORY;
    } catch (...) {
        nCode = CODE_FAILED;
    }
    ReportFailure(szWhere, nCode);
    return nCode;
}

}  // namespace taviro::platform
