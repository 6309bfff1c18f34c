// SPDX-License-Identifier: MIT
// Measuring text without a window: one screen context with one font, made and deleted by the
// caller.
#pragma once

#include <cstdint>
#include <string>

namespace taviro::platform {

/// A logical font as the graphics system takes it.
struct LogicalFont {
    std::wstring strFaceName;  ///< at most 32 characters
    int32_t nHeight = 0;       ///< pixels; negative: height of the characters without leading
    int32_t nWeight = 400;     ///< 400 normal, 800 bold
    bool bItalic = false;
    bool bUnderline = false;
    bool bStrikeOut = false;
};

/// Width and height in pixels.
struct TextSize {
    int32_t nWidth = 0;
    int32_t nHeight = 0;
    bool operator==(const TextSize&) const = default;
};

/// Makes the context and selects the font. Returns false when the system refuses.
[[nodiscard]] bool CreateMeasureContext(const LogicalFont& Font);

/// Whether a context exists.
[[nodiscard]] bool HasMeasureContext();

/// Size of the text (as Windows-1250 text) in the context's font; 0 x 0 without a context.
[[nodiscard]] TextSize MeasureInContext(const std::wstring& strText);

/// Deletes the font and the context; nothing happens when there is none.
void DeleteMeasureContext();

}  // namespace taviro::platform
