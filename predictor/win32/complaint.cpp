// SPDX-License-Identifier: MIT
#include "predictor/win32/complaint.h"

#include <windows.h>

#include "win32/com/console.h"

namespace taviro::predictor {

void Complain(const std::wstring& strSentence) {
    const std::wstring strLine = L"presager: " + strSentence + L"\n";
    if (!com::WriteToErrorOutput(strLine)) OutputDebugStringW(strLine.c_str());
}

}  // namespace taviro::predictor
