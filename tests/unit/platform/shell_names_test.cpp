// SPDX-License-Identifier: MIT
// Which names are handed to the shell at all.
#include "platform/shell_names.h"

#include <gtest/gtest.h>
#include <string>

namespace taviro::platform {
namespace {

std::wstring OfLength(const std::wstring& strBegin, size_t nLength) {
    return strBegin + std::wstring(nLength - strBegin.size(), L'x');
}

TEST(ShellNames, LongAddress_CanBeOpened_ALongFileNameCannot) {
    const struct {
        const char* szName;
        std::wstring strFile;
        bool bOpens;
    } ROWS[] = {
        {"nothing", L"", false},
        {"program", L"notepad", true},
        {"longest file name with its quotes", OfLength(L"C:\\", 262), true},
        {"too long a file name", OfLength(L"C:\\", 263), false},
        {"too long without a drive", OfLength(L"x", 263), false},
        {"address", L"https://www.example.org", true},
        {"long address", OfLength(L"https://www.example.org/?q=", 1500), true},
        {"longest address", OfLength(L"https://", 2085), true},
        {"too long an address", OfLength(L"https://", 2086), false},
        {"long address in quotes", OfLength(L"\"https://", 1500), true},
        {"address of a mail", OfLength(L"mailto:a@example.org?body=", 1500), true},
        {"colon alone", OfLength(L":", 263), false},
        {"no scheme before the colon", OfLength(L"a b:", 263), false},
        {"number before the colon", OfLength(L"7z:", 263), false},
    };
    for (const auto& Row : ROWS)
        EXPECT_EQ(CanBeOpened(Row.strFile), Row.bOpens) << Row.szName;
}

}  // namespace
}  // namespace taviro::platform
