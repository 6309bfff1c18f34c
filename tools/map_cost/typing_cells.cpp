// SPDX-License-Identifier: MIT
#include "tools/map_cost/typing_cells.h"

#include "actions/key_synthesis.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "vocabulary/action_code.h"
#include "vocabulary/key_code.h"

namespace taviro::map_cost {

namespace {

using platform::headless::Desktop;

struct PlainSign {
    wchar_t nSign;
    const wchar_t* szPlain;
};
constexpr PlainSign PLAIN_SIGNS[] = {{L'–', L"-"},  {L'—', L"-"},  {L'„', L"\""},
                                     {L'“', L"\""}, {L'”', L"\""}, {L'…', L"..."}};

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
    for (const wchar_t nCharacter : strText) {
        std::wstring strPlain(1, nCharacter);
        for (const PlainSign& Sign : PLAIN_SIGNS) {
            if (Sign.nSign == nCharacter) strPlain = Sign.szPlain;
        }
        for (const wchar_t n : strPlain) {
            if (!For(n).empty()) strTypeable += n;
        }
    }
    return strTypeable;
}

}  // namespace taviro::map_cost
