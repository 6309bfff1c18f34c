// SPDX-License-Identifier: MIT
#include "automation/command_line.h"

#include <array>

#include "platform/text.h"

namespace taviro {

namespace {

struct Word {
    const wchar_t* szText;
    StartOrder Order;
};
constexpr std::array<Word, 5> WORDS{{
    {L"regserver", {StartKind::Register, RegistrationScope::User}},
    {L"regserver:machine", {StartKind::Register, RegistrationScope::Machine}},
    {L"unregserver", {StartKind::Unregister, RegistrationScope::User}},
    {L"unregserver:machine", {StartKind::Unregister, RegistrationScope::Machine}},
    {L"embedding", {StartKind::Embedding, RegistrationScope::User}},
}};

}  // namespace

StartOrder ParseCommandLine(const std::wstring& strArguments) {
    const std::wstring strTrimmed(platform::TrimBlanks(strArguments));
    const std::wstring strFirst = strTrimmed.substr(0, strTrimmed.find(L' '));
    if (strFirst.empty() || (strFirst[0] != L'/' && strFirst[0] != L'-')) return {};
    const std::wstring strWord = platform::ToLower(strFirst.substr(1));
    for (const Word& Known : WORDS) {
        if (strWord == Known.szText) return Known.Order;
    }
    return {};
}

}  // namespace taviro
