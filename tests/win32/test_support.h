// SPDX-License-Identifier: MIT
// What the tests of the Windows platform share: a folder of their own, waiting for an event with a
// deadline, and this program started again in another role.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/win32/handles.h"

namespace taviro::tests {

/// A new empty folder with letters in its name that Windows-1250 has and lacks; removed with all it
/// holds at the end.
class TestFolder {
  public:
    TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder();

    /// Path of a file or folder in it.
    std::wstring operator/(const std::wstring& strName) const {
        return m_strPath + L"\\" + strName;
    }
    const std::wstring& Path() const { return m_strPath; }

  private:
    std::wstring m_strPath;
};

/// Runs this thread's messages until the condition holds, those that wait already in any case: a
/// thread that has not asked for its messages for five seconds counts as hung, and its hooks are
/// passed over. Returns false when the condition does not hold within ten seconds.
bool RunMessagesUntil(const std::function<bool()>& Condition);

/// Whether the desktop draws at all. Wine gives 32-bit programs no device context when it has only
/// their half of the modules; what needs one is skipped there, and said to be.
bool HasDrawing();

/// A process of ours, ended with the test that started it, however that test ends.
struct ProcessEnder {
    void operator()(HANDLE hProcess) const;
};
using UniqueProcess = std::unique_ptr<void, ProcessEnder>;

/// Starts this program in another role (see Roles) with one argument. Null when it does not start.
UniqueProcess StartInRole(const std::wstring& strRole, const std::wstring& strArgument);

/// Waits for a process and returns its exit code; 999 when it does not end within ten seconds.
DWORD ExitCodeOf(HANDLE hProcess);

/// Roles of this program besides that of the tests.
inline constexpr const wchar_t* ROLE_SAVE_FOREVER = L"--save-forever";
inline constexpr const wchar_t* ROLE_CLAIM = L"--claim";

/// What the saving role writes in turn: each content is recognised as whole by length and bytes.
std::string SavedContent(bool bSecond);

/// Exit codes of the claiming role.
inline constexpr int CLAIM_GRANTED = 3;
inline constexpr int CLAIM_REFUSED = 4;

}  // namespace taviro::tests
