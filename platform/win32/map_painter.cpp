// SPDX-License-Identifier: MIT
#include "platform/win32/map_painter.h"

#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/screen.h"

namespace taviro::platform::win32 {

namespace {

constexpr int32_t LEFT_INSET = 2;  // pixels between a left-aligned text and the label's edge

COLORREF ColourOr(uint32_t nColour, int nSystemColour) {
    return nColour == forms::COLOUR_SYSTEM ? GetSysColor(nSystemColour) : nColour;
}

void Fill(HDC hTarget, const RECT& Area, COLORREF nColour) {
    // The stock brush takes any colour, so nothing is made and deleted for each cell.
    Unneeded(SetDCBrushColor(hTarget, nColour));
    OrReport(FillRect(hTarget, &Area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH))), "FillRect");
}

}  // namespace

void MapPainter::SetScale(Scale Monitor) {
    m_Scale = Monitor;
    m_Fonts.clear();
}

RECT MapPainter::RectangleOf(const forms::Label& Shown) const {
    if (!Shown.Visible) return {};
    return {.left = m_Scale.ToMonitor(Shown.Left),
            .top = m_Scale.ToMonitor(Shown.Top),
            .right = m_Scale.ToMonitor(Shown.Left + Shown.Width),
            .bottom = m_Scale.ToMonitor(Shown.Top + Shown.Height)};
}

bool MapPainter::Note(const forms::Label& Changed) {
    const bool bFirst = m_Changed.empty();
    m_Changed.insert(&Changed);
    return bFirst;
}

std::vector<RECT> MapPainter::TakeStale() {
    std::vector<RECT> Stale;
    for (const forms::Label* pChanged : m_Changed) {
        const RECT Now = RectangleOf(*pChanged);
        RECT& Before = m_Covered[pChanged];
        if (IsRectEmpty(&Before) == FALSE && EqualRect(&Before, &Now) == FALSE) {
            Stale.push_back(Before);
        }
        if (IsRectEmpty(&Now) == FALSE) Stale.push_back(Now);
        Before = Now;
    }
    m_Changed.clear();
    return Stale;
}

void MapPainter::Paint(HDC hWindowDc, const RECT& Clip, forms::MainForm& Form) {
    const int nWidth = Clip.right - Clip.left;
    const int nHeight = Clip.bottom - Clip.top;
    if (nWidth <= 0 || nHeight <= 0) return;
    const UniqueDc hBuffer(OrReport(CreateCompatibleDC(hWindowDc), "CreateCompatibleDC"));
    const UniqueBitmap hBitmap(
        OrReport(CreateCompatibleBitmap(hWindowDc, nWidth, nHeight), "CreateCompatibleBitmap"));
    if (!hBuffer || !hBitmap) {  // short of memory: rather a flicker than an empty window
        PaintAll(hWindowDc, hWindowDc, Clip, Form);
        return;
    }
    const HGDIOBJ hOldBitmap = SelectObject(hBuffer.get(), hBitmap.get());
    // What cannot be drawn now is drawn at the next repaint.
    OrReport(SetViewportOrgEx(hBuffer.get(), -Clip.left, -Clip.top, nullptr), "SetViewportOrgEx");
    PaintAll(hBuffer.get(), hWindowDc, Clip, Form);
    OrReport(BitBlt(hWindowDc, Clip.left, Clip.top, nWidth, nHeight, hBuffer.get(), Clip.left,
                    Clip.top, SRCCOPY),
             "BitBlt");
    Unneeded(SelectObject(hBuffer.get(), hOldBitmap));
}

void MapPainter::PaintAll(HDC hTarget, HDC hWindowDc, const RECT& Clip, forms::MainForm& Form) {
    Fill(hTarget, Clip, GetSysColor(COLOR_BTNFACE));
    const HGDIOBJ hOldFont = GetCurrentObject(hTarget, OBJ_FONT);
    Unneeded(SetBkMode(hTarget, TRANSPARENT));
    const auto PaintIfStale = [&](const forms::Label& Shown) {
        const RECT Area = RectangleOf(Shown);
        if (IsRectEmpty(&Area) == FALSE && RectVisible(hWindowDc, &Area) != FALSE) {
            PaintLabel(hTarget, Shown);
        }
    };
    for (int32_t i = 1; i < forms::CELL_LABEL_COUNT; ++i) {
        if (const forms::Label* pCell = Form.CellLabel(i)) PaintIfStale(*pCell);
    }
    PaintIfStale(Form.Label1);
    Unneeded(SelectObject(hTarget, hOldFont));
}

void MapPainter::PaintLabel(HDC hTarget, const forms::Label& Shown) {
    RECT Area = RectangleOf(Shown);
    Fill(hTarget, Area, ColourOr(Shown.BackColour, COLOR_BTNFACE));
    const std::wstring& strCaption = Shown.Caption;
    if (strCaption.empty()) return;
    Unneeded(SetTextColor(hTarget, ColourOr(Shown.TextColour, COLOR_BTNTEXT)));
    Unneeded(SelectObject(hTarget, FontOf(Shown)));
    UINT nFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
    if (Shown.TextAlignment == forms::Alignment::Centre) {
        nFormat |= DT_CENTER;
    } else {
        Area.left += m_Scale.ToMonitor(LEFT_INSET);
    }
    OrReport(DrawTextW(hTarget, strCaption.c_str(), static_cast<int>(strCaption.size()), &Area,
                       nFormat) != 0,
             "DrawText");
}

HFONT MapPainter::FontOf(const forms::Label& Shown) {
    const forms::Font& Wanted = Shown.TextFont;
    for (const auto& [Known, hFont] : m_Fonts) {
        if (Known == Wanted) return hFont.get();
    }
    UniqueFont hMade = MakeScreenFont(Wanted, m_Scale);
    if (!hMade) return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    m_Fonts.emplace_back(Wanted, std::move(hMade));
    return m_Fonts.back().second.get();
}

}  // namespace taviro::platform::win32
