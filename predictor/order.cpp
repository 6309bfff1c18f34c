// SPDX-License-Identifier: MIT
#include "predictor/order.h"

#include <array>

#include "predictor/letters.h"

namespace taviro::predictor {

namespace {

struct Word {
    const wchar_t* szText;
    Order Meant;
};
constexpr std::array<Word, 6> WORDS{{
    {L"regserver", {OrderKind::Register, Scope::User}},
    {L"regserver:machine", {OrderKind::Register, Scope::Machine}},
    {L"unregserver", {OrderKind::Unregister, Scope::User}},
    {L"unregserver:machine", {OrderKind::Unregister, Scope::Machine}},
    {L"forget", {OrderKind::Forget, Scope::User}},
    {L"embedding", {OrderKind::Serve, Scope::User}},
}};

constexpr std::wstring_view BLANKS = L" \t";

}  // namespace

Order ParseOrder(const std::wstring& strArguments) {
    const size_t nStart = strArguments.find_first_not_of(BLANKS);
    if (nStart == std::wstring::npos) return {};
    const size_t nEnd = strArguments.find_last_not_of(BLANKS) + 1;
    const std::wstring strWord = LowerText(strArguments.substr(nStart, nEnd - nStart));
    if (strWord[0] == L'/' || strWord[0] == L'-') {
        for (const Word& Known : WORDS) {
            if (strWord.compare(1, std::wstring::npos, Known.szText) == 0) return Known.Meant;
        }
    }
    return {.nKind = OrderKind::Unknown};
}

std::wstring Usage() {
    return L"Presager: slovník, který programu Taviro napovídá slova.\n"
           L"presager /regserver            zaregistruje slovník pro tohoto uživatele\n"
           L"presager /regserver:machine    zaregistruje slovník pro celý počítač\n"
           L"presager /unregserver          zruší registraci pro tohoto uživatele\n"
           L"presager /unregserver:machine  zruší registraci pro celý počítač\n"
           L"presager /forget               zapomene slova, která se naučil\n";
}

std::wstring FailureText(const Order& Failed, const std::wstring& strReason) {
    if (Failed.nKind == OrderKind::Forget) {
        return L"Naučená slova se nepodařilo zapomenout: " + strReason;
    }
    const std::wstring strWhat = Failed.nKind == OrderKind::Register
                                     ? L"Slovník se nepodařilo zaregistrovat"
                                     : L"Registraci slovníku se nepodařilo zrušit";
    const std::wstring strWhere = Failed.nScope == Scope::Machine
                                      ? L" pro celý počítač (je k tomu třeba správce počítače)"
                                      : L"";
    return strWhat + strWhere + L": " + strReason;
}

}  // namespace taviro::predictor
