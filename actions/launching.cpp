// SPDX-License-Identifier: MIT
#include "actions/launching.h"

#include "actions/launch_watch.h"
#include "platform/shell.h"
#include "platform/windows_and_processes.h"

namespace taviro {

namespace {
constexpr const wchar_t* DEFAULT_VERB = L"";
constexpr int32_t NORMAL_WINDOW = 1;
constexpr intptr_t LAST_SHELL_FAILURE = 32;
}  // namespace

std::wstring ResolvePath(const std::wstring& strText) {
    return strText.starts_with(L'\\') ? platform::ProgramFolder() + strText : strText;
}

void Launch(const std::wstring& strProgram, const std::wstring& strArguments) {
    NoteLaunch();
    platform::LetOthersComeToFront();
    const intptr_t nResult = platform::ShellExecuteOnDesktop(DEFAULT_VERB, ResolvePath(strProgram),
                                                             strArguments, NORMAL_WINDOW);
    if (nResult <= LAST_SHELL_FAILURE) ForgetLaunch();
}

}  // namespace taviro
