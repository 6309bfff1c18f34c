// SPDX-License-Identifier: MIT
// A text field as applications have it, fed with the key events that arrive on the virtual desktop:
// letters through the layout with Shift, AltGr, Caps Lock and dead keys, Backspace, Delete, Enter,
// arrows, Home and End. It knows nothing of what the program meant to do.
#pragma once

#include <algorithm>
#include <set>
#include <string>

#include "platform/map_keyboard.h"
#include "platform/text.h"

namespace taviro {

class TextField {
  public:
    static inline bool bCapsLock = false;  ///< of the whole keyboard
    std::wstring strText;
    size_t nCursor = 0;

    void Key(uint32_t nVk, bool bUp) {
        if (bUp) {
            m_Down.erase(nVk);
            return;
        }
        m_Down.insert(nVk);
        if (Move(nVk)) return;
        const auto* pKey = platform::KeyOfVk(platform::MapKeys(), nVk);
        if (pKey == nullptr) return;
        const bool bCtrl = IsDown({17, 162, 163});
        const bool bAlt = IsDown({18, 164, 165});
        if (bCtrl != bAlt) return;  // a shortcut
        const bool bShift = IsDown({16, 160, 161});
        if (nVk == 20) bCapsLock = !bCapsLock;
        Take(bCtrl ? pKey->nAltGr : InCase(bShift ? pKey->nShift : pKey->nPlain, bShift));
    }

  private:
    bool IsDown(std::initializer_list<uint32_t> Keys) const {
        return std::any_of(Keys.begin(), Keys.end(), [&](auto n) { return m_Down.contains(n); });
    }

    wchar_t InCase(wchar_t nTyped, bool bShift) const {
        if (!bCapsLock || nTyped == 0) return nTyped;
        const std::wstring strTyped(1, nTyped);
        return (bShift ? platform::ToLower(strTyped) : platform::ToUpper(strTyped)).front();
    }

    bool Move(uint32_t nVk) {
        constexpr uint32_t END = 35, HOME = 36, LEFT = 37, RIGHT = 39, DEL = 46;
        if (nVk == END) nCursor = strText.size();
        if (nVk == HOME) nCursor = 0;
        if (nVk == LEFT && nCursor > 0) --nCursor;
        if (nVk == RIGHT && nCursor < strText.size()) ++nCursor;
        if (nVk == DEL && nCursor < strText.size()) strText.erase(nCursor, 1);
        return nVk >= END && nVk <= DEL;
    }

    void Take(wchar_t nTyped) {
        using namespace platform;
        if (nTyped == 0) return;
        if (nTyped == DEAD_ACUTE || nTyped == DEAD_CARON) {
            m_nDead = nTyped;
            return;
        }
        if (m_nDead != 0) {
            const wchar_t nComposed = Compose(m_nDead, nTyped);
            if (nComposed == 0) Insert(m_nDead);
            if (nComposed != 0) nTyped = nComposed;
            m_nDead = 0;
        }
        if (nTyped == L'\b') {
            if (nCursor > 0) strText.erase(--nCursor, 1);
        } else if (nTyped == L'\r') {
            Insert(L'\n');
        } else if (nTyped >= L' ') {
            Insert(nTyped);
        }
    }

    void Insert(wchar_t nCharacter) { strText.insert(nCursor++, 1, nCharacter); }

    std::set<uint32_t> m_Down;
    wchar_t m_nDead = 0;
};

}  // namespace taviro
