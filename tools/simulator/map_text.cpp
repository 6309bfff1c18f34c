// SPDX-License-Identifier: MIT
#include "tools/simulator/map_text.h"

#include <algorithm>

#include "maps/map_grid.h"
#include "maps/map_window.h"
#include "platform/text.h"

namespace taviro::simulator {

namespace {

// The label of a cell when the user sees a text there. A row that the window was made too low for
// keeps its labels, out of sight below the status line.
const forms::Label* SeenCell(forms::MainForm& Form, int32_t nColumn, int32_t nRow) {
    const forms::Label* pLabel = Form.CellLabel((nRow - 1) * LABELS_PER_ROW + nColumn);
    if (pLabel == nullptr || !pLabel->Visible || pLabel->Caption.Get().empty()) return nullptr;
    const bool bAboveStatus = pLabel->Top.Get() < Form.Label1.Top.Get();
    const bool bInside = pLabel->Left.Get() < Form.nScaleWidth;
    return bAboveStatus && bInside ? pLabel : nullptr;
}

void AddLine(std::vector<std::string>& Lines, std::wstring strLine) {
    strLine.erase(strLine.find_last_not_of(L' ') + 1);
    Lines.push_back(platform::ToUtf8(strLine));
}

}  // namespace

std::vector<std::string> MapText(forms::MainForm& Form) {
    std::vector<size_t> Widths(MAP_COLUMNS + 1, 0);
    int32_t nLastRow = 0;
    for (int32_t nRow = 1; nRow <= MAP_ROWS; ++nRow) {
        for (int32_t nColumn = 1; nColumn <= MAP_COLUMNS; ++nColumn) {
            const forms::Label* pLabel = SeenCell(Form, nColumn, nRow);
            if (pLabel == nullptr) continue;
            size_t& nWidth = Widths[static_cast<size_t>(nColumn)];
            nWidth = std::max(nWidth, pLabel->Caption.Get().size());
            nLastRow = nRow;
        }
    }
    std::vector<std::string> Lines;
    for (int32_t nRow = 1; nRow <= nLastRow; ++nRow) {
        std::wstring strLine = L"|";
        for (int32_t nColumn = 1; nColumn <= MAP_COLUMNS; ++nColumn) {
            const forms::Label* pLabel = SeenCell(Form, nColumn, nRow);
            const bool bLit = pLabel != nullptr && pLabel->BackColour == forms::COLOUR_WHITE;
            const std::wstring strText = pLabel == nullptr ? L"" : pLabel->Caption.Get();
            const size_t nWidth = Widths[static_cast<size_t>(nColumn)];
            strLine += (bLit ? L"[" : L" ") + strText + (bLit ? L"]" : L" ");
            strLine.append(nWidth - strText.size(), L' ');
        }
        AddLine(Lines, strLine);
    }
    AddLine(Lines, L"= " + Form.Label1.Caption.Get());
    if (!Form.List1.Visible) return Lines;
    for (int32_t n = 0; n < Form.List1.ListCount(); ++n) {
        AddLine(Lines, (n == Form.List1.ListIndex ? L"?>" : L"? ") + Form.List1.ItemText(n));
    }
    return Lines;
}

}  // namespace taviro::simulator
