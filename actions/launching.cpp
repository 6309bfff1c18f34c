// SPDX-License-Identifier: MIT
#include "actions/launching.h"

#include "platform/shell.h"
#include "platform/unneeded.h"

namespace taviro {

namespace {
constexpr const wchar_t* DEFAULT_VERB = L"";
constexpr int32_t NORMAL_WINDOW = 1;
}  // namespace

std::wstring ResolvePath(const std::wstring& strText) {
    return strText.starts_with(L'\\') ? platform::ProgramFolder() + strText : strText;
}

void Launch(const std::wstring& strProgram, const std::wstring& strArguments) {
    Unneeded(platform::ShellExecuteOnDesktop(DEFAULT_VERB, ResolvePath(strProgram), strArguments,
                                             NORMAL_WINDOW));
}

}  // namespace taviro
