// SPDX-License-Identifier: MIT
// The fixture of the automation object's tests: the program after its start, and the windows of
// another program to act on.
#pragma once

#include "automation/gui.h"
#include "platform/messages.h"
#include "tests/unit/program_fixture.h"

namespace taviro {

using platform::headless::VirtualWindow;

inline constexpr int32_t EDITOR = 50;
inline constexpr int32_t DIALOG = 60;

class GuiTest : public ProgramTest {
  protected:
    GuiTest() {
        Start();
        // The editor in front, behind it a dialog with children, one of them two levels down.
        Desktop.Windows = {
            {EDITOR, L"Text.txt", L"Editor", 500, 501, {10, 20, 210, 120}},
            {DIALOG, L"Otázka", L"Panel", 600, 601, {100, 200, 500, 400}},
            {61, L"", L"Rám", 600, 601, {110, 210, 300, 300}, DIALOG},
            {62, L"Ano", L"Button", 600, 601, {120, 220, 180, 240}, 61},
            {63, L"Ne", L"Button", 600, 601, {190, 220, 250, 240}, DIALOG},
            {64, L"", L"Žluťoučký", 600, 601, {260, 220, 300, 240}, DIALOG},
        };
        Desktop.hForeground = EDITOR;
    }

    static VirtualWindow& Window(platform::WindowHandle hWindow) {
        for (VirtualWindow& Entry : Desktop.Windows) {
            if (Entry.hWindow == hWindow) return Entry;
        }
        throw std::out_of_range("no such window");
    }

    /// Calls from within a wait of the program, and returns what the call returned.
    template <class Call>
    static CallOutcome WhileWaiting(const Call& Made) {
        CallOutcome nOutcome{};
        Desktop.At(Desktop.nNow, [&] { nOutcome = Made(); });
        platform::RunPendingMessages();
        return nOutcome;
    }

    /// Calls that succeed and have a result.
    int32_t Find(const std::wstring& strTitle, const std::wstring& strClass) const {
        int32_t hResult = -1;
        EXPECT_EQ(Gui.VBS_FindWindow(strTitle, strClass, hResult), CallOutcome::Done);
        return hResult;
    }
    int32_t Child(int32_t hWindow, const std::wstring& strName) const {
        int32_t hResult = -1;
        EXPECT_EQ(Gui.VBS_GetChild(hWindow, strName, hResult), CallOutcome::Done);
        return hResult;
    }
    int32_t Click(const std::wstring& strTitle, const std::wstring& strChildName) const {
        int32_t nResult = -1;
        EXPECT_EQ(Gui.ClickOnWindow(strTitle, strChildName, nResult), CallOutcome::Done);
        return nResult;
    }
    std::wstring Title(int32_t hWindow) const {
        std::wstring strResult = L"kept";
        EXPECT_EQ(Gui.VBS_GetTitle(hWindow, strResult), CallOutcome::Done);
        return strResult;
    }
    int32_t ChildNum(int32_t hWindow) const {
        int32_t nResult = -1;
        EXPECT_EQ(Gui.VBS_GetChildNum(hWindow, nResult), CallOutcome::Done);
        return nResult;
    }

    GUI Gui;
};

}  // namespace taviro
