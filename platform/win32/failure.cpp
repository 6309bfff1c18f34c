// SPDX-License-Identifier: MIT
#include "platform/win32/failure.h"

#include "platform/failure.h"

namespace taviro::platform {

bool win32::OrReport(BOOL bDone, const char* szCall) {
    if (bDone != FALSE) return true;
    const DWORD nError = GetLastError();
    if (nError != ERROR_INVALID_WINDOW_HANDLE) ReportFailure(szCall, nError);
    return false;
}

bool win32::SucceededOrReport(HRESULT nResult, const char* szCall) {
    if (SUCCEEDED(nResult)) return true;
    ReportFailure(szCall, static_cast<uint32_t>(nResult));
    return false;
}

void WriteToDebugger(const std::wstring& strLine) {
    OutputDebugStringW((L"taviro: " + strLine + L"\r\n").c_str());
}

}  // namespace taviro::platform
