// SPDX-License-Identifier: MIT
#include "platform/text_extent.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/handles.h"

namespace taviro::platform {

namespace {

/// The context and what is selected into it. Declared so that the context goes first: a font can
/// only be deleted once no context holds it.
struct MeasureContext {
    win32::UniqueFont hFont;
    win32::UniqueBitmap hBitmap;
    win32::UniqueDc hDc;
};
MeasureContext Measure;

LOGFONTW ToSystemFont(const LogicalFont& Font) {
    LOGFONTW System{};
    System.lfHeight = Font.nHeight;
    System.lfWeight = Font.nWeight;
    System.lfItalic = Font.bItalic ? 1 : 0;
    System.lfUnderline = Font.bUnderline ? 1 : 0;
    System.lfStrikeOut = Font.bStrikeOut ? 1 : 0;
    System.lfCharSet = DEFAULT_CHARSET;
    const size_t nLength = std::min<size_t>(Font.strFaceName.size(), LF_FACESIZE - 1);
    std::copy_n(Font.strFaceName.data(), nLength, System.lfFaceName);
    return System;
}

}  // namespace

bool CreateMeasureContext(const LogicalFont& Font) {
    DeleteMeasureContext();
    const LOGFONTW System = ToSystemFont(Font);
    MeasureContext Made;
    Made.hDc.reset(win32::OrReport(CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr), "CreateDC"));
    if (!Made.hDc) return false;
    Made.hBitmap.reset(CreateCompatibleBitmap(Made.hDc.get(), 1, 1));
    Made.hFont.reset(win32::OrReport(CreateFontIndirectW(&System), "CreateFontIndirect"));
    if (!Made.hFont || win32::OrReport(SelectObject(Made.hDc.get(), Made.hFont.get()),
                                       "SelectObject(font)") == nullptr) {
        return false;
    }
    // A screen context takes no bitmap; the font alone decides the measures, so a refusal is fine.
    Unneeded(SelectObject(Made.hDc.get(), Made.hBitmap.get()));
    Measure.hDc = std::move(Made.hDc);
    Measure.hBitmap = std::move(Made.hBitmap);
    Measure.hFont = std::move(Made.hFont);
    return true;
}

bool HasMeasureContext() {
    return Measure.hDc != nullptr;
}

TextSize MeasureInContext(const std::wstring& strText) {
    if (!Measure.hDc) return {};
    // Through Windows-1250 and back: what the code page lacks is measured as it will be stored.
    const std::wstring strAnsi = FromAnsi(ToAnsi(strText));
    SIZE Size{};
    if (!win32::OrReport(GetTextExtentPoint32W(Measure.hDc.get(), strAnsi.c_str(),
                                               static_cast<int>(strAnsi.size()), &Size),
                         "GetTextExtentPoint32")) {
        return {};
    }
    return {.nWidth = Size.cx, .nHeight = Size.cy};
}

void DeleteMeasureContext() {
    Measure.hDc.reset();
    Measure.hBitmap.reset();
    Measure.hFont.reset();
}

}  // namespace taviro::platform
