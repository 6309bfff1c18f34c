// SPDX-License-Identifier: MIT
#include "platform/native_program.h"

#include <string_view>

#include "platform/files.h"
#include "platform/text.h"

namespace taviro::platform {

namespace {

std::wstring_view WithoutQuotes(std::wstring_view strFile) {
    const bool bQuoted = strFile.size() > 2 && strFile.front() == L'"' && strFile.back() == L'"';
    return bQuoted ? strFile.substr(1, strFile.size() - 2) : strFile;
}

// The name within the system's folder; nothing for what lies elsewhere.
std::wstring_view NameInSystem(std::wstring_view strFile, std::wstring_view strSystem) {
    const bool bBelow = strFile.size() > strSystem.size() && strFile[strSystem.size()] == L'\\' &&
                        ToLower(strFile.substr(0, strSystem.size())) == ToLower(strSystem);
    if (bBelow) strFile.remove_prefix(strSystem.size() + 1);
    return strFile.find_first_of(L"\\/:") == std::wstring_view::npos ? strFile
                                                                     : std::wstring_view{};
}

}  // namespace

std::wstring NativeProgram(const std::wstring& strFile, const SystemFolders& Folders) {
    if (Folders.strNative.empty()) return strFile;
    const std::wstring_view strName = NameInSystem(WithoutQuotes(strFile), Folders.strShown);
    if (strName.empty()) return strFile;
    const std::wstring strNative = Folders.strNative + L"\\" + std::wstring(strName);
    const std::wstring strProgram =
        ToLower(strNative).ends_with(L".exe") ? strNative : strNative + L".exe";
    return FileExists(strProgram) ? strProgram : strFile;
}

}  // namespace taviro::platform
