// SPDX-License-Identifier: MIT
#include "maps/map_window.h"

#include <algorithm>

#include "forms/main_form.h"
#include "maps/map_grid.h"
#include "maps/text_measure.h"
#include "platform/metrics.h"
#include "state/cursor_state.h"
#include "state/program_state.h"

namespace taviro {

namespace {

using forms::FrmMain;

constexpr int32_t CELL_GAP = 1;  // pixels of window background between cells
// Bounds of what a layout can use, whatever the settings file says: pixels, and points.
constexpr int32_t LARGEST_CELL = 8192;
constexpr int32_t LARGEST_TEXT = 2160;

// One pass over a map that places its labels.
struct Layout {
    const MapGrid& Grid;
    const int32_t nCellWidth = std::min(std::max(Program.nCellWidth, 0), LARGEST_CELL);
    const int32_t nCellHeight = std::min(std::max(Program.nCellHeight, 0), LARGEST_CELL);
    const forms::Font CellFont{.strName = L"Arial",
                               .nSize = std::min(std::max(Program.nCellTextSize, 1), LARGEST_TEXT),
                               .bBold = true};
    int32_t nMaxLeft = 0;
    int32_t nMaxTop = 0;

    void PlaceCell(int32_t nColumn, int32_t nRow, const std::wstring& strCaption);
    void PlaceRow(int32_t nRow);
    ~Layout() { ReleaseMeasureFont(); }
};

void Layout::PlaceCell(int32_t nColumn, int32_t nRow, const std::wstring& strCaption) {
    forms::Label* pLabel = FrmMain->CreateCellLabel((nRow - 1) * LABELS_PER_ROW + nColumn);
    if (pLabel == nullptr) return;
    // Prepared from the first label before it gets the cell font: the first layout of a run
    // measures with the label's initial font, later ones with the cell font of the layout before.
    PrepareMeasureFont(pLabel->TextFont);
    pLabel->Left = (nColumn - 1) * (nCellWidth + CELL_GAP);
    pLabel->Top = (nRow - 1) * (nCellHeight + CELL_GAP);
    pLabel->Width = nCellWidth;
    pLabel->Height = nCellHeight;
    if (!strCaption.empty()) nMaxLeft = std::max(nMaxLeft, pLabel->Left.Get());
    nMaxTop = std::max(nMaxTop, pLabel->Top.Get());
    pLabel->Visible = true;
    pLabel->Caption = strCaption;
    pLabel->BackColour = forms::COLOUR_BLACK;
    pLabel->TextColour = forms::COLOUR_WHITE;
    pLabel->TextFont = CellFont;
    const bool bFits = MeasureText(strCaption).nWidth <= nCellWidth;
    pLabel->TextAlignment = bFits ? forms::Alignment::Centre : forms::Alignment::Left;
}

void Layout::PlaceRow(int32_t nRow) {
    std::wstring strCaption;
    for (int32_t nColumn = 1; nColumn <= MAP_SEARCH_END; ++nColumn) {
        // Columns beyond the grid keep the caption of its last column.
        if (const MapCell* pInside = Grid.Cell(nColumn, nRow)) strCaption = pInside->Caption;
        PlaceCell(nColumn, nRow, strCaption);
    }
}

// With no row laid out, labels of an earlier map would still stand in the window.
void HideCells() {
    for (int32_t n = 1; n < forms::CELL_LABEL_COUNT; ++n) {
        if (forms::Label* pLabel = FrmMain->CellLabel(n)) pLabel->Visible = false;
    }
}

bool Holds(const forms::Label& Cell, int32_t nX, int32_t nY) {
    return Cell.Width > 0 && Cell.Height > 0 && nX >= Cell.Left && nY >= Cell.Top &&
           nX < Cell.Left + Cell.Width + CELL_GAP && nY < Cell.Top + Cell.Height + CELL_GAP;
}

void SizeWindow(const Layout& Done) {
    using platform::Metric;
    auto& Status = FrmMain->Label1;
    FrmMain->Width = (Done.nMaxLeft + Done.nCellWidth) * platform::TwipsPerPixelX();
    Status.Width = FrmMain->nScaleWidth;
    Status.Left = 0;
    Status.Top = Done.nMaxTop + Done.nCellHeight + CELL_GAP;
    const int32_t nAround = platform::SystemMetric(Metric::MenuHeight) +
                            2 * platform::SystemMetric(Metric::FrameHeight) +
                            platform::SystemMetric(Metric::CaptionHeight);
    FrmMain->Height = (Status.Top + Status.Height + nAround) * platform::TwipsPerPixelY();
}

void Colour(int32_t nIndex, uint32_t nBack, uint32_t nText) {
    forms::Label* pLabel = FrmMain->CellLabel(nIndex);
    if (pLabel == nullptr) return;
    pLabel->BackColour = nBack;
    pLabel->TextColour = nText;
}

}  // namespace

void LayOutMap() {
    const MapGrid& Grid = ShownMap();
    Layout Pass{Grid};
    int32_t nRow = 1;
    for (; nRow <= MAP_ROWS && !Grid.Cell(1, nRow)->Caption.empty(); ++nRow)
        Pass.PlaceRow(nRow);
    if (nRow == 1) HideCells();
    SizeWindow(Pass);
    NameCursorInCaption();
}

void NameCursorInCaption() {
    if (const MapCell* pCell = ShownMap().Cell(Cursor.nColumn, Cursor.nRow)) {
        FrmMain->Caption = L"Taviro - " + pCell->Caption;
    }
}

bool CellAt(int32_t nX, int32_t nY, int32_t& nColumn, int32_t& nRow) {
    if (nY >= FrmMain->Label1.Top) return false;  // the open list raises the status line
    const MapGrid& Grid = ShownMap();
    for (int32_t r = 1; r <= MAP_ROWS && !Grid.Cell(1, r)->Caption.empty(); ++r) {
        for (int32_t c = 1; c <= MAP_COLUMNS; ++c) {
            const forms::Label* pLabel = FrmMain->CellLabel((r - 1) * LABELS_PER_ROW + c);
            if (pLabel == nullptr || !Holds(*pLabel, nX, nY)) continue;
            nColumn = c;
            nRow = r;
            return true;
        }
    }
    return false;
}

void SetHi(int32_t nColumn, int32_t nRow) {
    const bool bFound =
        nColumn >= 1 && nColumn <= MAP_SEARCH_END && nRow >= 1 && nRow <= MAP_SEARCH_END;
    if (bFound) {
        Colour(FrmMain->HiIndex, forms::COLOUR_BLACK, forms::COLOUR_WHITE);
        FrmMain->HiIndex = (nRow - 1) * LABELS_PER_ROW + nColumn;
        Colour(FrmMain->HiIndex, forms::COLOUR_WHITE, forms::COLOUR_BLACK);
    }
    if (const MapCell* pCell = ShownMap().Cell(nColumn, nRow)) {
        FrmMain->Label1.Caption = pCell->Caption;
    }
}

}  // namespace taviro
