// SPDX-License-Identifier: MIT
#include "platform/win32/menu_view.h"

#include <string>

#include "platform/unneeded.h"
#include "platform/win32/failure.h"

namespace taviro::platform::win32 {

namespace {
constexpr UINT FIRST_COMMAND = 1000;  // above the numbers of child controls
}

HMENU MenuView::Build(std::span<forms::MenuEntry* const> Bar) {
    m_Places.clear();
    const HMENU hBar = OrReport(CreateMenu(), "CreateMenu");
    if (hBar == nullptr) return nullptr;
    if (!Add(hBar, Bar)) {
        Unneeded(DestroyMenu(hBar));  // frees the submenus that it got so far
        return nullptr;
    }
    return hBar;
}

bool MenuView::Add(HMENU hMenu, std::span<forms::MenuEntry* const> Entries) {
    UINT nPosition = 0;
    for (forms::MenuEntry* pEntry : Entries) {
        const UINT nCommand = FIRST_COMMAND + static_cast<UINT>(m_Places.size());
        const std::wstring& strCaption = pEntry->Caption;
        UINT_PTR nItem = nCommand;
        UINT nFlags = MF_STRING;
        if (!pEntry->Entries.empty()) {
            const HMENU hSubmenu = OrReport(CreatePopupMenu(), "CreatePopupMenu");
            if (hSubmenu == nullptr) return false;
            nItem = reinterpret_cast<UINT_PTR>(hSubmenu);
            nFlags |= MF_POPUP;
        }
        if (!OrReport(AppendMenuW(hMenu, nFlags, nItem, strCaption.c_str()), "AppendMenu"))
            return false;
        m_Places.push_back({pEntry, hMenu, nPosition, nCommand});
        PushPlace(m_Places.back());
        if ((nFlags & MF_POPUP) != 0 &&
            !Add(GetSubMenu(hMenu, static_cast<int>(nPosition)), pEntry->Entries)) {
            return false;
        }
        ++nPosition;
    }
    return true;
}

void MenuView::Push(const forms::MenuEntry& Changed) const {
    for (const Place& Where : m_Places) {
        if (Where.pEntry == &Changed) PushPlace(Where);
    }
}

void MenuView::PushPlace(const Place& Where) {
    std::wstring strCaption = Where.pEntry->Caption;
    MENUITEMINFOW Item{};
    Item.cbSize = sizeof(Item);
    Item.fMask = MIIM_STATE | MIIM_STRING;
    Item.dwTypeData = strCaption.data();
    if (!Where.pEntry->Enabled) Item.fState |= MFS_GRAYED;
    if (Where.pEntry->Checked) Item.fState |= MFS_CHECKED;
    // A refusal leaves the entry as it looked before; choosing it still does what the model says.
    OrReport(SetMenuItemInfoW(Where.hMenu, Where.nPosition, TRUE, &Item), "SetMenuItemInfo");
}

forms::MenuEntry* MenuView::EntryOf(WORD nCommand) const {
    for (const Place& Where : m_Places) {
        if (Where.nCommand == nCommand) return Where.pEntry;
    }
    return nullptr;
}

}  // namespace taviro::platform::win32
