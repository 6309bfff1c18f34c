// SPDX-License-Identifier: MIT
#include "platform/win32/dialog_template.h"

#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/win32/failure.h"
#include "platform/win32/screen.h"

namespace taviro::platform::win32 {

namespace {

// An extended layout: 26 bytes of numbers, then menu, class and title, each a text that ends with a
// zero, or 0xFFFF and a number; then the font; then, on a border of four bytes, the controls.
constexpr size_t TEXTS_START = 26 / sizeof(WORD);
constexpr WORD EXTENDED_SIGNATURE = 0xFFFF;
constexpr WORD ORDINAL = 0xFFFF;
constexpr int TEXTS_BEFORE_FONT = 3;
constexpr size_t FONT_NUMBERS = 3;  // size; weight; italic and character set
constexpr int POINTS_PER_INCH = 72;

using Words = std::vector<WORD>;

size_t AfterText(const Words& Layout, size_t nAt) {
    if (nAt < Layout.size() && Layout[nAt] == ORDINAL) return nAt + 2;
    while (nAt < Layout.size() && Layout[nAt] != 0)
        ++nAt;
    return nAt + 1;
}

size_t OnDwordBorder(size_t nWords) {
    return nWords + nWords % 2;
}

Words FontRecord(const LOGFONTW& Font) {
    const int nPoints = MulDiv(std::abs(Font.lfHeight), POINTS_PER_INCH, SystemDpi());
    Words Record{static_cast<WORD>(nPoints), static_cast<WORD>(Font.lfWeight),
                 static_cast<WORD>(Font.lfItalic | (Font.lfCharSet << 8))};
    const std::wstring strFace = static_cast<const wchar_t*>(Font.lfFaceName);
    Record.insert(Record.end(), strFace.begin(), strFace.end());
    Record.push_back(0);
    return Record;
}

// The same layout with another font; as it is when it names none or is not of the extended kind.
Words WithFont(const Words& Layout, const LOGFONTW& Font) {
    if (Layout.size() <= TEXTS_START || Layout[1] != EXTENDED_SIGNATURE) return Layout;
    DWORD nStyle = 0;
    std::memcpy(&nStyle, &Layout[6], sizeof(nStyle));
    if ((nStyle & DS_SETFONT) == 0) return Layout;
    size_t nFont = TEXTS_START;
    for (int i = 0; i < TEXTS_BEFORE_FONT; ++i)
        nFont = AfterText(Layout, nFont);
    const size_t nControls = OnDwordBorder(AfterText(Layout, nFont + FONT_NUMBERS));
    if (nControls > Layout.size()) return Layout;
    Words Changed(Layout.begin(), Layout.begin() + static_cast<ptrdiff_t>(nFont));
    const Words Record = FontRecord(Font);
    Changed.insert(Changed.end(), Record.begin(), Record.end());
    Changed.resize(OnDwordBorder(Changed.size()));
    Changed.insert(Changed.end(), Layout.begin() + static_cast<ptrdiff_t>(nControls), Layout.end());
    return Changed;
}

}  // namespace

std::vector<uint32_t> LoadDialogTemplate(const wchar_t* szName) {
    const HRSRC hFound = OrReport(FindResourceW(nullptr, szName, RT_DIALOG), "FindResource");
    const HGLOBAL hLoaded = hFound == nullptr ? nullptr : LoadResource(nullptr, hFound);
    const void* pBytes = hLoaded == nullptr ? nullptr : LockResource(hLoaded);
    if (pBytes == nullptr) return {};
    Words Layout(SizeofResource(nullptr, hFound) / sizeof(WORD));
    std::memcpy(Layout.data(), pBytes, Layout.size() * sizeof(WORD));
    NONCLIENTMETRICSW Metrics{};
    Metrics.cbSize = sizeof(Metrics);
    // Without an answer the layout keeps the font that it was drawn with.
    if (OrReport(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(Metrics), &Metrics, 0),
                 "SystemParametersInfo(SPI_GETNONCLIENTMETRICS)")) {
        Layout = WithFont(Layout, Metrics.lfMessageFont);
    }
    std::vector<uint32_t> Aligned((Layout.size() + 1) / 2);
    std::memcpy(Aligned.data(), Layout.data(), Layout.size() * sizeof(WORD));
    return Aligned;
}

}  // namespace taviro::platform::win32
