// SPDX-License-Identifier: MIT
#include "maps/text_measure.h"

#include "platform/metrics.h"
#include "platform/unneeded.h"

namespace taviro {

namespace {

constexpr size_t LONGEST_FACE_NAME = 32;
constexpr int32_t POINTS_PER_INCH = 72;
constexpr int32_t WEIGHT_NORMAL = 400;
constexpr int32_t WEIGHT_BOLD = 800;

// a * b / c, rounded, as the graphics system scales sizes.
int32_t MulDiv(int32_t nNumber, int32_t nTimes, int32_t nBy) {
    const int64_t nProduct = int64_t{nNumber} * nTimes;
    return static_cast<int32_t>((nProduct + nBy / 2) / nBy);
}

}  // namespace

void PrepareMeasureFont(const forms::Font& Font) {
    if (platform::HasMeasureContext()) return;
    const platform::LogicalFont Logical{
        .strFaceName = Font.strName.substr(0, LONGEST_FACE_NAME),
        .nHeight = -MulDiv(Font.nSize, platform::ScreenDpiY(), POINTS_PER_INCH),
        .nWeight = Font.bBold ? WEIGHT_BOLD : WEIGHT_NORMAL,
        .bItalic = Font.bItalic,
        .bUnderline = Font.bUnderline,
        .bStrikeOut = Font.bStrikeOut,
    };
    // A refused context measures 0 x 0: every caption is centred, nothing else happens.
    Unneeded(platform::CreateMeasureContext(Logical));
}

platform::TextSize MeasureText(const std::wstring& strText) {
    return platform::MeasureInContext(strText);
}

void ReleaseMeasureFont() {
    platform::DeleteMeasureContext();
}

}  // namespace taviro
