// SPDX-License-Identifier: MIT
// The public object that scripts drive: it shows and captions the main window and handles windows
// of other programs. Each method is a thin wrapper; what the system refuses is not reported, and a
// window that is not found gives 0. The order of the methods is that of the public interface.
#pragma once

#include <cstdint>
#include <string>

namespace taviro {

/// How a call went. Only a call that went is carried out; the others do nothing.
enum class CallOutcome {
    Done,
    Busy,   ///< something of the program itself is under way that this call would disturb
    Ended,  ///< the main window is unloading or gone
};

/// Handles of windows and results are 32-bit numbers, as scripts know them; 0 is no window. Results
/// are 0, or empty, when a call is not carried out.
class GUI {
  public:
    /// Shows the main window above all others at the screen's corner; the focus stays where it is.
    [[nodiscard]] CallOutcome ShowDebugWin() const;
    [[nodiscard]] CallOutcome MinDebugWin() const;
    [[nodiscard]] CallOutcome HideDebugWin() const;
    [[nodiscard]] CallOutcome SetCaption(const std::wstring& strText) const;
    /// Only lets pending window messages run; nothing is logged.
    [[nodiscard]] CallOutcome LogDebugWin(const std::wstring& strText) const;
    /// Clicks on the first child, whose class has this name, of the window of this title; nResult
    /// is 1 when there was one, else 0.
    [[nodiscard]] CallOutcome ClickOnWindow(const std::wstring& strTitle,
                                            const std::wstring& strChildName,
                                            int32_t& nResult) const;
    /// By title, then by class where one is given, which replaces what the title gave.
    [[nodiscard]] CallOutcome VBS_FindWindow(const std::wstring& strTitle,
                                             const std::wstring& strClass, int32_t& hResult) const;
    /// At most 249 characters.
    [[nodiscard]] CallOutcome VBS_GetTitle(int32_t hWindow, std::wstring& strResult) const;
    [[nodiscard]] CallOutcome VBS_UpdateWindow(int32_t hWindow) const;
    /// Repaints what lies in a rectangle of the screen.
    [[nodiscard]] CallOutcome VBS_UpdateFrame(int32_t nLeft, int32_t nTop, int32_t nRight,
                                              int32_t nBottom) const;
    [[nodiscard]] CallOutcome VBS_GetChildNum(int32_t hWindow, int32_t& nResult) const;
    /// The first child of a class.
    [[nodiscard]] CallOutcome VBS_GetChild(int32_t hWindow, const std::wstring& strName,
                                           int32_t& hResult) const;
    /// Taps a key by scan code while a modifier, a virtual key above 0, is held.
    [[nodiscard]] CallOutcome KeyPress(int32_t nScanCode, int32_t nModifier) const;
    /// Unloads the main window, and so ends the program.
    [[nodiscard]] CallOutcome Quit() const;
};

}  // namespace taviro
