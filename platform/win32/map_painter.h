// SPDX-License-Identifier: MIT
// Paints the main window's labels into a back buffer, and knows which rectangles of the window are
// out of date. Cells first, in the order of their numbers, the status line over them.
#pragma once

#include <windows.h>

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "forms/main_form.h"
#include "platform/scale.h"
#include "platform/win32/handles.h"

namespace taviro::platform::win32 {

class MapPainter {
  public:
    /// The monitor that it paints for from now on; everything is to be painted anew.
    void SetScale(Scale Monitor);

    /// Remembers that the label changed. Returns whether it is the first since TakeStale.
    bool Note(const forms::Label& Changed);

    /// The rectangles (the monitor's pixels) that the changed labels cover now and covered before.
    std::vector<RECT> TakeStale();

    /// Paints what the window's update region needs. Clip is the box around that region.
    void Paint(HDC hWindowDc, const RECT& Clip, forms::MainForm& Form);

  private:
    void PaintAll(HDC hTarget, HDC hWindowDc, const RECT& Clip, forms::MainForm& Form);
    void PaintLabel(HDC hTarget, const forms::Label& Shown);
    HFONT FontOf(const forms::Label& Shown);
    [[nodiscard]] RECT RectangleOf(const forms::Label& Shown) const;

    Scale m_Scale;
    std::set<const forms::Label*> m_Changed;
    std::map<const forms::Label*, RECT> m_Covered;  ///< where each label stood at the last look
    std::vector<std::pair<forms::Font, UniqueFont>> m_Fonts;
};

}  // namespace taviro::platform::win32
