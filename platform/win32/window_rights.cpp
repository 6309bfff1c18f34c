// SPDX-License-Identifier: MIT
#include <windows.h>

#include <optional>
#include <vector>

#include "platform/win32/handles.h"
#include "platform/windows_and_processes.h"

namespace taviro::platform {

using win32::UniqueHandle;

namespace {

UniqueHandle TokenOf(HANDLE hProcess) {
    HANDLE hToken = nullptr;
    if (OpenProcessToken(hProcess, TOKEN_QUERY, &hToken) == FALSE) return nullptr;
    return UniqueHandle(hToken);
}

// The integrity level of a token: the last part of its label; none when the system does not tell.
std::optional<DWORD> IntegrityOf(const UniqueHandle& hToken) {
    DWORD nSize = 0;
    if (GetTokenInformation(hToken.get(), TokenIntegrityLevel, nullptr, 0, &nSize) == FALSE &&
        GetLastError() != ERROR_INSUFFICIENT_BUFFER)
        return std::nullopt;
    std::vector<BYTE> Label(nSize);
    if (GetTokenInformation(hToken.get(), TokenIntegrityLevel, Label.data(), nSize, &nSize) ==
        FALSE)
        return std::nullopt;
    PSID pSid = reinterpret_cast<const TOKEN_MANDATORY_LABEL*>(Label.data())->Label.Sid;
    return *GetSidSubAuthority(pSid, static_cast<DWORD>(*GetSidSubAuthorityCount(pSid)) - 1);
}

// A program that the system was told to let drive all windows.
bool DrivesAll(const UniqueHandle& hToken) {
    DWORD nUiAccess = 0;
    DWORD nSize = 0;
    return GetTokenInformation(hToken.get(), TokenUIAccess, &nUiAccess, sizeof(nUiAccess),
                               &nSize) != FALSE &&
           nUiAccess != 0;
}

}  // namespace

bool MayDriveWindow(WindowHandle hWindow) {
    const uint32_t nProcess = WindowProcess(hWindow);
    if (nProcess == 0) return true;
    const UniqueHandle hOwnToken = TokenOf(GetCurrentProcess());
    const std::optional<DWORD> nOwn = IntegrityOf(hOwnToken);
    if (!nOwn.has_value() || DrivesAll(hOwnToken)) return true;
    const UniqueHandle hProcess(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, nProcess));
    if (hProcess == nullptr) return GetLastError() != ERROR_ACCESS_DENIED;
    const UniqueHandle hToken = TokenOf(hProcess.get());
    if (hToken == nullptr) return GetLastError() != ERROR_ACCESS_DENIED;
    return IntegrityOf(hToken).value_or(0) <= *nOwn;
}

}  // namespace taviro::platform
