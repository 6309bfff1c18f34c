// SPDX-License-Identifier: MIT
#include "tools/effort/typing_cells.h"

#include "actions/key_synthesis.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "tools/effort/measured_run.h"
#include "vocabulary/action_code.h"
#include "vocabulary/key_code.h"

namespace taviro::effort {

namespace {

using platform::headless::Desktop;

}  // namespace

TypingCells::TypingCells(const MapGrid& Grid) {
    for (const CellPlace Place : Routes(Grid, {}).Cells()) {
        const int32_t nCode = Grid.Cell(Place.nColumn, Place.nRow)->Code;
        if (nCode == KeyCode::CapsLock) m_CapsLock = Place;
        if (ParseActionCode(nCode).nKey < 1) continue;
        Desktop.Keyboard = {};
        PressActionCode(nCode);
        if (Desktop.Keyboard.strTyped.size() == 1)
            m_Typed.emplace(Desktop.Keyboard.strTyped.front(), Place);
    }
    Desktop.Keyboard = {};
}

std::vector<CellPlace> TypingCells::For(wchar_t nCharacter) const {
    if (const auto it = m_Typed.find(nCharacter); it != m_Typed.end()) return {it->second};
    const wchar_t nSmall = platform::ToLower(std::wstring(1, nCharacter)).front();
    const auto it = m_Typed.find(nSmall);
    if (nSmall == nCharacter || it == m_Typed.end() || m_CapsLock.nColumn == 0) return {};
    return {m_CapsLock, it->second, m_CapsLock};
}

std::wstring TypingCells::Typeable(const std::wstring& strText) const {
    std::wstring strTypeable;
    for (const wchar_t nCharacter : WithPlainSigns(strText)) {
        if (!For(nCharacter).empty()) strTypeable += nCharacter;
    }
    return strTypeable;
}

}  // namespace taviro::effort
