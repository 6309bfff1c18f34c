// SPDX-License-Identifier: MIT
#include "settings/button_table.h"

#include "platform/number_text.h"
#include "platform/unneeded.h"
#include "vocabulary/button_word.h"

namespace taviro {

namespace {

constexpr wchar_t FILE_QUOTE = L'"';

// What a text says that stands in the file as it is.
ButtonKind KindOfText(std::wstring_view strText) {
    if (strText == ButtonWord::Action) return ButtonKind::Action;
    if (strText == ButtonWord::Mode) return ButtonKind::Mode;
    if (platform::LeadingNumber(strText) > 0) return ButtonKind::Code;
    return strText.empty() ? ButtonKind::Unassigned : ButtonKind::Command;
}

std::wstring Quoted(const std::wstring& strText) {
    return FILE_QUOTE + strText + FILE_QUOTE;
}

// A command that says something else without its quotes; they are no part of it then. Other quotes
// are, as in a file that an earlier version or a hand wrote.
std::wstring_view WithoutNeededQuotes(std::wstring_view strText) {
    const bool bQuoted =
        strText.size() >= 2 && strText.front() == FILE_QUOTE && strText.back() == FILE_QUOTE;
    if (!bQuoted) return strText;
    const std::wstring_view strInside = strText.substr(1, strText.size() - 2);
    return NeedsQuotes(strInside) ? strInside : strText;
}

// Reading a value takes blanks and one pair of quotes from around it.
bool LosesItsEnds(std::wstring_view strText) {
    constexpr std::wstring_view BLANKS = L" \t\v\f\x1A";
    constexpr std::wstring_view QUOTES = L"\"'";
    const wchar_t nFirst = strText.front();
    const wchar_t nLast = strText.back();
    const auto IsOneOf = [](std::wstring_view strSet, wchar_t nEnd) {
        return strSet.find(nEnd) != std::wstring_view::npos;
    };
    return IsOneOf(BLANKS, nFirst) || IsOneOf(BLANKS, nLast) ||
           (nFirst == nLast && IsOneOf(QUOTES, nFirst) && strText.size() > 1);
}

std::wstring CommandText(const std::wstring& strCommand) {
    std::wstring strText = ButtonWord::ToStoredQuotes(strCommand);
    if (NeedsQuotes(strText)) strText = Quoted(strText);
    return LosesItsEnds(strText) ? Quoted(strText) : strText;
}

}  // namespace

bool NeedsQuotes(std::wstring_view strCommand) {
    return KindOfText(strCommand) != ButtonKind::Command;
}

void LoadButton(std::wstring_view strText, ButtonAction& objButton) {
    objButton.Kind = KindOfText(strText);
    if (objButton.Kind == ButtonKind::Code) {
        // Too large: the code stays.
        Unneeded(platform::RoundToInt32(platform::LeadingNumber(strText), objButton.Code));
    } else if (objButton.Kind == ButtonKind::Command) {
        objButton.Command = ButtonWord::FromStoredQuotes(WithoutNeededQuotes(strText));
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
            return CommandText(objButton.Command);
        case ButtonKind::Unassigned:
            break;
    }
    return std::nullopt;
}

}  // namespace taviro
