// SPDX-License-Identifier: MIT
// The tests of the Windows platform, or one of the roles in which they start this program again.
#include <windows.h>

#include <cstdlib>
#include <gtest/gtest.h>
#include <objbase.h>
#include <shellapi.h>

#include "platform/files.h"
#include "platform/shell.h"
#include "tests/win32/test_support.h"

namespace {

/// Saves two contents in turn until it is killed.
int SaveForever(const std::wstring& strPath) {
    for (bool bSecond = false;; bSecond = !bSecond) {
        if (!taviro::platform::ReplaceFileBytes(strPath, taviro::tests::SavedContent(bSecond))) {
            return EXIT_FAILURE;
        }
    }
}

}  // namespace

int main(int nArguments, char** pArguments) {
    int nWide = 0;
    wchar_t** pWide = CommandLineToArgvW(GetCommandLineW(), &nWide);
    if (pWide != nullptr && nWide == 3) {
        const std::wstring strRole = pWide[1];
        if (strRole == taviro::tests::ROLE_SAVE_FOREVER) return SaveForever(pWide[2]);
        if (strRole == taviro::tests::ROLE_CLAIM) {
            return taviro::platform::ClaimSingleInstance() ? taviro::tests::CLAIM_GRANTED
                                                           : taviro::tests::CLAIM_REFUSED;
        }
    }
    LocalFree(pWide);
    if (FAILED(CoInitialize(nullptr))) return EXIT_FAILURE;
    testing::InitGoogleTest(&nArguments, pArguments);
    return RUN_ALL_TESTS();
}
