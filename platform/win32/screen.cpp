// SPDX-License-Identifier: MIT
#include "platform/win32/screen.h"

#include <algorithm>

#include "platform/unneeded.h"
#include "platform/win32/failure.h"

namespace taviro::platform::win32 {

namespace {

constexpr int32_t POINTS_PER_INCH = 72;

/// A procedure that systems before Windows 10 do not have; null there.
template <class Procedure>
Procedure NewerProcedure(const char* szName) {
    const HMODULE hUser = GetModuleHandleW(L"user32.dll");
    if (hUser == nullptr) return nullptr;
    return reinterpret_cast<Procedure>(reinterpret_cast<void*>(GetProcAddress(hUser, szName)));
}

}  // namespace

int32_t SystemDpi() {
    const HDC hScreen = GetDC(nullptr);
    if (OrReport(hScreen, "GetDC") == nullptr) return LAYOUT_DPI;
    const int nValue = GetDeviceCaps(hScreen, LOGPIXELSY);
    Unneeded(ReleaseDC(nullptr, hScreen));  // cannot fail for a context just borrowed
    return std::max<int32_t>(nValue, LAYOUT_DPI);
}

Scale ScaleOf(HWND hWindow) {
    const auto pDpi = NewerProcedure<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
    const UINT nDpi = pDpi == nullptr ? 0 : pDpi(hWindow);
    return {.nDpi = nDpi == 0 ? SystemDpi() : std::max(static_cast<int32_t>(nDpi), LAYOUT_DPI)};
}

int32_t LayoutMetric(int nIndex) {
    const auto pMetric = NewerProcedure<int(WINAPI*)(int, UINT)>("GetSystemMetricsForDpi");
    if (pMetric != nullptr) return pMetric(nIndex, LAYOUT_DPI);
    const bool bLength = nIndex != SM_CMOUSEBUTTONS;
    return bLength ? Scale{SystemDpi()}.ToLayout(GetSystemMetrics(nIndex))
                   : GetSystemMetrics(nIndex);
}

UniqueFont MakeScreenFont(const forms::Font& Font, Scale Monitor) {
    const int nHeight = -MulDiv(Font.nSize, Monitor.nDpi, POINTS_PER_INCH);
    return UniqueFont(OrReport(
        CreateFontW(nHeight, 0, 0, 0, Font.bBold ? FW_BOLD : FW_NORMAL, Font.bItalic ? 1U : 0U,
                    Font.bUnderline ? 1U : 0U, Font.bStrikeOut ? 1U : 0U, DEFAULT_CHARSET,
                    OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                    DEFAULT_PITCH | FF_DONTCARE, Font.strName.c_str()),
        "CreateFont"));
}

}  // namespace taviro::platform::win32
