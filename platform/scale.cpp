// SPDX-License-Identifier: MIT
#include "platform/scale.h"

namespace taviro::platform {

namespace {

/// Downwards, also below zero: a place left of the window is not in its first column.
int64_t DivideDown(int64_t nDividend, int64_t nDivisor) {
    const int64_t nQuotient = nDividend / nDivisor;
    return nDividend % nDivisor < 0 ? nQuotient - 1 : nQuotient;
}

int32_t DivideRounded(int64_t nDividend, int64_t nDivisor) {
    return static_cast<int32_t>(DivideDown(2 * nDividend + nDivisor, 2 * nDivisor));
}

}  // namespace

int32_t Scale::ToMonitor(int32_t nLayout) const {
    return DivideRounded(int64_t{nLayout} * nDpi, LAYOUT_DPI);
}

int32_t Scale::ToLayout(int32_t nMonitor) const {
    return DivideRounded(int64_t{nMonitor} * LAYOUT_DPI, nDpi);
}

int32_t Scale::PlaceInLayout(int32_t nMonitor) const {
    // The last edge that is shown at this place or before it.
    return static_cast<int32_t>(
        DivideDown((2 * int64_t{nMonitor} + 1) * LAYOUT_DPI - 1, 2 * int64_t{nDpi}));
}

}  // namespace taviro::platform
