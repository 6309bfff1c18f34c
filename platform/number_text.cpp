// SPDX-License-Identifier: MIT
#include "platform/number_text.h"

#include <cmath>
#include <limits>

namespace taviro::platform {

namespace {

constexpr bool IsBlank(wchar_t nCharacter) {
    return nCharacter == L' ' || nCharacter == L'\t';
}
constexpr bool IsDigit(wchar_t nCharacter) {
    return nCharacter >= L'0' && nCharacter <= L'9';
}

/// Collects a decimal number character by character: sign, digits, at most one point.
class DecimalNumber {
  public:
    /// Whether the character continued the number.
    bool Take(wchar_t nCharacter) {
        const bool bAtStart = !bSigned && !bPoint && !bDigits;
        if ((nCharacter == L'+' || nCharacter == L'-') && bAtStart) {
            bSigned = true;
            bNegative = nCharacter == L'-';
            return true;
        }
        if (nCharacter == L'.' && !bPoint) {
            bPoint = true;
            return true;
        }
        if (!IsDigit(nCharacter)) return false;
        TakeDigit(nCharacter - L'0');
        return true;
    }

    [[nodiscard]] bool HasDigits() const { return bDigits; }

    [[nodiscard]] double Value() const {
        const double fValue = fDigits / fScale;
        return bNegative ? -fValue : fValue;
    }

  private:
    void TakeDigit(int nDigit) {
        bDigits = true;
        // Decimals beyond what a double can tell apart are left out: they cannot change the value,
        // and a text of millions of digits would make both parts of the quotient infinite.
        constexpr double fPrecise = 1e17;
        if (bPoint && (fDigits >= fPrecise || fScale >= std::numeric_limits<double>::max() / 10)) {
            return;
        }
        fDigits = fDigits * 10 + nDigit;
        if (bPoint) fScale *= 10;
    }

    bool bSigned = false;
    bool bNegative = false;
    bool bPoint = false;
    bool bDigits = false;
    double fDigits = 0;  ///< all digits read as one whole number
    double fScale = 1;   ///< 10 to the power of the number of decimals
};

}  // namespace

double LeadingNumber(std::wstring_view strText) {
    DecimalNumber objNumber;
    for (const wchar_t nCharacter : strText) {
        if (!IsBlank(nCharacter) && !objNumber.Take(nCharacter)) break;
    }
    return objNumber.HasDigits() ? objNumber.Value() : 0;
}

bool RoundToInt32(double fNumber, int32_t& nValue) {
    double fWhole = std::floor(fNumber);
    const double fRest = fNumber - fWhole;
    if (fRest > 0.5 || (fRest == 0.5 && std::fmod(fWhole, 2) != 0)) fWhole += 1;
    const bool bFits = fWhole >= std::numeric_limits<int32_t>::min() &&
                       fWhole <= std::numeric_limits<int32_t>::max();
    if (bFits) nValue = static_cast<int32_t>(fWhole);
    return bFits;
}

std::optional<double> WholeTextToNumber(std::wstring_view strText) {
    while (!strText.empty() && IsBlank(strText.front()))
        strText.remove_prefix(1);
    while (!strText.empty() && IsBlank(strText.back()))
        strText.remove_suffix(1);
    DecimalNumber objNumber;
    for (const wchar_t nCharacter : strText) {
        if (!objNumber.Take(nCharacter)) return std::nullopt;
    }
    if (!objNumber.HasDigits()) return std::nullopt;
    return objNumber.Value();
}

bool WholeTextToInt32(std::wstring_view strText, int32_t& nValue) {
    const std::optional<double> fNumber = WholeTextToNumber(strText);
    return fNumber && RoundToInt32(*fNumber, nValue);
}

}  // namespace taviro::platform
