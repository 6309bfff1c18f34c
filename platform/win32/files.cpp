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

FileError ErrorUnless(BOOL bDone) {
    return bDone != FALSE ? 0 : GetLastError();
}

FileError OpenFile(const std::wstring& strPath, DWORD nAccess, DWORD nShare, DWORD nDisposition,
                   win32::UniqueHandle& hFile) {
    hFile = win32::OwnUnlessInvalid(CreateFileW(strPath.c_str(), nAccess, nShare, nullptr,
                                                nDisposition, FILE_ATTRIBUTE_NORMAL, nullptr));
    return ErrorUnless(hFile != nullptr);
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
        if (!IsAbsent(nError)) ReportFailure("FindFirstFile", nError);
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

FileError CopyOneFile(const std::wstring& strFrom, const std::wstring& strTo) {
    return ErrorUnless(CopyFileW(strFrom.c_str(), strTo.c_str(), FALSE));
}

bool CopyFolderFiles(const std::wstring& strFromFolder, const std::wstring& strToFolder) {
    bool bAllCopied = true;
    const auto CopyOne = [&](const WIN32_FIND_DATAW& Entry) {
        if ((Entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return true;
        const std::wstring strName = Entry.cFileName;
        const std::wstring strTarget = strToFolder + L"\\" + strName;
        const std::wstring strSource = strFromFolder + L"\\" + strName;
        bAllCopied = CopyInSpiteOfHolders(strSource, strTarget) && MakeWritable(strTarget);
        return bAllCopied;
    };
    return Search(strFromFolder + L"\\*", CopyOne) && bAllCopied;
}

FileError ReadWholeFile(const std::wstring& strPath, std::string& strBytes) {
    win32::UniqueHandle hFile;
    const FileError nError = OpenFile(strPath, GENERIC_READ, SHARE_ALL, OPEN_EXISTING, hFile);
    if (nError != 0) return nError;
    LARGE_INTEGER nSize{};
    if (GetFileSizeEx(hFile.get(), &nSize) == FALSE) return GetLastError();
    if (static_cast<uint64_t>(nSize.QuadPart) > std::numeric_limits<int32_t>::max()) {
        return ERROR_FILE_TOO_LARGE;
    }
    std::string strRead(static_cast<size_t>(nSize.QuadPart), '\0');
    size_t nDone = 0;
    while (nDone < strRead.size()) {
        const auto nChunk = static_cast<DWORD>(std::min<size_t>(strRead.size() - nDone, MAX_CHUNK));
        DWORD nRead = 0;
        const BOOL bDone = ::ReadFile(hFile.get(), strRead.data() + nDone, nChunk, &nRead, nullptr);
        if (bDone == FALSE) return GetLastError();
        if (nRead == 0) break;  // became shorter meanwhile
        nDone += nRead;
    }
    strRead.resize(nDone);
    strBytes = std::move(strRead);
    return 0;
}

bool ReadFileBytes(const std::wstring& strPath, std::string& strBytes) {
    return ReadInSpiteOfHolders(strPath, strBytes);
}

FileError CreateNewFile(const std::wstring& strPath, FileHandle& hFile) {
    win32::UniqueHandle hOpened;
    const FileError nError = OpenFile(strPath, GENERIC_WRITE, 0, CREATE_ALWAYS, hOpened);
    hFile = win32::ToNumber(hOpened.release());
    return nError;
}

FileError OpenToAppend(const std::wstring& strPath, FileHandle& hFile) {
    win32::UniqueHandle hOpened;
    const FileError nError =
        OpenFile(strPath, FILE_APPEND_DATA, FILE_SHARE_READ, OPEN_ALWAYS, hOpened);
    hFile = win32::ToNumber(hOpened.release());
    return nError;
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

FileError RenameFile(const std::wstring& strFrom, const std::wstring& strTo) {
    return ErrorUnless(MoveFileExW(strFrom.c_str(), strTo.c_str(),
                                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

FileError RemoveFile(const std::wstring& strPath) {
    return ErrorUnless(DeleteFileW(strPath.c_str()));
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
    return AppendInSteps(strPath, strBytes);
}

bool MoveFileTo(const std::wstring& strFrom, const std::wstring& strTo) {
    return MoveInSpiteOfHolders(strFrom, strTo);
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
