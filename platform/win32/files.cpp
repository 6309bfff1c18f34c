// SPDX-License-Identifier: MIT
// Every name goes to the wide calls: a user's folder may hold letters that the code page lacks.
#include "platform/files.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>
#include <limits>
#include <utility>

#include "platform/win32/handles.h"

namespace taviro::platform {

namespace {

uint32_t nSaveCount = 0;  // makes the name of each temporary file a new one

constexpr DWORD SHARE_ALL = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD MAX_CHUNK = 16U << 20U;  // bytes a call; some network drives refuse more at once
constexpr DWORD NOT_NORMAL =
    FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

win32::UniqueHandle OpenFile(const std::wstring& strPath, DWORD nAccess, DWORD nShare,
                             DWORD nDisposition) {
    return win32::OwnUnlessInvalid(CreateFileW(strPath.c_str(), nAccess, nShare, nullptr,
                                               nDisposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool WriteAll(HANDLE hFile, std::string_view strBytes) {
    while (!strBytes.empty()) {
        const auto nChunk = static_cast<DWORD>(std::min<size_t>(strBytes.size(), MAX_CHUNK));
        DWORD nWritten = 0;
        if (WriteFile(hFile, strBytes.data(), nChunk, &nWritten, nullptr) == FALSE) return false;
        if (nWritten == 0) return false;
        strBytes.remove_prefix(nWritten);
    }
    return true;
}

/// Calls Take with every entry that the pattern matches. Returns false when the search fails.
template <class TTake>
bool Search(const std::wstring& strPattern, TTake Take) {
    WIN32_FIND_DATAW Entry{};
    const HANDLE hFirst = FindFirstFileW(strPattern.c_str(), &Entry);
    if (hFirst == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_FILE_NOT_FOUND;
    const win32::UniqueFind hFind(hFirst);
    do {
        if (!Take(Entry)) return true;
    } while (FindNextFileW(hFind.get(), &Entry) != FALSE);
    return GetLastError() == ERROR_NO_MORE_FILES;
}

/// A name beside the target that no other save uses and that no pattern of the program's files
/// matches.
std::wstring TemporaryName(const std::wstring& strPath) {
    return strPath + L"." + std::to_wstring(GetCurrentProcessId()) + L"-" +
           std::to_wstring(++nSaveCount) + L".new";
}

bool WriteNewFile(const std::wstring& strPath, std::string_view strBytes) {
    const win32::UniqueHandle hFile = OpenFile(strPath, GENERIC_WRITE, 0, CREATE_ALWAYS);
    return hFile && WriteAll(hFile.get(), strBytes) && FlushFileBuffers(hFile.get()) != FALSE;
}

/// Removes a read-only mark. Returns false when the file has one that stays.
bool MakeWritable(const std::wstring& strPath) {
    const DWORD nAttributes = GetFileAttributesW(strPath.c_str());
    if (nAttributes == INVALID_FILE_ATTRIBUTES) return false;
    if ((nAttributes & FILE_ATTRIBUTE_READONLY) == 0) return true;
    return SetFileAttributesW(strPath.c_str(), nAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY}) !=
           FALSE;
}

bool IsReadOnly(const std::wstring& strPath) {
    const DWORD nAttributes = GetFileAttributesW(strPath.c_str());
    return nAttributes != INVALID_FILE_ATTRIBUTES && (nAttributes & FILE_ATTRIBUTE_READONLY) != 0;
}

}  // namespace

bool FileExists(const std::wstring& strPath) {
    bool bFound = false;
    static_cast<void>(Search(strPath, [&bFound](const WIN32_FIND_DATAW& Entry) {
        bFound = (Entry.dwFileAttributes & NOT_NORMAL) == 0;
        return !bFound;
    }));  // a failed search has found nothing
    return bFound;
}

bool FolderExists(const std::wstring& strPath) {
    const DWORD nAttributes = GetFileAttributesW(strPath.c_str());
    return nAttributes != INVALID_FILE_ATTRIBUTES && (nAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool CreateFolder(const std::wstring& strPath) {
    return CreateDirectoryW(strPath.c_str(), nullptr) != FALSE;
}

bool CopyFolderFiles(const std::wstring& strFromFolder, const std::wstring& strToFolder) {
    bool bAllCopied = true;
    const auto CopyOne = [&](const WIN32_FIND_DATAW& Entry) {
        if ((Entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return true;
        const std::wstring strName = Entry.cFileName;
        const std::wstring strTarget = strToFolder + L"\\" + strName;
        const std::wstring strSource = strFromFolder + L"\\" + strName;
        bAllCopied = CopyFileW(strSource.c_str(), strTarget.c_str(), FALSE) != FALSE &&
                     MakeWritable(strTarget);
        return bAllCopied;
    };
    return Search(strFromFolder + L"\\*", CopyOne) && bAllCopied;
}

bool ReadFileBytes(const std::wstring& strPath, std::string& strBytes) {
    const win32::UniqueHandle hFile = OpenFile(strPath, GENERIC_READ, SHARE_ALL, OPEN_EXISTING);
    LARGE_INTEGER nSize{};
    if (!hFile || GetFileSizeEx(hFile.get(), &nSize) == FALSE) return false;
    if (static_cast<uint64_t>(nSize.QuadPart) > std::numeric_limits<int32_t>::max()) return false;
    std::string strRead(static_cast<size_t>(nSize.QuadPart), '\0');
    size_t nDone = 0;
    while (nDone < strRead.size()) {
        const auto nChunk = static_cast<DWORD>(std::min<size_t>(strRead.size() - nDone, MAX_CHUNK));
        DWORD nRead = 0;
        if (::ReadFile(hFile.get(), strRead.data() + nDone, nChunk, &nRead, nullptr) == FALSE) {
            return false;
        }
        if (nRead == 0) break;  // became shorter meanwhile
        nDone += nRead;
    }
    strRead.resize(nDone);
    strBytes = std::move(strRead);
    return true;
}

bool ReplaceFileBytes(const std::wstring& strPath, std::string_view strBytes) {
    // Asked for first: not every system refuses to replace a file that its owner marked read-only.
    if (IsReadOnly(strPath)) return false;
    const std::wstring strTemporary = TemporaryName(strPath);
    if (WriteNewFile(strTemporary, strBytes) && MoveFileTo(strTemporary, strPath)) return true;
    // Nothing more can be done where even this fails; the old file is whole all the same.
    static_cast<void>(DeleteFileW(strTemporary.c_str()));
    return false;
}

bool AppendFileBytes(const std::wstring& strPath, std::string_view strBytes) {
    const win32::UniqueHandle hFile =
        OpenFile(strPath, FILE_APPEND_DATA, FILE_SHARE_READ, OPEN_ALWAYS);
    return hFile && WriteAll(hFile.get(), strBytes);
}

bool MoveFileTo(const std::wstring& strFrom, const std::wstring& strTo) {
    return MoveFileExW(strFrom.c_str(), strTo.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
}

std::vector<std::wstring> ListFiles(const std::wstring& strPattern) {
    std::vector<std::wstring> Names;
    static_cast<void>(Search(strPattern, [&Names](const WIN32_FIND_DATAW& Entry) {
        if ((Entry.dwFileAttributes & NOT_NORMAL) == 0) Names.emplace_back(Entry.cFileName);
        return true;
    }));  // a search that breaks off has still found what it found
    std::sort(Names.begin(), Names.end(), [](const std::wstring& strA, const std::wstring& strB) {
        return _wcsicmp(strA.c_str(), strB.c_str()) < 0;
    });
    return Names;
}

}  // namespace taviro::platform
