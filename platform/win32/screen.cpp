// SPDX-License-Identifier: MIT
#include "platform/win32/screen.h"

#include "platform/unneeded.h"
#include "platform/win32/failure.h"

namespace taviro::platform::win32 {

namespace {
constexpr int32_t NORMAL_DPI = 96;
constexpr int32_t POINTS_PER_INCH = 72;
}  // namespace

int32_t ScreenCapability(int nIndex) {
    const HDC hScreen = GetDC(nullptr);
    if (OrReport(hScreen, "GetDC") == nullptr) return NORMAL_DPI;
    const int nValue = GetDeviceCaps(hScreen, nIndex);
    Unneeded(ReleaseDC(nullptr, hScreen));  // cannot fail for a context just borrowed
    return nValue > 0 ? nValue : NORMAL_DPI;
}

UniqueFont MakeScreenFont(const forms::Font& Font) {
    const int nHeight = -MulDiv(Font.nSize, ScreenCapability(LOGPIXELSY), POINTS_PER_INCH);
    return UniqueFont(OrReport(
        CreateFontW(nHeight, 0, 0, 0, Font.bBold ? FW_BOLD : FW_NORMAL, Font.bItalic ? 1U : 0U,
                    Font.bUnderline ? 1U : 0U, Font.bStrikeOut ? 1U : 0U, DEFAULT_CHARSET,
                    OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                    DEFAULT_PITCH | FF_DONTCARE, Font.strName.c_str()),
        "CreateFont"));
}

}  // namespace taviro::platform::win32
