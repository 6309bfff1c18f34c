// SPDX-License-Identifier: MIT
// Every name goes to the wide calls: a user's folder may hold letters that the code page lacks.
#include "platform/files.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <limits>
#include <utility>

#include "platform/failure.h"
#include "platform/file_steps.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/handles.h"
#include "platform/win32/numbers.h"

namespace taviro::platform {

namespace {

uint32_t nSaveCount = 0;  // makes the name of each temporary file a new one

constexpr DWORD SHARE_ALL = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD MAX_CHUNK = 16U << 20U;  // bytes a call; some network drives refuse more at once
constexpr DWORD NOT_NORMAL =
    FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

/// That nothing has this name, or could have it, is an answer.
void ReportUnlessAbsent(DWORD nError, const char* szCall) {
    const bool bAbsent = nError == ERROR_FILE_NOT_FOUND || nError == ERROR_PATH_NOT_FOUND ||
                         nError == ERROR_INVALID_NAME || nError == ERROR_BAD_PATHNAME;
    if (!bAbsent) ReportFailure(szCall, nError);
}

win32::UniqueHandle OpenFile(const std::wstring& strPath, DWORD nAccess, DWORD nShare,
                             DWORD nDisposition) {
    const HANDLE hFile = CreateFileW(strPath.c_str(), nAccess, nShare, nullptr, nDisposition,
                                     FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hFile != INVALID_HANDLE_VALUE) return win32::UniqueHandle(hFile);
    if (nDisposition == OPEN_EXISTING) {
        ReportUnlessAbsent(GetLastError(), "CreateFile(reading)");
    } else {
        win32::OrReport(false, "CreateFile(writing)");
    }
    return {};
}

bool WriteAll(HANDLE hFile, std::string_view strBytes) {
    while (!strBytes.empty()) {
        const auto nChunk = static_cast<DWORD>(std::min<size_t>(strBytes.size(), MAX_CHUNK));
        DWORD nWritten = 0;
        const BOOL bDone = WriteFile(hFile, strBytes.data(), nChunk, &nWritten, nullptr);
        if (!win32::OrReport(bDone != FALSE && nWritten != 0, "WriteFile")) return false;
        strBytes.remove_prefix(nWritten);
    }
    return true;
}

/// Calls Take with every entry that the pattern matches. Returns false when the search fails.
template <class TTake>
bool Search(const std::wstring& strPattern, TTake Take) {
    WIN32_FIND_DATAW Entry{};
    const HANDLE hFirst = FindFirstFileW(strPattern.c_str(), &Entry);
    if (hFirst == INVALID_HANDLE_VALUE) {
        const DWORD nError = GetLastError();
        ReportUnlessAbsent(nError, "FindFirstFile");
        return nError == ERROR_FILE_NOT_FOUND;
    }
    const win32::UniqueFind hFind(hFirst);
    do {
        if (!Take(Entry)) return true;
    } while (FindNextFileW(hFind.get(), &Entry) != FALSE);
    return win32::OrReport(GetLastError() == ERROR_NO_MORE_FILES, "FindNextFile");
}

HANDLE ToHandle(FileHandle hFile) {
    return reinterpret_cast<HANDLE>(hFile);  // NOLINT(performance-no-int-to-ptr)
}

/// Removes a read-only mark. Returns false when the file has one that stays.
bool MakeWritable(const std::wstring& strPath) {
    const DWORD nAttributes = GetFileAttributesW(strPath.c_str());
    if (!win32::OrReport(nAttributes != INVALID_FILE_ATTRIBUTES, "GetFileAttributes")) return false;
    if ((nAttributes & FILE_ATTRIBUTE_READONLY) == 0) return true;
    const DWORD nWritable = nAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY};
    return win32::OrReport(SetFileAttributesW(strPath.c_str(), nWritable), "SetFileAttributes");
}

}  // namespace

bool FileExists(const std::wstring& strPath) {
    bool bFound = false;
    Unneeded(Search(strPath, [&bFound](const WIN32_FIND_DATAW& Entry) {
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
    return win32::OrReport(CreateDirectoryW(strPath.c_str(), nullptr), "CreateDirectory");
}

bool CopyFolderFiles(const std::wstring& strFromFolder, const std::wstring& strToFolder) {
    bool bAllCopied = true;
    const auto CopyOne = [&](const WIN32_FIND_DATAW& Entry) {
        if ((Entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return true;
        const std::wstring strName = Entry.cFileName;
        const std::wstring strTarget = strToFolder + L"\\" + strName;
        const std::wstring strSource = strFromFolder + L"\\" + strName;
        bAllCopied =
            win32::OrReport(CopyFileW(strSource.c_str(), strTarget.c_str(), FALSE), "CopyFile") &&
            MakeWritable(strTarget);
        return bAllCopied;
    };
    return Search(strFromFolder + L"\\*", CopyOne) && bAllCopied;
}

bool ReadFileBytes(const std::wstring& strPath, std::string& strBytes) {
    const win32::UniqueHandle hFile = OpenFile(strPath, GENERIC_READ, SHARE_ALL, OPEN_EXISTING);
    LARGE_INTEGER nSize{};
    if (!hFile || !win32::OrReport(GetFileSizeEx(hFile.get(), &nSize), "GetFileSizeEx")) {
        return false;
    }
    if (static_cast<uint64_t>(nSize.QuadPart) > std::numeric_limits<int32_t>::max()) return false;
    std::string strRead(static_cast<size_t>(nSize.QuadPart), '\0');
    size_t nDone = 0;
    while (nDone < strRead.size()) {
        const auto nChunk = static_cast<DWORD>(std::min<size_t>(strRead.size() - nDone, MAX_CHUNK));
        DWORD nRead = 0;
        const BOOL bDone = ::ReadFile(hFile.get(), strRead.data() + nDone, nChunk, &nRead, nullptr);
        if (!win32::OrReport(bDone, "ReadFile")) return false;
        if (nRead == 0) break;  // became shorter meanwhile
        nDone += nRead;
    }
    strRead.resize(nDone);
    strBytes = std::move(strRead);
    return true;
}

FileHandle CreateNewFile(const std::wstring& strPath) {
    return win32::ToNumber(OpenFile(strPath, GENERIC_WRITE, 0, CREATE_ALWAYS).release());
}

bool WriteToFile(FileHandle hFile, std::string_view strBytes) {
    return WriteAll(ToHandle(hFile), strBytes);
}

bool FlushFile(FileHandle hFile) {
    return win32::OrReport(FlushFileBuffers(ToHandle(hFile)), "FlushFileBuffers");
}

void CloseFile(FileHandle hFile) {
    const win32::UniqueHandle Closed(ToHandle(hFile));
}

bool RenameFile(const std::wstring& strFrom, const std::wstring& strTo) {
    return win32::OrReport(MoveFileExW(strFrom.c_str(), strTo.c_str(),
                                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH),
                           "MoveFileEx");
}

bool RemoveFile(const std::wstring& strPath) {
    if (DeleteFileW(strPath.c_str()) != FALSE) return true;
    ReportUnlessAbsent(GetLastError(), "DeleteFile");
    return false;
}

bool IsReadOnly(const std::wstring& strPath) {
    const DWORD nAttributes = GetFileAttributesW(strPath.c_str());
    return nAttributes != INVALID_FILE_ATTRIBUTES && (nAttributes & FILE_ATTRIBUTE_READONLY) != 0;
}

std::wstring TemporaryName(const std::wstring& strPath) {
    return strPath + L"." + std::to_wstring(GetCurrentProcessId()) + L"-" +
           std::to_wstring(++nSaveCount) + L".new";
}

bool ReplaceFileBytes(const std::wstring& strPath, std::string_view strBytes) {
    return ReplaceInSteps(strPath, strBytes);
}

bool AppendFileBytes(const std::wstring& strPath, std::string_view strBytes) {
    const win32::UniqueHandle hFile =
        OpenFile(strPath, FILE_APPEND_DATA, FILE_SHARE_READ, OPEN_ALWAYS);
    return hFile && WriteAll(hFile.get(), strBytes);
}

bool MoveFileTo(const std::wstring& strFrom, const std::wstring& strTo) {
    return RenameFile(strFrom, strTo);
}

std::vector<std::wstring> ListFiles(const std::wstring& strPattern) {
    std::vector<std::wstring> Names;
    Unneeded(Search(strPattern, [&Names](const WIN32_FIND_DATAW& Entry) {
        if ((Entry.dwFileAttributes & NOT_NORMAL) == 0) Names.emplace_back(Entry.cFileName);
        return true;
    }));  // a search that breaks off has still found what it found
    std::sort(Names.begin(), Names.end(), [](const std::wstring& strA, const std::wstring& strB) {
        return _wcsicmp(strA.c_str(), strB.c_str()) < 0;
    });
    return Names;
}

}  // namespace taviro::platform
