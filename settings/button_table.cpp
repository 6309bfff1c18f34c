// SPDX-License-Identifier: MIT
#include "settings/button_table.h"

#include "platform/number_text.h"
#include "platform/unneeded.h"
#include "vocabulary/button_word.h"

namespace taviro {

void LoadButton(std::wstring_view strText, ButtonAction& objButton) {
    if (strText == ButtonWord::Action) {
        objButton.Kind = ButtonKind::Action;
    } else if (strText == ButtonWord::Mode) {
        objButton.Kind = ButtonKind::Mode;
    } else if (const double fNumber = platform::LeadingNumber(strText); fNumber > 0) {
        objButton.Kind = ButtonKind::Code;
        Unneeded(platform::RoundToInt32(fNumber, objButton.Code));  // too large: the code stays
    } else if (strText.empty()) {
        objButton.Kind = ButtonKind::Unassigned;
    } else {
        objButton.Kind = ButtonKind::Command;
        objButton.Command = ButtonWord::FromStoredQuotes(strText);
    }
}

std::optional<std::wstring> ButtonText(const ButtonAction& objButton) {
    switch (objButton.Kind) {
        case ButtonKind::Action:
            return std::wstring(ButtonWord::Action);
        case ButtonKind::Mode:
            return std::wstring(ButtonWord::Mode);
        case ButtonKind::Code:
            return std::to_wstring(objButton.Code);
        case ButtonKind::Command:
            return ButtonWord::ToStoredQuotes(objButton.Command);
        case ButtonKind::Unassigned:
            break;
    }
    return std::nullopt;
}

}  // namespace taviro
