// SPDX-License-Identifier: MIT
#include "settings/button_table.h"

#include <algorithm>

#include "platform/number_text.h"

namespace taviro {

namespace {

constexpr std::wstring_view strAction = L"*action";
constexpr std::wstring_view strMode = L"*mode";

// Reading the file takes enclosing double quotes away, so a command's own quotes are stored as "$".
constexpr wchar_t nQuote = L'"';
constexpr wchar_t nStoredQuote = L'$';

std::wstring Replaced(std::wstring_view strText, wchar_t nOld, wchar_t nNew) {
    std::wstring strResult(strText);
    std::replace(strResult.begin(), strResult.end(), nOld, nNew);
    return strResult;
}

}  // namespace

void LoadButton(std::wstring_view strText, ButtonAction& objButton) {
    if (strText == strAction) {
        objButton.Kind = ButtonKind::Action;
    } else if (strText == strMode) {
        objButton.Kind = ButtonKind::Mode;
    } else if (const double fNumber = platform::LeadingNumber(strText); fNumber > 0) {
        objButton.Kind = ButtonKind::Code;
        (void)platform::RoundToInt32(fNumber, objButton.Code);  // too large: the code stays
    } else if (strText.empty()) {
        objButton.Kind = ButtonKind::Unassigned;
    } else {
        objButton.Kind = ButtonKind::Command;
        objButton.Command = Replaced(strText, nStoredQuote, nQuote);
    }
}

std::optional<std::wstring> ButtonText(const ButtonAction& objButton) {
    switch (objButton.Kind) {
        case ButtonKind::Action:
            return std::wstring(strAction);
        case ButtonKind::Mode:
            return std::wstring(strMode);
        case ButtonKind::Code:
            return std::to_wstring(objButton.Code);
        case ButtonKind::Command:
            return Replaced(objButton.Command, nQuote, nStoredQuote);
        case ButtonKind::Unassigned:
            break;
    }
    return std::nullopt;
}

}  // namespace taviro
