// SPDX-License-Identifier: MIT
// How wide a caption can be in a cell: an upper bound from the character widths of Arial Bold, with
// every character rounded up to a whole pixel, because the virtual desktop's font is only a model.
#pragma once

#include <cstdint>
#include <string_view>

namespace taviro {

/// Pixels at the delivered size (8 points, 96 dots an inch: 11 pixels); -1 with a character that
/// the table does not know.
inline int32_t CaptionWidth(std::wstring_view strCaption) {
    struct Width {
        int32_t nPixels;
        std::wstring_view strCharacters;
    };
    static constexpr Width WIDTHS[] = {
        {3, L"'"},
        {4, L" ,./I\\ijlíÍ|!()-:;[]`ftˇ´"},
        {5, L"*r{}ř"},
        {6, L"\"ťzž"},
        {7, L"±#$0123456789J_aceksvxyáčéěšý§€+<=>×~?FLTZbdghnopquňóúůŤŽ"},
        {8, L"EPSVXYÉĚŠÝď&ABCDHKNRUÁČĎŇŘÚŮ"},
        {9, L"GOQwÓ"},
        {10, L"Mm%"},
        {11, L"W@"},
    };
    int32_t nSum = 0;
    for (const wchar_t nCharacter : strCaption) {
        int32_t nPixels = 0;
        for (const Width& Known : WIDTHS) {
            if (Known.strCharacters.find(nCharacter) != std::wstring_view::npos) {
                nPixels = Known.nPixels;
            }
        }
        if (nPixels == 0) return -1;
        nSum += nPixels;
    }
    return nSum;
}

}  // namespace taviro
